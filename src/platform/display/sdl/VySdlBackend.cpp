#include "platform/display/sdl/VySdlBackend.h"

#include "platform/display/sdl/VySdlLibrary.h"

#include "platform/display/VyWindowFit.h"

#include "runtime/VyLog.h"
#include <algorithm>

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
        m_sdl->DestroyTexture(m_texture);
    if (m_renderer)
        m_sdl->DestroyRenderer(m_renderer);
    if (m_window)
        m_sdl->DestroyWindow(m_window);
    if (m_sdlStarted)
        m_sdl->QuitSubSystem(SDL_INIT_VIDEO);
}

bool VySdlBackend::open() {
    if (m_window)
        return m_texture != nullptr;
    m_sdl = VySdlLibrary::get();
    if (!m_sdl)
        return false;
    if (m_sdl->InitSubSystem(SDL_INIT_VIDEO) != 0) {
        vyFrameworkLog("window display: %s !!!\n", m_sdl->GetError());
        return false;
    }
    m_sdlStarted = true;
    VySize size(m_width, m_height);
    SDL_Rect usable;
    if (m_sdl->GetDisplayUsableBounds(0, &usable) == 0)
        size = VyWindowFit::windowSize(size, VySize(usable.w, usable.h));
    m_window = m_sdl->CreateWindow("dvrgui", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                   size.width, size.height, SDL_WINDOW_RESIZABLE);
    if (!m_window) {
        vyFrameworkLog("window display: %s !!!\n", m_sdl->GetError());
        return false;
    }
    m_renderer = m_sdl->CreateRenderer(m_window, -1, 0);
    if (!m_renderer) {
        vyFrameworkLog("window display: %s !!!\n", m_sdl->GetError());
        return false;
    }
    // Bit 15 is the overlay's alpha bit on the device; on the desktop every pixel is shown.
    m_texture = m_sdl->CreateTexture(m_renderer, SDL_PIXELFORMAT_RGB555,
                                     SDL_TEXTUREACCESS_STREAMING, m_width, m_height);
    if (!m_texture) {
        vyFrameworkLog("window display: %s !!!\n", m_sdl->GetError());
        return false;
    }
    // The software cursor drawn into the framebuffer is the pointer the user sees.
    m_sdl->ShowCursor(SDL_DISABLE);
    m_memory.assign(static_cast<size_t>(m_width) * m_height, 0);
    m_pixels = reinterpret_cast<uint8_t*>(m_memory.data());
    m_planePath = VyVideoPlane::configuredPath();
    if (!m_planePath.isEmpty()) {
        m_guiCopy.assign(m_memory.size(), 0);
        m_composed.assign(m_memory.size(), 0);
    }
    present(nullptr, 0);
    return true;
}

void VySdlBackend::present(const VyRect* rects, int count) {
    if (!m_texture)
        return;
    const int pitch = lineLength();
    if (!m_planePath.isEmpty()) {
        const VyRect all(0, 0, m_width, m_height);
        if (count <= 0)
            uploadComposed(all);
        for (int i = 0; i < count; ++i)
            uploadComposed(rects[i].intersected(all));
        render();
        ++m_presentCount;
        return;
    }
    if (count <= 0) {
        m_sdl->UpdateTexture(m_texture, nullptr, m_pixels, pitch);
    } else {
        for (int i = 0; i < count; ++i) {
            const VyRect r = rects[i].intersected(VyRect(0, 0, m_width, m_height));
            if (r.isEmpty())
                continue;
            SDL_Rect area = {r.left, r.top, r.width(), r.height()};
            const uint8_t* first = m_pixels + static_cast<size_t>(r.top) * pitch + r.left * 2;
            m_sdl->UpdateTexture(m_texture, &area, first, pitch);
        }
    }
    render();
    ++m_presentCount;
}

void VySdlBackend::uploadComposed(const VyRect& r) {
    if (r.isEmpty())
        return;
    const auto* gui = reinterpret_cast<const uint16_t*>(m_pixels);
    for (int y = r.top; y <= r.bottom; ++y) {
        const size_t at = static_cast<size_t>(y) * m_width + r.left;
        std::copy(gui + at, gui + at + r.width(), m_guiCopy.begin() + long(at));
        VyVideoPlane::composeRow(m_guiCopy.data() + at,
                                 m_plane.isOpen() ? m_plane.pixels() + at : nullptr,
                                 m_composed.data() + at, r.width());
    }
    const SDL_Rect area = {r.left, r.top, r.width(), r.height()};
    m_sdl->UpdateTexture(m_texture, &area,
                         m_composed.data() + static_cast<size_t>(r.top) * m_width + r.left,
                         m_width * 2);
}

void VySdlBackend::refreshVideo() {
    const uint32_t now = m_sdl->GetTicks();
    if (m_planePath.isEmpty() || !m_texture || now - m_lastVideoTick < VyVideoPlane::kRefreshMs)
        return;
    m_lastVideoTick = now;
    if (!m_plane.isOpen() && !m_plane.open(m_planePath, m_width, m_height))
        return;
    // The interface pixels come from the copy taken at the last present: the framebuffer
    // itself may only be read under the screen's mutex.
    VyVideoPlane::composeRow(m_guiCopy.data(), m_plane.pixels(), m_composed.data(),
                             m_width * m_height);
    m_sdl->UpdateTexture(m_texture, nullptr, m_composed.data(), m_width * 2);
    render();
}

void VySdlBackend::render() {
    int w = 0;
    int h = 0;
    m_sdl->GetWindowSize(m_window, &w, &h);
    const VyRect r = VyWindowFit::picture(VySize(m_width, m_height), VySize(w, h));
    const SDL_Rect target = {r.left, r.top, r.width(), r.height()};
    m_sdl->SetRenderDrawColor(m_renderer, 0, 0, 0, 255);
    m_sdl->RenderClear(m_renderer);
    m_sdl->RenderCopy(m_renderer, m_texture, nullptr, &target);
    m_sdl->RenderPresent(m_renderer);
}

void VySdlBackend::pumpEvents() {
    if (!m_window)
        return;
    refreshVideo();
    SDL_Event event;
    int w = 0;
    int h = 0;
    m_sdl->GetWindowSize(m_window, &w, &h);
    const VySize fb(m_width, m_height);
    auto toFb = [&](int x, int y) {
        return VyWindowFit::toFramebuffer(VyPoint(x, y), fb, VySize(w, h));
    };
    while (m_sdl->PollEvent(&event)) {
        switch (event.type) {
        case SDL_QUIT:
            m_closeRequested = true;
            break;
        case SDL_WINDOWEVENT:
            if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED ||
                event.window.event == SDL_WINDOWEVENT_EXPOSED) {
                m_sdl->GetWindowSize(m_window, &w, &h);
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
            notifyKey(m_sdl->GetKeyName(event.key.keysym.sym));
            break;
        case SDL_MOUSEWHEEL: {
            int x = 0;
            int y = 0;
            m_sdl->GetMouseState(&x, &y);
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
        m_sdl->SetWindowTitle(m_window, ("dvrgui - " + status).c_str());
}
