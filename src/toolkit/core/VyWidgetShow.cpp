// Showing, hiding and closing widgets, and keeping the window surface's flags in step.
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyCloseEvent.h"
#include "toolkit/events/VyFocusEvent.h"
#include "toolkit/events/VyHideEvent.h"
#include "toolkit/events/VyResizeEvent.h"
#include "toolkit/events/VyShowEvent.h"
#include "toolkit/graphics/VyWindowSurface.h"

void VyWidget::show() {
    setVisible(true);
}

void VyWidget::hide() {
    setVisible(false);
}

void VyWidget::setVisible(bool visible) {
    VyApplication* app = VyApplication::instance();
    if (visible) {
        setAttribute(Visible, true);
        if (isWindow() && app && app->screen()) {
            if (!m_surface) {
                m_surface = app->screen()->createWindow(this, m_geometry);
                setAttribute(SurfaceCreated, true);
            } else {
                app->screen()->raiseWindow(m_surface);
            }
            syncSurfaceFlags();
            if (testAttribute(Modal) || isPopup())
                app->pushModal(this);
        }
        VyShowEvent show;
        VyApplication::sendEvent(this, &show);
        VyResizeEvent resize(m_size, VySize(-1, -1));
        VyApplication::sendEvent(this, &resize);
        requestParentLayout();
        update();
        return;
    }

    bool wasVisible = isVisible();
    bool wasOnScreen = wasVisible && isVisibleOnScreen();
    VyHideEvent hideEvent;
    VyApplication::sendEvent(this, &hideEvent);
    setAttribute(Visible, false);
    if (!wasVisible)
        return;
    if (app) {
        // Focus and hover inside a hidden widget would keep receiving input.
        VyWidget* focus = app->focusWidget();
        for (VyWidget* w = focus; w; w = w->isWindow() ? nullptr : w->parentWidget()) {
            if (w == this) {
                app->setFocusWidget(nullptr, VyFocusEvent::OtherFocusReason);
                break;
            }
        }
        if (isWindow())
            app->removeModal(this);
    }
    if (m_surface && app && app->screen())
        syncSurfaceFlags();
    else if (wasOnScreen && parentWidget())
        parentWidget()->update(VyRegion(m_geometry));
    requestParentLayout();
}

bool VyWidget::close() {
    VyCloseEvent e;
    e.setAccepted(true);
    VyApplication::sendEvent(this, &e);
    if (!e.isAccepted())
        return false;
    hide();
    return true;
}

void VyWidget::raise() {
    VyApplication* app = VyApplication::instance();
    if (m_surface && app && app->screen())
        app->screen()->raiseWindow(m_surface);
}

void VyWidget::syncSurfaceFlags() {
    VyApplication* app = VyApplication::instance();
    if (!m_surface || !app || !app->screen())
        return;
    VyScreen* screen = app->screen();
    screen->setWindowHiddenAttribute(m_surface, testAttribute(Hidden));
    screen->setWindowExcluded(m_surface, testAttribute(ExcludedFromScreen));
    screen->setWindowVisible(m_surface, isVisible());
}
