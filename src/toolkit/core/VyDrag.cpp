#include "toolkit/core/VyDrag.h"

#include <algorithm>
#include <cstring>

#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyDragEnterEvent.h"
#include "toolkit/events/VyDragLeaveEvent.h"
#include "toolkit/events/VyDragMoveEvent.h"
#include "toolkit/events/VyDropEvent.h"

namespace {

// Copies the opaque pixels of `top` over `base` with top's origin at `at` (no blending:
// the overlay draws full pixels anyway).
void stamp(VyBitmap& base, const VyBitmap& top, VyPoint at) {
    uint8_t* dst = base.bits();
    const uint8_t* src = top.constBits();
    for (int y = 0; y < top.height(); ++y) {
        const int by = y + at.y;
        if (by < 0 || by >= base.height())
            continue;
        for (int x = 0; x < top.width(); ++x) {
            const int bx = x + at.x;
            const uint8_t* s = src + (static_cast<size_t>(y) * top.width() + x) * 4;
            if (bx < 0 || bx >= base.width() || s[3] == 0)
                continue;
            std::memcpy(dst + (static_cast<size_t>(by) * base.width() + bx) * 4, s, 4);
        }
    }
}

// The drag image with the cursor drawn over it so that the cursor's hotspot lands on the
// image's hotspot; the result's hotspot is that common point.
VyBitmap compose(const VyBitmap& image, VyPoint imageHotspot, const VyBitmap& cursor,
                 VyPoint cursorHotspot, VyPoint* hotspot) {
    if (image.isNull()) {
        *hotspot = cursorHotspot;
        return cursor;
    }
    if (cursor.isNull()) {
        *hotspot = imageHotspot;
        return image;
    }
    // Both placed in one frame whose origin is the common hotspot.
    const int left = std::min(-imageHotspot.x, -cursorHotspot.x);
    const int top = std::min(-imageHotspot.y, -cursorHotspot.y);
    const int right = std::max(image.width() - imageHotspot.x, cursor.width() - cursorHotspot.x);
    const int bottom = std::max(image.height() - imageHotspot.y, cursor.height() - cursorHotspot.y);
    VyBitmap out(right - left, bottom - top);
    if (out.isNull()) {
        *hotspot = cursorHotspot;
        return cursor;
    }
    stamp(out, image, VyPoint(-imageHotspot.x - left, -imageHotspot.y - top));
    stamp(out, cursor, VyPoint(-cursorHotspot.x - left, -cursorHotspot.y - top));
    *hotspot = VyPoint(-left, -top);
    return out;
}

} // namespace

VyDrag::VyDrag(VyObject* parent)
    : VyObject(parent) {}

VyDrag::~VyDrag() {
    if (m_active)
        cancel();
}

void VyDrag::setImage(const VyBitmap& image, VyPoint hotspot) {
    m_image = image;
    m_hotspot = hotspot;
}

bool VyDrag::start(int possibleActions) {
    VyApplication* app = VyApplication::instance();
    if (!app || app->m_drag || m_active)
        return false;
    m_possibleActions = possibleActions;
    m_active = true;
    m_result = VyDropEvent::IgnoreAction;
    m_target.reset(nullptr);
    m_accepted = false;
    m_shownState = -1;
    app->m_drag = this;

    VyScreenCursor* cursor = app->screen() ? app->screen()->cursor() : nullptr;
    const int span = cursor ? cursor->span() : 0;
    // The drop cursor is an arrow: its hotspot is its top-left corner.
    const VyPoint dropHotspot;
    const VyBitmap drop = VyBitmap::loadPng(VyResources::path(VyScreenCursor::kDropImage));
    if (drop.isNull())
        vyFrameworkLog("load cursor image (%s) failed !!!\n", VyScreenCursor::kDropImage);
    m_cursorAccepted = compose(m_image, m_hotspot, drop, dropHotspot, &m_cursorHotspot);
    VyPoint refusedHotspot;
    const VyBitmap forbidden = VyBitmap::loadPng(
        VyResources::path(VyScreenCursor::imageName(VyScreenCursor::Forbidden, span)));
    m_cursorRefused =
        compose(m_image, m_hotspot, forbidden,
                VyScreenCursor::hotspot(VyScreenCursor::Forbidden, span), &refusedHotspot);
    // One hotspot for both states would make the image jump when acceptance changes; the
    // forbidden image is centred on its hotspot, so each state keeps its own.
    m_refusedHotspot = refusedHotspot;
    pointerMoved(app->lastMousePos(), app->m_rawButtons);
    return true;
}

