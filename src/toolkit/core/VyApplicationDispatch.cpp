// The one dispatch routine of the application, with the raw mouse conversion, modal and
// popup redirection, mouse targets, hover and propagation to the parents.
#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyDrag.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyEvent.h"
#include "toolkit/events/VyHoverEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyRawMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"

#include <cstdlib>
#include <memory>
#include <vector>

namespace {

constexpr int kMouseButtons[] = {VyMouseEvent::LeftButton, VyMouseEvent::RightButton,
                                 VyMouseEvent::MidButton};

bool isMouseType(int type) {
    return type >= VyEvent::MouseButtonPress && type <= VyEvent::Wheel;
}

int grabSlot(int button) {
    return button == VyMouseEvent::LeftButton ? 0 : button == VyMouseEvent::RightButton ? 1 : 2;
}

VyPoint globalPosOf(VyEvent* e) {
    if (e->type() == VyEvent::Wheel)
        return static_cast<VyWheelEvent*>(e)->globalPos();
    return static_cast<VyMouseEvent*>(e)->globalPos();
}

uint8_t buttonsOf(VyEvent* e) {
    if (e->type() == VyEvent::Wheel)
        return static_cast<VyWheelEvent*>(e)->buttons();
    return static_cast<VyMouseEvent*>(e)->buttons();
}

void setLocalPos(VyEvent* e, VyPoint pos) {
    if (e->type() == VyEvent::Wheel)
        static_cast<VyWheelEvent*>(e)->setPos(pos);
    else
        static_cast<VyMouseEvent*>(e)->setPos(pos);
}

// The widget and its ancestors up to its window, innermost first.
std::vector<VyWidget*> chainOf(VyWidget* w) {
    std::vector<VyWidget*> chain;
    for (; w; w = w->isWindow() ? nullptr : w->parentWidget())
        chain.push_back(w);
    return chain;
}

bool contains(const std::vector<VyWidget*>& chain, VyWidget* w) {
    for (VyWidget* c : chain)
        if (c == w)
            return true;
    return false;
}

} // namespace

bool VyApplication::notify(VyObject* receiver, VyEvent* e) {
    if (!receiver || !e)
        return false;
    if (!receiver->isWidgetType()) {
        if (receiver == this && e->type() == VyEvent::RawMouse) {
            handleRawMouse(static_cast<VyRawMouseEvent*>(e));
            return true;
        }
        if (receiver == this && isMouseType(e->type())) {
            // Pointer over no window: only the hover and the last position change.
            VyPoint global = globalPosOf(e);
            if (e->type() == VyEvent::MouseMove && buttonsOf(e) == 0)
                updateHover(nullptr, global);
            m_lastMousePos = global;
        }
        return sendEvent(receiver, e);
    }
    auto* widget = static_cast<VyWidget*>(receiver);
    if (e->type() == VyEvent::DeferredDelete) {
        delete widget;
        return true;
    }

    VyWidget* modal = activeModalWidget();
    if (modal && modal != widget->window()) {
        VyWidget* win = widget->window();
        bool shownPopup = win->isPopup() && win->isVisible();
        if (!shownPopup && (modal->testAttribute(VyWidget::Modal) || modal->isPopup())) {
            if (!isMouseType(e->type()))
                return sendEvent(receiver, e);
            VyPoint global = globalPosOf(e);
            setLocalPos(e, modal->mapFromGlobal(global));
            m_lastMousePos = global;
            return sendEvent(modal, e);
        }
    }

    if (!isMouseType(e->type()))
        return sendEvent(receiver, e);
    if (e->type() == VyEvent::Wheel)
        return dispatchWheel(widget, e);
    return dispatchMouse(widget, static_cast<VyMouseEvent*>(e));
}

