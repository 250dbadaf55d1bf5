// Construction, event routing, attributes, geometry, size limits and layout of VyWidget.
#include "toolkit/core/VyWidget.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyLayout.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyCloseEvent.h"
#include "toolkit/events/VyDragEnterEvent.h"
#include "toolkit/events/VyDragLeaveEvent.h"
#include "toolkit/events/VyFocusEvent.h"
#include "toolkit/events/VyHideEvent.h"
#include "toolkit/events/VyHoverEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/events/VyResizeEvent.h"
#include "toolkit/events/VyShowEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/graphics/VyWindowSurface.h"

#include <algorithm>
#include <cstdio>

VyWidget::VyWidget(VyWidget* parent, int windowType)
    : VyObject(parent)
    , m_windowType(static_cast<uint8_t>(parent ? windowType : windowType | Window)) {}

VyWidget::~VyWidget() {
    // The layout goes first, while it can still detach from a complete widget.
    delete m_layout;
    m_layout = nullptr;
    if (m_focusChild)
        watchFocusChild(nullptr);
    // Also cleared here, not only through the watched destroyed signal: that signal stays
    // silent for a widget whose signals are blocked.
    VyWidget* win = window();
    if (win != this && win->m_focusChild == this)
        win->watchFocusChild(nullptr);
    VyApplication* app = VyApplication::instance();
    // Focus, hover, grabs, guards and the modal stack forget this widget now, while it is
    // still a widget: the children destroyed next must not send events to it, and the
    // focus can move on to the next window with the right reason.
    if (app)
        app->objectDestroyed(this);
    if (m_surface) {
        if (app && app->screen())
            app->screen()->removeWindow(m_surface);
        m_surface = nullptr;
    } else if (isVisible() && parentWidget() && parentWidget()->isVisibleOnScreen()) {
        parentWidget()->update(VyRegion(m_geometry));
    }
}

bool VyWidget::event(VyEvent* e) {
    switch (e->type()) {
    case VyEvent::Paint:
        paintEvent(static_cast<VyPaintEvent*>(e));
        break;
    case VyEvent::MouseButtonPress:
        if (m_focusPolicy & ClickFocus)
            setFocus(VyFocusEvent::MouseFocusReason);
        mousePressEvent(static_cast<VyMouseEvent*>(e));
        break;
    case VyEvent::MouseButtonRelease:
        mouseReleaseEvent(static_cast<VyMouseEvent*>(e));
        break;
    case VyEvent::MouseButtonDblClick:
        mouseDoubleClickEvent(static_cast<VyMouseEvent*>(e));
        break;
    case VyEvent::MouseMove:
        mouseMoveEvent(static_cast<VyMouseEvent*>(e));
        break;
    case VyEvent::Wheel:
        wheelEvent(static_cast<VyWheelEvent*>(e));
        break;
    case VyEvent::KeyPress:
        keyPressEvent(static_cast<VyKeyEvent*>(e));
        break;
    case VyEvent::KeyRelease:
        keyReleaseEvent(static_cast<VyKeyEvent*>(e));
        break;
    case VyEvent::Enter:
        enterEvent(e);
        break;
    case VyEvent::Leave:
        leaveEvent(e);
        break;
    case VyEvent::FocusIn:
        focusInEvent(static_cast<VyFocusEvent*>(e));
        break;
    case VyEvent::FocusOut:
        focusOutEvent(static_cast<VyFocusEvent*>(e));
        break;
    case VyEvent::Show:
        showEvent(static_cast<VyShowEvent*>(e));
        break;
    case VyEvent::Hide:
        hideEvent(static_cast<VyHideEvent*>(e));
        break;
    case VyEvent::Resize:
        resizeEvent(static_cast<VyResizeEvent*>(e));
        break;
    case VyEvent::HoverEnter:
        hoverEnterEvent(static_cast<VyHoverEvent*>(e));
        break;
    case VyEvent::HoverLeave:
        hoverLeaveEvent(static_cast<VyHoverEvent*>(e));
        break;
    case VyEvent::Close:
        closeEvent(static_cast<VyCloseEvent*>(e));
        break;
    case VyEvent::DragEnter:
        dragEnterEvent(static_cast<VyDragEnterEvent*>(e));
        break;
    case VyEvent::DragMove:
        dragMoveEvent(static_cast<VyDragMoveEvent*>(e));
        break;
    case VyEvent::DragLeave:
        dragLeaveEvent(static_cast<VyDragLeaveEvent*>(e));
        break;
    case VyEvent::Drop:
        dropEvent(static_cast<VyDropEvent*>(e));
        break;
    case VyEvent::ScreenChange:
        invalidateStyle();
        broadcastEvent(e);
        break;
    default:
        return VyObject::event(e);
    }
    return true;
}

