#include "toolkit/widgets/VyAbstractButton.h"

#include "toolkit/core/VyPointer.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/widgets/VyControlState.h"

VyAbstractButton::VyAbstractButton(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
}

VyAbstractButton::~VyAbstractButton() {
    stopTimers();
}

void VyAbstractButton::setText(const VyString& text) {
    if (m_text == text)
        return;
    m_text = text;
    updateGeometry();
    update();
}

void VyAbstractButton::setIcon(const VyBitmap& icon) {
    m_icon = icon;
    update();
}

void VyAbstractButton::setCheckable(bool checkable) {
    m_checkable = checkable;
    if (!checkable)
        setChecked(false);
}

void VyAbstractButton::setChecked(bool checked) {
    if (!m_checkable || checked == m_checked)
        return;
    m_checked = checked;
    if (checked && m_autoExclusive)
        uncheckSiblings();
    update();
    emitSignal(this, &toggled);
}

void VyAbstractButton::uncheckSiblings() {
    VyObject* p = parent();
    if (!p)
        return;
    for (VyObject* o : p->children()) {
        if (o == this || !o->inherits("VyAbstractButton"))
            continue;
        auto* b = static_cast<VyAbstractButton*>(o);
        if (b->m_autoExclusive && b->m_checked)
            b->setChecked(false);
    }
}

void VyAbstractButton::setAutoRepeat(bool on) {
    m_autoRepeat = on;
    if (!on && m_repeatTimer) {
        killTimer(m_repeatTimer);
        m_repeatTimer = 0;
    }
}

int VyAbstractButton::styleSlot() const {
    return vyControlStyleSlot(this, m_hovered);
}

bool VyAbstractButton::hitButton(VyPoint pos) const {
    return rect().contains(pos);
}

void VyAbstractButton::nextCheckState() {
    // An exclusive group always keeps one member checked.
    if (m_checkable && !(m_autoExclusive && m_checked))
        setChecked(!m_checked);
}

void VyAbstractButton::setDown(bool down) {
    if (m_down == down)
        return;
    m_down = down;
    update();
}

void VyAbstractButton::stopTimers() {
    if (m_repeatTimer)
        killTimer(m_repeatTimer);
    if (m_animateTimer)
        killTimer(m_animateTimer);
    m_repeatTimer = m_animateTimer = 0;
}

void VyAbstractButton::finishClick() {
    // A slot may delete the button; stop touching it then.
    VyObjectGuard guard(this);
    nextCheckState();
    if (guard.object())
        emitSignal(this, &clicked);
}

void VyAbstractButton::click() {
    if (!isEnabled())
        return;
    VyObjectGuard guard(this);
    setDown(true);
    emitSignal(this, &pressed);
    if (!guard.object())
        return;
    setDown(false);
    emitSignal(this, &released);
    if (guard.object())
        finishClick();
}

void VyAbstractButton::animateClick(int ms) {
    if (!isEnabled() || m_animateTimer)
        return;
    setDown(true);
    VyObjectGuard guard(this);
    emitSignal(this, &pressed);
    if (guard.object())
        m_animateTimer = startTimer(ms);
}

void VyAbstractButton::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled() || !hitButton(e->pos())) {
        e->ignore();
        return;
    }
    e->accept();
    m_mousePressed = true;
    setDown(true);
    VyObjectGuard guard(this);
    emitSignal(this, &pressed);
    if (guard.object() && m_autoRepeat) {
        m_repeating = false;
        m_repeatTimer = startTimer(m_repeatDelay);
    }
}

void VyAbstractButton::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !m_mousePressed) {
        e->ignore();
        return;
    }
    e->accept();
    m_mousePressed = false;
    if (m_repeatTimer) {
        killTimer(m_repeatTimer);
        m_repeatTimer = 0;
    }
    setDown(false);
    VyObjectGuard guard(this);
    emitSignal(this, &released);
    // A release outside the button cancels the click; an auto-repeating button has already
    // clicked while held.
    if (guard.object() && hitButton(e->pos()) && !(m_autoRepeat && m_repeating))
        finishClick();
}

void VyAbstractButton::mouseMoveEvent(VyMouseEvent* e) {
    if (!m_mousePressed || !(e->buttons() & VyMouseEvent::LeftButton)) {
        e->ignore();
        return;
    }
    e->accept();
    // Dragging off the button shows it released; back on, pressed again.
    setDown(hitButton(e->pos()));
}

void VyAbstractButton::keyPressEvent(VyKeyEvent* e) {
    if (e->key() == VyKeyEvent::KeyOk && isEnabled()) {
        e->accept();
        animateClick();
        return;
    }
    e->ignore();
}

void VyAbstractButton::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void VyAbstractButton::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void VyAbstractButton::focusInEvent(VyFocusEvent*) {
    update();
}

void VyAbstractButton::focusOutEvent(VyFocusEvent*) {
    update();
}

void VyAbstractButton::hideEvent(VyHideEvent*) {
    stopTimers();
    m_down = false;
    m_mousePressed = false;
    m_hovered = false;
}

void VyAbstractButton::timerEvent(VyTimerEvent* e) {
    if (e->timerId() == m_animateTimer && m_animateTimer) {
        killTimer(m_animateTimer);
        m_animateTimer = 0;
        setDown(false);
        VyObjectGuard guard(this);
        emitSignal(this, &released);
        if (guard.object())
            finishClick();
        return;
    }
    if (e->timerId() == m_repeatTimer && m_repeatTimer) {
        if (!m_down)
            return; // dragged off: wait until the pointer is back
        if (!m_repeating) {
            // From the first delay to the steady interval.
            killTimer(m_repeatTimer);
            m_repeatTimer = startTimer(m_repeatInterval);
            m_repeating = true;
        }
        VyObjectGuard guard(this);
        emitSignal(this, &released);
        if (!guard.object())
            return;
        finishClick();
        if (guard.object())
            emitSignal(this, &pressed);
    }
}