bool VyApplication::dispatchMouse(VyWidget* receiver, VyMouseEvent* e) {
    VyPoint global = e->globalPos();
    // A window receiver hands the event to its deepest child under the pointer; any other
    // receiver holds the grab of a pressed button and keeps the event.
    VyWidget* target = receiver;
    if (receiver->isWindow()) {
        VyWidget* child = receiver->childAt(receiver->mapFromGlobal(global));
        if (child)
            target = child;
    }
    switch (e->type()) {
    case VyEvent::MouseButtonPress:
    case VyEvent::MouseButtonDblClick:
        m_mouseGrab[grabSlot(e->button())] = target;
        m_lastMousePos = global;
        break;
    case VyEvent::MouseButtonRelease:
        m_mouseGrab[grabSlot(e->button())] = nullptr;
        m_lastMousePos = global;
        updateHover(widgetAt(m_lastMousePos), global);
        break;
    case VyEvent::MouseMove:
        if (e->buttons() == 0)
            updateHover(widgetAt(global), global);
        m_lastMousePos = global;
        if (e->buttons() == 0 && !target->testAttribute(VyWidget::MouseTracking))
            return sendEvent(this, e);
        break;
    default:
        break;
    }
    return deliverToTarget(target, e, global);
}

bool VyApplication::dispatchWheel(VyWidget* receiver, VyEvent* e) {
    VyPoint global = globalPosOf(e);
    m_lastMousePos = global;
    updateHover(widgetAt(m_lastMousePos), global);
    VyWidget* target = receiver;
    if (receiver->isWindow()) {
        VyWidget* child = receiver->childAt(receiver->mapFromGlobal(global));
        if (child)
            target = child;
    }
    return deliverToTarget(target, e, global);
}

bool VyApplication::deliverToTarget(VyWidget* target, VyEvent* e, VyPoint global) {
    // The position is rewritten for each widget on the way up; a handler may delete its
    // widget (or an ancestor), which ends the climb.
    VyPointer<VyWidget> w(target);
    for (;;) {
        setLocalPos(e, w->mapFromGlobal(global));
        e->setAccepted(false);
        sendEvent(w.data(), e);
        if (e->isAccepted() || !w || w->isWindow() || !w->parentWidget())
            break;
        w.reset(w->parentWidget());
    }
    return e->isAccepted();
}

void VyApplication::updateHover(VyWidget* widget, VyPoint global) {
    if (widget == m_hoverWidget)
        return;
    VyWidget* old = m_hoverWidget;
    m_hoverWidget = widget;
    // Handlers may delete widgets of either chain: every member is guarded.
    using Guarded = std::unique_ptr<VyPointer<VyWidget>>;
    std::vector<Guarded> left;
    std::vector<Guarded> entered;
    std::vector<VyWidget*> oldChain = chainOf(old);
    std::vector<VyWidget*> newChain = chainOf(widget);
    for (VyWidget* w : oldChain) {
        if (contains(newChain, w))
            break;
        left.push_back(std::make_unique<VyPointer<VyWidget>>(w));
    }
    for (VyWidget* w : newChain) {
        if (contains(oldChain, w))
            break;
        entered.push_back(std::make_unique<VyPointer<VyWidget>>(w));
    }
    VyPointer<VyWidget> oldGuard(old);
    VyPointer<VyWidget> newGuard(widget);

    // Leave from the widget left outwards, up to the first ancestor still under the pointer;
    // then HoverLeave to the widget that lost the hover.
    for (const Guarded& w : left) {
        if (!*w)
            continue;
        VyEvent leave(VyEvent::Leave);
        sendEvent(w->data(), &leave);
    }
    if (oldGuard) {
        VyHoverEvent hoverLeave(VyEvent::HoverLeave, VyHoverEvent::kUndefined,
                                oldGuard->mapFromGlobal(global));
        sendEvent(oldGuard.data(), &hoverLeave);
    }
    // Enter from the outermost newly entered ancestor inwards; then HoverEnter.
    for (auto it = entered.rbegin(); it != entered.rend(); ++it) {
        if (!**it)
            continue;
        VyEvent enter(VyEvent::Enter);
        sendEvent((*it)->data(), &enter);
    }
    if (newGuard) {
        VyHoverEvent hoverEnter(VyEvent::HoverEnter, newGuard->mapFromGlobal(global),
                                VyHoverEvent::kUndefined);
        sendEvent(newGuard.data(), &hoverEnter);
    }
}

