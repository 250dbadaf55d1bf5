#include "platform/display/sdl/VySdlBackend.h"

#include <SDL.h>

#include "platform/display/VyWindowFit.h"
#include "runtime/VyLog.h"

namespace {

constexpr int kWheelStep = 120; // wheel delta of one notch

int buttonBit(uint8_t sdlButton) {
    switch (sdlButton) {
    case SDL_BUTTON_LEFT:
        return 1;
    case SDL_BUTTON_RIGHT:
        return 2;
    case SDL_BUTTON_MIDDLE:
        return 4;
    default:
        return 0;
    }
}

} // namespace

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
    VySize size(m_width, m_height);
    SDL_Rect usable;
    if (SDL_GetDisplayUsableBounds(0, &usable) == 0)
        size = VyWindowFit::windowSize(size, VySize(usable.w, usable.h));
    m_window = SDL_CreateWindow("dvrgui", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                size.width, size.height, SDL_WINDOW_RESIZABLE);
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
    // The software cursor drawn into the framebuffer is the pointer the user sees.
    SDL_ShowCursor(SDL_DISABLE);
    m_memory.assign(static_cast<size_t>(m_width) * m_height, 0);
    m_pixels = reinterpret_cast<uint8_t*>(m_memory.data());
    present(nullptr, 0);
    return true;
}

void VySdlBackend::present(const VyRect* rects, int count) {
    if (!m_texture)
        return;
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
    render();
    ++m_presentCount;
}

void VySdlBackend::render() {
    int w = 0;
    int h = 0;
    SDL_GetWindowSize(m_window, &w, &h);
    const VyRect r = VyWindowFit::picture(VySize(m_width, m_height), VySize(w, h));
    const SDL_Rect target = {r.left, r.top, r.width(), r.height()};
    SDL_SetRenderDrawColor(m_renderer, 0, 0, 0, 255);
    SDL_RenderClear(m_renderer);
    SDL_RenderCopy(m_renderer, m_texture, nullptr, &target);
    SDL_RenderPresent(m_renderer);
}

void VySdlBackend::pumpEvents() {
    if (!m_window)
        return;
    SDL_Event event;
    int w = 0;
    int h = 0;
    SDL_GetWindowSize(m_window, &w, &h);
    const VySize fb(m_width, m_height);
    auto toFb = [&](int x, int y) {
        return VyWindowFit::toFramebuffer(VyPoint(x, y), fb, VySize(w, h));
    };
    while (SDL_PollEvent(&event)) {
        switch (event.type) {
        case SDL_QUIT:
            m_closeRequested = true;
            break;
        case SDL_WINDOWEVENT:
            if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED ||
                event.window.event == SDL_WINDOWEVENT_EXPOSED) {
                SDL_GetWindowSize(m_window, &w, &h);
                if (m_texture)
                    render();
            }
            break;
        case SDL_MOUSEMOTION: {
            const VyPoint p = toFb(event.motion.x, event.motion.y);
            notifyPointer(p.x, p.y, m_buttons, 0);
            break;
        }
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEBUTTONUP: {
            const int bit = buttonBit(event.button.button);
            if (event.type == SDL_MOUSEBUTTONDOWN)
                m_buttons |= bit;
            else
                m_buttons &= ~bit;
            const VyPoint p = toFb(event.button.x, event.button.y);
            notifyPointer(p.x, p.y, m_buttons, 0);
            break;
        }
        case SDL_KEYDOWN:
            notifyKey(SDL_GetKeyName(event.key.keysym.sym));
            break;
        case SDL_MOUSEWHEEL: {
            int x = 0;
            int y = 0;
            SDL_GetMouseState(&x, &y);
            const VyPoint p = toFb(x, y);
            const int notches =
                event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -event.wheel.y : event.wheel.y;
            if (notches != 0)
                notifyPointer(p.x, p.y, m_buttons, notches * kWheelStep);
            break;
        }
        default:
            break;
        }
    }
    std::string status;
    if (takeStatus(&status))
        SDL_SetWindowTitle(m_window, ("dvrgui - " + status).c_str());
}
