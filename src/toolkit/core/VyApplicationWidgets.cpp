// The application's side of widgets: focus, the modal stack, blocking and the hit test.
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyFocusEvent.h"
#include "toolkit/graphics/VyWindowSurface.h"

#include <memory>
#include <vector>

void VyApplication::setFocusWidget(VyWidget* widget, int reason) {
    if (widget == m_focusWidget || reason == VyFocusEvent::RefreshFocusReason)
        return;
    if (m_focusWidget) {
        VyFocusEvent out(VyEvent::FocusOut, reason);
        sendEvent(m_focusWidget, &out);
        m_focusWidget = nullptr;
    }
    if (!widget || widget->focusPolicy() == VyWidget::NoFocus)
        return;
    if (widget->focusPolicy() == VyWidget::KeyFocus &&
        (reason == VyFocusEvent::MouseFocusReason ||
         reason == VyFocusEvent::ActiveWindowFocusReason))
        return;
    if (!widget->testAttribute(VyWidget::Visible) || widget->testAttribute(VyWidget::RefusesFocus))
        return;
    VyFocusEvent in(VyEvent::FocusIn, reason);
    sendEvent(widget, &in);
    if (widget->tracksFocus())
        m_focusWidget = widget;
}

VyWidget* VyApplication::activeModalWidget() const {
    return m_modalStack.isEmpty() ? nullptr : m_modalStack.last();
}

VyWidget* VyApplication::activePopupWidget() const {
    VyWidget* top = activeModalWidget();
    return top && top->isPopup() ? top : nullptr;
}

void VyApplication::pushModal(VyWidget* window) {
    m_modalStack.removeAll(window);
    m_modalStack.append(window);
}

void VyApplication::removeModal(VyWidget* window) {
    int index = m_modalStack.lastIndexOf(window);
    if (index < 0)
        return;
    bool wasTop = index == m_modalStack.size() - 1;
    m_modalStack.removeAll(window);
    if (!wasTop)
        return;
    // The window below takes the focus back, as a re-activation.
    VyWidget* next = activeModalWidget();
    if (!next && m_screen) {
        for (int i = m_screen->windowCount() - 1; i >= 0 && !next; --i) {
            VyWindowSurface* s = m_screen->windowAt(i);
            if (s->isVisible() && s->owner() && s->owner() != window && s->owner()->isWidgetType())
                next = static_cast<VyWidget*>(s->owner());
        }
    }
    if (next && next->focusChild())
        setFocusWidget(next->focusChild(), VyFocusEvent::ActiveWindowFocusReason);
}

bool VyApplication::isBlockedByModal(const VyWidget* widget) const {
    VyWidget* modal = activeModalWidget();
    if (!modal || !widget)
        return false;
    VyWidget* win = widget->window();
    if (win == modal)
        return false;
    return !(win->isPopup() && win->isVisible());
}

VyWidget* VyApplication::topLevelAt(VyPoint global) const {
    if (!m_screen)
        return nullptr;
    for (int i = m_screen->windowCount() - 1; i >= 0; --i) {
        VyWindowSurface* s = m_screen->windowAt(i);
        if (!s->isVisible() || !s->owner() || !s->owner()->isWidgetType())
            continue;
        auto* w = static_cast<VyWidget*>(s->owner());
        if (w->testAttribute(VyWidget::Hidden) || w->testAttribute(VyWidget::TransparentForMouse))
            continue;
        if (w->geometry().contains(global))
            return w;
    }
    return nullptr;
}

VyWidget* VyApplication::widgetAt(VyPoint global) const {
    VyWidget* win = topLevelAt(global);
    return win ? win->childAt(win->mapFromGlobal(global)) : nullptr;
}

void VyApplication::broadcastEvent(VyEvent* e) {
    VyObject::broadcastEvent(e);
    if (!m_screen)
        return;
    // Guarded first: a window may close or delete others while handling the event.
    std::vector<std::unique_ptr<VyPointer<VyObject>>> windows;
    for (int i = 0; i < m_screen->windowCount(); ++i) {
        VyObject* owner = m_screen->windowAt(i)->owner();
        if (owner && owner->isWidgetType() && !owner->parent())
            windows.push_back(std::make_unique<VyPointer<VyObject>>(owner));
    }
    for (const auto& w : windows) {
        if (*w)
            sendEvent(w->data(), e);
    }
}
