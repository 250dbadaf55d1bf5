// Focus requests of a widget and its window's memory of the focused child.
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyFocusEvent.h"

void VyWidget::setFocus(int reason) {
    VyApplication* app = VyApplication::instance();
    if (!app || isBlockedByModal() || app->focusWidget() == this || m_focusPolicy == NoFocus ||
        !isEnabled())
        return;
    if (m_focusPolicy == KeyFocus && reason == VyFocusEvent::MouseFocusReason)
        return;
    app->setFocusWidget(this, reason);
    if (m_tracksFocus && app->focusWidget() == this)
        window()->watchFocusChild(this);
}

void VyWidget::clearFocus() {
    VyApplication* app = VyApplication::instance();
    if (app && app->focusWidget() == this)
        app->setFocusWidget(nullptr, VyFocusEvent::OtherFocusReason);
}

bool VyWidget::hasFocus() const {
    VyApplication* app = VyApplication::instance();
    return app && app->focusWidget() == this;
}

bool VyWidget::isBlockedByModal() const {
    VyApplication* app = VyApplication::instance();
    return app && app->isBlockedByModal(this);
}

void VyWidget::watchFocusChild(VyWidget* child) {
    if (m_focusChild == child)
        return;
    const VySlot slot = VY_SLOT(VyWidget, focusChildDestroyed);
    if (m_focusChild)
        disconnect(m_focusChild, &m_focusChild->destroyed, this, slot);
    m_focusChild = child;
    if (m_focusChild)
        connect(m_focusChild, &m_focusChild->destroyed, this, slot);
}

void VyWidget::focusChildDestroyed() {
    m_focusChild = nullptr;
}

void VyWidget::setEnabled(bool enabled) {
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    VyApplication* app = VyApplication::instance();
    if (!enabled && app && app->focusWidget()) {
        for (VyWidget* w = app->focusWidget(); w; w = w->parentWidget())
            if (w == this) {
                app->focusWidget()->clearFocus();
                break;
            }
    }
    update();
}

bool VyWidget::isEnabled() const {
    for (const VyWidget* w = this; w; w = w->parentWidget())
        if (!w->m_enabled)
            return false;
    return true;
}