void VyWidget::paintEvent(VyPaintEvent*) {}
void VyWidget::mousePressEvent(VyMouseEvent*) {}
void VyWidget::mouseReleaseEvent(VyMouseEvent*) {}
void VyWidget::mouseDoubleClickEvent(VyMouseEvent* e) {
    // A widget that does not tell double clicks apart sees a second press.
    mousePressEvent(e);
}
void VyWidget::mouseMoveEvent(VyMouseEvent*) {}
void VyWidget::wheelEvent(VyWheelEvent*) {}
void VyWidget::keyPressEvent(VyKeyEvent*) {}
void VyWidget::keyReleaseEvent(VyKeyEvent*) {}
void VyWidget::enterEvent(VyEvent*) {}
void VyWidget::leaveEvent(VyEvent*) {}
void VyWidget::focusInEvent(VyFocusEvent*) {}
void VyWidget::focusOutEvent(VyFocusEvent*) {}
void VyWidget::showEvent(VyShowEvent*) {}
void VyWidget::hideEvent(VyHideEvent*) {}
void VyWidget::resizeEvent(VyResizeEvent*) {}
void VyWidget::hoverEnterEvent(VyHoverEvent*) {}
void VyWidget::hoverLeaveEvent(VyHoverEvent*) {}
void VyWidget::closeEvent(VyCloseEvent*) {}
void VyWidget::dropEvent(VyDropEvent*) {}
void VyWidget::dragMoveEvent(VyDragMoveEvent*) {}
void VyWidget::dragEnterEvent(VyDragEnterEvent*) {}
void VyWidget::dragLeaveEvent(VyDragLeaveEvent*) {}

VySize VyWidget::sizeHint() const {
    if (m_layout)
        return m_layout->sizeHint();
    return VySize(-1, -1);
}

VySize VyWidget::minimumSizeHint() const {
    if (m_layout)
        return m_layout->minimumSize();
    return VySize(-1, -1);
}

int VyWidget::heightForWidth(int) const {
    return -1;
}

void VyWidget::updateGeometry() {
    requestParentLayout();
}

bool VyWidget::focusNextPrevChild(bool) {
    return false;
}

bool VyWidget::acceptsFocus() const {
    return m_focusPolicy != NoFocus && isVisible() && !testAttribute(RefusesFocus);
}

bool VyWidget::hitTest(VyPoint pos) const {
    return rect().contains(pos);
}

void VyWidget::setAttribute(int attribute, bool on) {
    if (attribute < 0 || attribute >= kAttributeCount) {
        vyFrameworkLog("setAttribute(): Type is out of range !!!\n");
        return;
    }
    uint32_t bit = 1u << attribute;
    bool was = (m_attributes & bit) != 0;
    m_attributes = on ? (m_attributes | bit) : (m_attributes & ~bit);
    if (was != on && (attribute == Hidden || attribute == ExcludedFromScreen))
        syncSurfaceFlags();
}

bool VyWidget::testAttribute(int attribute) const {
    if (attribute < 0 || attribute >= kAttributeCount)
        return false;
    return (m_attributes & (1u << attribute)) != 0;
}

VyWidget* VyWidget::parentWidget() const {
    VyObject* p = parent();
    return p && p->isWidgetType() ? static_cast<VyWidget*>(p) : nullptr;
}

VyWidget* VyWidget::window() const {
    const VyWidget* w = this;
    while (!w->isWindow() && w->parentWidget())
        w = w->parentWidget();
    return const_cast<VyWidget*>(w);
}

VyPoint VyWidget::mapToWindow(VyPoint pos) const {
    const VyWidget* w = this;
    while (!w->isWindow() && w->parentWidget()) {
        pos = pos + w->m_geometry.topLeft();
        w = w->parentWidget();
    }
    return pos;
}

VyPoint VyWidget::mapToGlobal(VyPoint pos) const {
    VyWidget* win = window();
    return mapToWindow(pos) + win->m_geometry.topLeft();
}

VyPoint VyWidget::mapFromGlobal(VyPoint pos) const {
    return pos - mapToGlobal(VyPoint(0, 0));
}

VyWidget* VyWidget::childAt(VyPoint pos) {
    if (!hitTest(pos))
        return nullptr;
    VyWidget* w = this;
    for (;;) {
        VyWidget* hit = nullptr;
        const VyList<VyObject*>& kids = w->children();
        // Last child first: it is drawn last and lies on top.
        for (int i = kids.size() - 1; i >= 0; --i) {
            VyObject* o = kids.at(i);
            if (!o->isWidgetType())
                continue;
            auto* c = static_cast<VyWidget*>(o);
            if (c->isWindow() || !c->isVisible() || c->testAttribute(TransparentForMouse) ||
                !c->m_geometry.contains(pos))
                continue;
            VyPoint local = pos - c->m_geometry.topLeft();
            if (!c->hitTest(local))
                continue;
            hit = c;
            pos = local;
            break;
        }
        if (!hit)
            return w;
        w = hit;
    }
}