int VyApplication::pressType(int button, VyPoint pos) {
    const int64_t now = m_monotonicMs();
    const VyPoint d = pos - m_clickPos;
    if (button == m_clickButton && now - m_clickTimeMs <= kDoubleClickIntervalMs &&
        std::abs(d.x) <= kDoubleClickDistance && std::abs(d.y) <= kDoubleClickDistance) {
        // A third press starts a new pair rather than making a second double click.
        m_clickButton = 0;
        return VyEvent::MouseButtonDblClick;
    }
    m_clickButton = button;
    m_clickPos = pos;
    m_clickTimeMs = now;
    return VyEvent::MouseButtonPress;
}

bool VyApplication::dragHandlesRawMouse(VyPoint pos, int buttons) {
    VyPointer<VyDrag> drag(m_drag);
    const int released = m_rawButtons & ~buttons;
    m_rawPos = pos;
    m_rawButtons = buttons;
    m_lastMousePos = pos;
    if (released) {
        // The buttons let go end the grab their press took; the source gets no release.
        for (int b : kMouseButtons)
            if (released & b)
                m_mouseGrab[grabSlot(b)] = nullptr;
        if (buttons == 0) {
            drag->dropAt(pos);
            return true;
        }
    }
    drag->pointerMoved(pos, buttons);
    return true;
}

void VyApplication::handleRawMouse(VyRawMouseEvent* e) {
    // Consecutive samples become a move when the position changed, then one press (or
    // double click) or release per changed button, then the wheel.
    noteInput();
    VyPoint pos = e->pos();
    int buttons = e->buttons() & 7;
    if (m_drag && dragHandlesRawMouse(pos, buttons))
        return;
    auto receiverFor = [this](VyPoint global, int held) -> VyObject* {
        if (held) {
            for (int b : kMouseButtons)
                if ((held & b) && m_mouseGrab[grabSlot(b)])
                    return m_mouseGrab[grabSlot(b)];
        }
        VyWidget* win = topLevelAt(global);
        return win ? static_cast<VyObject*>(win) : this;
    };
    if (pos != m_rawPos) {
        m_rawPos = pos;
        if (m_screen && m_screen->cursor())
            m_screen->cursor()->mouseMoved();
        VyMouseEvent move(VyEvent::MouseMove, pos, pos, 0, static_cast<uint8_t>(m_rawButtons));
        notify(receiverFor(pos, m_rawButtons), &move);
    }
    for (int b : kMouseButtons) {
        // A handler may have started a drag: it owns the rest of this sample.
        if (m_drag)
            break;
        if (((buttons ^ m_rawButtons) & b) == 0)
            continue;
        bool press = (buttons & b) != 0;
        int before = m_rawButtons;
        m_rawButtons = press ? (m_rawButtons | b) : (m_rawButtons & ~b);
        const int type = press ? pressType(b, pos) : int(VyEvent::MouseButtonRelease);
        VyMouseEvent click(type, pos, pos, static_cast<uint8_t>(b),
                           static_cast<uint8_t>(m_rawButtons));
        notify(receiverFor(pos, press ? 0 : before), &click);
    }
    if (e->wheel() != 0 && !m_drag) {
        VyWheelEvent wheel(pos, pos, e->wheel(), static_cast<uint8_t>(m_rawButtons));
        notify(receiverFor(pos, 0), &wheel);
    }
    if (!m_drag)
        updateCursorShape();
}

void VyApplication::objectDestroyed(VyObject* object) {
    for (VyObjectGuard* guard : m_guards)
        if (guard->m_object == object)
            guard->m_object = nullptr;
    for (VyWidget*& grab : m_mouseGrab)
        if (static_cast<VyObject*>(grab) == object)
            grab = nullptr;
    if (static_cast<VyObject*>(m_hoverWidget) == object)
        m_hoverWidget = nullptr;
    if (static_cast<VyObject*>(m_focusWidget) == object)
        m_focusWidget = nullptr;
    for (int i = 0; i < m_modalStack.size(); ++i) {
        if (static_cast<VyObject*>(m_modalStack.at(i)) == object) {
            removeModal(m_modalStack.at(i));
            break;
        }
    }
}
