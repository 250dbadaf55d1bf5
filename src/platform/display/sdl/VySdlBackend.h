#pragma once
// A desktop window that shows the framebuffer: pixels live in memory as on the device, and
// every flush presents the rectangles it changed. The window is sized to fit the desktop
// (scaled by a whole factor when the framebuffer fits, by a fraction when it does not) and
// may be resized; the desktop's cursor is hidden over it, so the GUI's own software cursor
// is the one the user sees, fed by the window's pointer events mapped back to framebuffer
// pixels. SDL is used only from the GUI thread.
#include <vector>

#include "platform/display/VyDisplayBackend.h"
#include "platform/display/VyVideoPlane.h"

struct SDL_Window;
struct SDL_Renderer;
struct SDL_Texture;
struct VySdlLibrary;

class VySdlBackend : public VyDisplayBackend {
public:
    VySdlBackend(int width, int height);
    ~VySdlBackend() override;
    VY_DISABLE_COPY_MOVE(VySdlBackend)

    bool open() override;
    bool holdsDevice() const override { return m_window != nullptr; }
    int width() const override { return m_width; }
    int height() const override { return m_height; }
    int lineLength() const override { return m_width * 2; }
    uint8_t* pixels() const override { return m_texture ? m_pixels : nullptr; }
    size_t length() const override { return m_memory.size() * 2; }
    bool needsPresent() const override { return true; }
    void present(const VyRect* rects, int count) override;
    bool needsEventPump() const override { return true; }
    void pumpEvents() override;

    bool closeRequested() const override { return m_closeRequested; }
    int presentCount() const { return m_presentCount; }

private:
    void render();
    // With a video plane: the interface pixels of the rectangle over the plane's, into the
    // texture. Both buffers belong to the GUI thread (present and pumpEvents run there).
    void uploadComposed(const VyRect& r);
    void refreshVideo();

    int m_width;
    int m_height;
    std::vector<uint16_t> m_memory;
    uint8_t* m_pixels = nullptr;
    const VySdlLibrary* m_sdl = nullptr; // loaded by open()
    bool m_sdlStarted = false;
    SDL_Window* m_window = nullptr;
    SDL_Renderer* m_renderer = nullptr;
    SDL_Texture* m_texture = nullptr;
    int m_presentCount = 0;
    bool m_closeRequested = false;
    int m_buttons = 0;
    VyString m_planePath;
    VyVideoPlane m_plane;
    std::vector<uint16_t> m_guiCopy;  // the interface pixels last presented
    std::vector<uint16_t> m_composed; // the picture shown
    uint32_t m_lastVideoTick = 0;
};