bool VyWidget::isVisibleOnScreen() const {
    for (const VyWidget* w = this; w; w = w->isWindow() ? nullptr : w->parentWidget())
        if (!w->isVisible())
            return false;
    return true;
}

void VyWidget::setGeometry(const VyRect& r) {
    if (r == m_geometry)
        return;
    VyRect old = m_geometry;
    VySize oldSize = m_size;
    m_geometry = r;
    m_size = VySize(std::max(0, r.width()), std::max(0, r.height()));
    VyApplication* app = VyApplication::instance();
    if (m_surface && app && app->screen())
        app->screen()->setWindowGeometry(m_surface, m_geometry);
    if (!isVisible())
        return;
    if (m_size != oldSize) {
        VyResizeEvent resize(m_size, oldSize);
        VyApplication::sendEvent(this, &resize);
    }
    if (isWindow()) {
        update();
    } else if (VyWidget* p = parentWidget()) {
        VyRegion dirty(old);
        dirty.unite(m_geometry);
        p->update(dirty);
    }
}

bool VyWidget::sizeHelper(int& w, int& h, bool minimum) {
    VyApplication* app = VyApplication::instance();
    if (isWindow() && app && app->screen() && app->screen()->isOpen()) {
        // A window can neither need nor use more than the screen.
        if (w != kMaxSize)
            w = std::min(w, app->screen()->width());
        if (h != kMaxSize)
            h = std::min(h, app->screen()->height());
    }
    if (w > kMaxSize || h > kMaxSize) {
        vySystemLine("Warning: exceed the max size.\n");
        w = std::min(w, kMaxSize);
        h = std::min(h, kMaxSize);
    }
    w = std::max(w, 0);
    h = std::max(h, 0);
    if (minimum && (w > m_maximumSize.width || h > m_maximumSize.height)) {
        vySystemLine("Warning: setMinimumSize_helper: the size is not possible.\n");
        return false;
    }
    if (!minimum && (w < m_minimumSize.width || h < m_minimumSize.height)) {
        vySystemLine("Warning: setMaximumSize_helper: the size is not possible.\n");
        return false;
    }
    return true;
}

void VyWidget::setMinimumSize(int w, int h) {
    if (!sizeHelper(w, h, true))
        return;
    m_minimumSize = VySize(w, h);
    if (m_size.width < w || m_size.height < h)
        resize(std::max(m_size.width, w), std::max(m_size.height, h));
    requestParentLayout();
}

void VyWidget::setMaximumSize(int w, int h) {
    if (!sizeHelper(w, h, false))
        return;
    m_maximumSize = VySize(w, h);
    if (m_size.width > w || m_size.height > h)
        resize(std::min(m_size.width, w), std::min(m_size.height, h));
    requestParentLayout();
}

void VyWidget::setFixedSize(int w, int h) {
    // Widen the limits first so that neither call sees the other's old value as a conflict.
    m_minimumSize = VySize(0, 0);
    m_maximumSize = VySize(kMaxSize, kMaxSize);
    setMinimumSize(w, h);
    setMaximumSize(w, h);
}

void VyWidget::setLayout(VyLayout* layout) {
    if (!layout) {
        vySystemLine("VyWidget::setLayout: Cannot set layout to 0\n");
        return;
    }
    if (m_layout) {
        vySystemLine(
            "VyWidget::setLayout: Attempting to set VyLayout, which already has a layout\n");
        return;
    }
    if (layout->parent()) {
        vySystemLine("VyWidget::setLayout: Attempting to set VyLayout, when the VyLayout already "
                     "has a parent\n");
        return;
    }
    m_layout = layout;
    layout->setParent(this);
    layout->attachTo(this);
    VyApplication::postEvent(this, std::make_unique<VyEvent>(VyEvent::LayoutRequest));
}

void VyWidget::requestParentLayout() {
    VyWidget* p = parentWidget();
    if (!p || isWindow() || !p->m_layout)
        return;
    VyApplication::postEvent(p, std::make_unique<VyEvent>(VyEvent::LayoutRequest));
}

void VyWidget::invalidateStyle() {
    m_styleFontSize = kStyleReloadSentinel;
    styleChanged();
}

void VyWidget::setCursorShape(int shape) {
    m_cursorShape = shape < 0 ? -1 : shape;
    // The pointer may be over this widget or one that inherits from it.
    if (VyApplication* app = VyApplication::instance())
        app->updateCursorShape();
}

void VyWidget::unsetCursorShape() {
    setCursorShape(-1);
}

int VyWidget::cursorShape() const {
    for (const VyWidget* w = this; w; w = w->isWindow() ? nullptr : w->parentWidget()) {
        if (w->m_cursorShape >= 0)
            return w->m_cursorShape;
    }
    return 0; // the arrow
}