void VyDrag::cancel() {
    if (!m_active)
        return;
    if (m_target) {
        VyDragLeaveEvent leave;
        VyApplication::sendEvent(m_target.data(), &leave);
    }
    finish(VyDropEvent::IgnoreAction);
}

VyWidget* VyDrag::dropTargetAt(VyPoint global) const {
    VyApplication* app = VyApplication::instance();
    VyWidget* w = app ? app->widgetAt(global) : nullptr;
    if (w && app->isBlockedByModal(w))
        return nullptr;
    for (; w; w = w->isWindow() ? nullptr : w->parentWidget()) {
        if (w->testAttribute(VyWidget::AcceptDrops))
            return w;
    }
    return nullptr;
}

void VyDrag::pointerMoved(VyPoint global, int buttons) {
    if (!m_active)
        return;
    m_buttons = buttons;
    m_lastPos = global;
    VyWidget* over = dropTargetAt(global);
    VyPointer<VyDrag> self(this);
    if (over != m_target.data()) {
        if (m_target) {
            VyDragLeaveEvent leave;
            VyApplication::sendEvent(m_target.data(), &leave);
            if (!self || !m_active)
                return;
        }
        m_target.reset(over);
        m_accepted = false;
        if (over) {
            VyDragEnterEvent enter(over->mapFromGlobal(global), m_possibleActions, &m_mimeData,
                                   static_cast<uint8_t>(buttons));
            VyApplication::sendEvent(over, &enter);
            if (!self || !m_active)
                return;
            m_accepted = m_target && enter.isAccepted();
        }
    }
    // A target that took the enter hears every move and may change its mind by position.
    if (m_target && m_accepted) {
        VyDragMoveEvent move(m_target->mapFromGlobal(global), m_possibleActions, &m_mimeData,
                             static_cast<uint8_t>(buttons));
        move.accept();
        VyApplication::sendEvent(m_target.data(), &move);
        if (!self || !m_active)
            return;
        m_accepted = m_target && move.isAccepted();
    }
    showCursor(m_accepted);
}

void VyDrag::dropAt(VyPoint global) {
    if (!m_active)
        return;
    if (global != m_lastPos) {
        pointerMoved(global, 0);
        if (!m_active)
            return;
    }
    if (!m_target || !m_accepted) {
        cancel();
        return;
    }
    VyDropEvent drop(m_target->mapFromGlobal(global), m_possibleActions, &m_mimeData, 0);
    VyPointer<VyDrag> self(this);
    VyApplication::sendEvent(m_target.data(), &drop);
    if (!self || !m_active)
        return;
    finish(drop.isAccepted() ? drop.dropAction() : int(VyDropEvent::IgnoreAction));
}

void VyDrag::finish(int action) {
    m_active = false;
    m_result = action;
    m_target.reset(nullptr);
    m_accepted = false;
    VyApplication* app = VyApplication::instance();
    if (app && app->m_drag == this) {
        app->m_drag = nullptr;
        app->updateCursorShape(true);
    }
    emitSignal(this, &finished);
}

void VyDrag::showCursor(bool accepted) {
    const int state = accepted ? 1 : 0;
    if (state == m_shownState)
        return;
    m_shownState = state;
    VyApplication* app = VyApplication::instance();
    VyScreenCursor* cursor = app && app->screen() ? app->screen()->cursor() : nullptr;
    if (!cursor)
        return;
    if (accepted)
        cursor->setImage(m_cursorAccepted, m_cursorHotspot);
    else
        cursor->setImage(m_cursorRefused, m_refusedHotspot);
}
