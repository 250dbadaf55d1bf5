#include "platform/display/sdl/VySdlBackend.h"

#include <SDL.h>

#include "runtime/VyLog.h"

VySdlBackend::VySdlBackend(int width, int height)
    : m_width(width)
    , m_height(height) {}

VySdlBackend::~VySdlBackend() {
    if (m_texture)
        SDL_DestroyTexture(m_texture);
    if (m_renderer)
        SDL_DestroyRenderer(m_renderer);
    if (m_window)
        SDL_DestroyWindow(m_window);
    if (m_sdlStarted)
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

bool VySdlBackend::open() {
    if (m_window)
        return m_texture != nullptr;
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) {
        vyFrameworkLog("window display: %s !!!\n", SDL_GetError());
        return false;
    }
    m_sdlStarted = true;
    m_window = SDL_CreateWindow("dvrgui", SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, m_width,
                                m_height, 0);
    if (!m_window) {
        vyFrameworkLog("window display: %s !!!\n", SDL_GetError());
        return false;
    }
    m_renderer = SDL_CreateRenderer(m_window, -1, 0);
    if (!m_renderer) {
        vyFrameworkLog("window display: %s !!!\n", SDL_GetError());
        return false;
    }
    // Bit 15 is the overlay's alpha bit on the device; on the desktop every pixel is shown.
    m_texture = SDL_CreateTexture(m_renderer, SDL_PIXELFORMAT_RGB555, SDL_TEXTUREACCESS_STREAMING,
                                  m_width, m_height);
    if (!m_texture) {
        vyFrameworkLog("window display: %s !!!\n", SDL_GetError());
        return false;
    }
    m_memory.assign(static_cast<size_t>(m_width) * m_height, 0);
    m_pixels = reinterpret_cast<uint8_t*>(m_memory.data());
    present(nullptr, 0);
    return true;
}

void VySdlBackend::present(const VyRect* rects, int count) {
    if (!m_texture)
        return;
    // Keep the window responsive. Input from it is not the toolkit's (the mouse and keys
    // have their own sources); only closing the window is passed on.
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        if (event.type == SDL_QUIT)
            m_closeRequested = true;
    }
    const int pitch = lineLength();
    if (count <= 0) {
        SDL_UpdateTexture(m_texture, nullptr, m_pixels, pitch);
    } else {
        for (int i = 0; i < count; ++i) {
            const VyRect r = rects[i].intersected(VyRect(0, 0, m_width, m_height));
            if (r.isEmpty())
                continue;
            SDL_Rect area = {r.left, r.top, r.width(), r.height()};
            const uint8_t* first = m_pixels + static_cast<size_t>(r.top) * pitch + r.left * 2;
            SDL_UpdateTexture(m_texture, &area, first, pitch);
        }
    }
    SDL_RenderClear(m_renderer);
    SDL_RenderCopy(m_renderer, m_texture, nullptr, nullptr);
    SDL_RenderPresent(m_renderer);
    ++m_presentCount;
}
