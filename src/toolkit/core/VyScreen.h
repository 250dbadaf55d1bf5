#pragma once
// The output: opens the display device, maps its memory, keeps the top-level window
// surfaces in stacking order and composes their dirty parts into the framebuffer, one
// flush per batch of updates. The GUI thread owns everything here except the framebuffer
// memory itself, which the mouse thread's cursor overlay also writes: both take
// framebufferMutex() for that.
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/display/VyDisplayBackend.h"
#include "runtime/VyRect.h"
#include "runtime/VyRegion.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"

class VyFbCanvas;
class VyScreenCursor;
class VyWindowSurface;

class VyScreen : public VyObject {
    VY_OBJECT(VyScreen, VyObject)

public:
    // Called for each dirty window before the flush copies it, with the dirty part in
    // window coordinates; the window paints it into its surface's canvas.
    using PaintHandler = std::function<void(VyWindowSurface* window, const VyRegion& region)>;

    // The size the fixed pixel metrics of controls are designed for.
    static constexpr int kDesignWidth = 1920;  // pixels
    static constexpr int kDesignHeight = 1080; // pixels

    explicit VyScreen(VyObject* parent = nullptr);
    ~VyScreen() override;

    // Opens the device ("/dev/fb0", "mem:WxH", "mem:WxH:FILE", "window:WxH"). True at once
    // when a device is already held, even one whose setup failed half way.
    bool open(const VyString& device);
    // Closes the current device and opens another (a new output resolution): the clip
    // rectangle and canvases follow, the memory is cleared, every window is marked dirty
    // and geometryChanged is emitted. If the new device fails, the old one is opened
    // again and false is returned.
    bool reopen(const VyString& device);
    bool isOpen() const;
    const VyString& device() const { return m_device; }

    int width() const { return m_width; }
    int height() const { return m_height; }
    int lineLength() const { return m_lineLength; }
    uint8_t* mapping() const { return m_mapping; }
    uint8_t* mappingEnd() const { return m_mappingEnd; }
    size_t length() const { return m_length; }
    // (0, 0, width-1, height-1) once open.
    VyRect clipRect() const { return m_clipRect; }

    float horizontalScale() const { return float(m_width) / kDesignWidth; }
    float verticalScale() const { return float(m_height) / kDesignHeight; }
    float meanScale() const { return (horizontalScale() + verticalScale()) / 2; }

    // The canvas over the framebuffer memory; null while closed.
    VyFbCanvas* frontCanvas() const { return m_front.get(); }
    VyScreenCursor* cursor() const { return m_cursor.get(); }
    VyDisplayBackend* backend() const { return m_backend.get(); }
    // Held while the framebuffer memory is written. Taken before the cursor's mutex.
    std::mutex& framebufferMutex() { return m_framebufferMutex; }

    // Window surfaces, bottom first. A new window starts on top, not yet visible.
    VyWindowSurface* createWindow(VyObject* owner, const VyRect& rect);
    // Marks the window's rectangle dirty so what lay beneath is redrawn, then deletes it.
    void removeWindow(VyWindowSurface* window);
    void raiseWindow(VyWindowSurface* window);
    void lowerWindow(VyWindowSurface* window);
    void setWindowGeometry(VyWindowSurface* window, const VyRect& rect);
    void setWindowVisible(VyWindowSurface* window, bool visible);
    void setWindowHiddenAttribute(VyWindowSurface* window, bool hidden);
    void setWindowExcluded(VyWindowSurface* window, bool excluded);
    int windowCount() const { return static_cast<int>(m_windows.size()); }
    VyWindowSurface* windowAt(int index) const;
    // The surface a widget owns, or null.
    VyWindowSurface* windowOf(const VyObject* owner) const;

    // Marks the part of region (screen coordinates) that the window shows as dirty: what
    // lies under shown windows stacked above it is left out. The first mark of a batch
    // posts one UpdateRequest to the screen.
    void update(VyWindowSurface* window, const VyRegion& region);
    void update(VyWindowSurface* window);
    const VyRegion& dirtyRegion() const;
    bool updatePending() const { return m_updatePending; }

    void setPaintHandler(PaintHandler handler) { m_paintHandler = std::move(handler); }
    // What an UpdateRequest does: paint the dirty windows, compose them bottom first
    // (uncovered parts become opaque black), redraw the cursor, present.
    void flush();

    // Flushes done, and pixels written by them in total (each at most once per flush).
    int flushCount() const { return m_flushCount; }
    uint64_t flushedPixelCount() const { return m_flushedPixels; }

    bool event(VyEvent* e) override;

    // Where pointer input of an output that has its own (a desktop window) goes, as
    // absolute framebuffer positions; kept across reopens.
    void setPointerHandler(VyDisplayBackend::PointerHandler handler);
    // The output's keyboard and its status text (a desktop window's keys and title); kept
    // across reopens like the pointer handler.
    void setKeyHandler(VyDisplayBackend::KeyHandler handler);
    void setStatusSource(VyDisplayBackend::StatusSource source);
    // For outputs with an event queue of their own: takes their events every
    // kEventPumpIntervalMs from the GUI thread (needs the timer service).
    void startEventPump();
    static constexpr int kEventPumpIntervalMs = 10;

    // Called by the cursor, from any thread, when it wrote to the framebuffer outside a
    // flush. Outputs that are not scanned out get an UpdateRequest so that the next turn
    // of the GUI thread presents the cursor's move.
    void cursorTouched();

    // Emitted after a reopen changed the output.
    VySignal geometryChanged;
    // Emitted once when the user closed a desktop window output (noticed at a flush).
    VySignal displayClosed;

protected:
    void timerEvent(VyTimerEvent* e) override;

private:
    int indexOf(const VyWindowSurface* window) const;
    void markDirty(int index, const VyRegion& region);
    // Unites the collected parts into m_dirtyRegion, pairwise so that a batch of n small
    // updates costs n log n rather than n squared.
    void foldDirtyParts() const;
    void closeLocked();
    bool openBackend(const VyString& device);

    // Guards the framebuffer memory and the fields that describe it (the cursor reads them
    // from the mouse thread). Lock order: this, then the cursor's mutex.
    std::mutex m_framebufferMutex;
    // Whether the backend wants present() calls; read by the mouse thread.
    std::atomic<bool> m_presents{false};
    std::unique_ptr<VyDisplayBackend> m_backend;
    std::unique_ptr<VyFbCanvas> m_front;
    std::unique_ptr<VyScreenCursor> m_cursor;
    VyString m_device;
    VyRect m_clipRect;
    uint8_t* m_mapping = nullptr;
    uint8_t* m_mappingEnd = nullptr;
    size_t m_length = 0;
    int m_width = 0;
    int m_height = 0;
    int m_lineLength = 0;

    // GUI thread only.
    std::vector<std::unique_ptr<VyWindowSurface>> m_windows;
    mutable VyRegion m_dirtyRegion;
    mutable std::vector<VyRegion> m_dirtyParts; // marked, not yet united into m_dirtyRegion
    bool m_updatePending = false;
    PaintHandler m_paintHandler;
    int m_flushCount = 0;
    bool m_closeAnnounced = false;
    uint64_t m_flushedPixels = 0;
    VyDisplayBackend::PointerHandler m_pointerHandler;
    VyDisplayBackend::KeyHandler m_keyHandler;
    VyDisplayBackend::StatusSource m_statusSource;
    int m_pumpTimerId = 0;
};
