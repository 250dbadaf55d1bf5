// Composition of the dirty windows into the framebuffer.
#include <utility>

#include "platform/display/VyDisplayBackend.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyEvent.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyWindowSurface.h"

namespace {

// What shows where no window does: black with the overlay bit set, so the video layer
// beneath the GUI plane does not show through by accident.
constexpr uint16_t kOpaqueBlack = 0x8000;

} // namespace

void VyScreen::cursorTouched() {
    if (m_presents && VyApplication::instance())
        VyApplication::postEvent(this, std::make_unique<VyEvent>(VyEvent::UpdateRequest));
}

bool VyScreen::event(VyEvent* e) {
    if (e->type() == VyEvent::UpdateRequest) {
        flush();
        return true;
    }
    return VyObject::event(e);
}

void VyScreen::flush() {
    foldDirtyParts();
    VyRegion dirty;
    dirty.swap(m_dirtyRegion);
    // Cleared before painting: an update made while windows paint starts the next batch
    // instead of being lost with this one.
    m_updatePending = false;
    if (!isOpen() || !m_front)
        return;
    if (dirty.isEmpty()) {
        // Only the cursor moved (its own request): show where it went and what it left.
        const VyRect touched = m_cursor ? m_cursor->takeTouchedArea() : VyRect();
        if (!touched.isEmpty()) {
            std::lock_guard<std::mutex> lock(m_framebufferMutex);
            m_backend->present(&touched, 1);
        }
        return;
    }

    // With no window left to compose the whole screen turns opaque black, not only the
    // dirty part: the pixels outside it may still hold the 0x0000 the screen was cleared to
    // when it opened, and there the video plane would show through.
    bool anyComposes = false;
    for (int i = 0; i < windowCount() && !anyComposes; ++i)
        anyComposes = m_windows[i]->composes();
    if (!anyComposes)
        dirty = VyRegion(VyRect(0, 0, width(), height()));

    // Each composing window gets the part of the dirty region where it is the topmost
    // window, so that no pixel is written twice.
    struct Part {
        VyWindowSurface* window;
        VyRegion region;
    };
    std::vector<Part> parts;
    VyRegion uncovered = dirty;
    for (int i = windowCount() - 1; i >= 0 && !uncovered.isEmpty(); --i) {
        VyWindowSurface* w = m_windows[i].get();
        if (!w->composes())
            continue;
        VyRegion part = uncovered.intersected(w->rect());
        if (part.isEmpty())
            continue;
        uncovered.subtract(w->rect());
        parts.push_back({w, std::move(part)});
    }

    // Windows paint outside the framebuffer mutex, bottom first.
    if (m_paintHandler) {
        for (auto it = parts.rbegin(); it != parts.rend(); ++it) {
            const VyPoint offset = VyPoint() - it->window->rect().topLeft();
            m_paintHandler(it->window, it->region.translated(offset));
        }
    }

    uint64_t written = 0;
    {
        std::lock_guard<std::mutex> lock(m_framebufferMutex);
        if (m_cursor)
            m_cursor->restoreLocked();
        for (auto it = parts.rbegin(); it != parts.rend(); ++it) {
            // A paint handler may have removed the window.
            if (indexOf(it->window) < 0) {
                uncovered.unite(it->region);
                continue;
            }
            const VyPoint origin = it->window->rect().topLeft();
            const VyFbCanvas& source = *it->window->canvas();
            for (const VyRect& r : it->region.rects()) {
                m_front->copyFrom(source, r.translated(VyPoint() - origin), r.topLeft());
                written += static_cast<uint64_t>(r.width()) * r.height();
            }
        }
        for (const VyRect& r : uncovered.rects()) {
            m_front->fillRaw(r, kOpaqueBlack);
            written += static_cast<uint64_t>(r.width()) * r.height();
        }
        if (m_cursor)
            m_cursor->saveAndDrawLocked();
    }
    ++m_flushCount;
    m_flushedPixels += written;

    // Where the cursor was and is now may lie outside the region; a window shows both.
    VyVector<VyRect> changed = dirty.rects();
    const VyRect cursorArea = m_cursor ? m_cursor->takeTouchedArea() : VyRect();
    if (!cursorArea.isEmpty())
        changed.append(cursorArea);
    // The window reads the pixels the mouse thread's cursor writes: hold the mutex.
    if (m_presents) {
        {
            std::lock_guard<std::mutex> lock(m_framebufferMutex);
            m_backend->present(changed.data(), changed.size());
        }
        if (m_backend->closeRequested() && !m_closeAnnounced) {
            m_closeAnnounced = true;
            emitSignal(this, &displayClosed);
        }
    }
}
