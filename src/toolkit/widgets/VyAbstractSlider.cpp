#include "toolkit/widgets/VyAbstractSlider.h"

#include <algorithm>
#include <climits>

#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/widgets/VyControlState.h"

namespace {} // namespace

VyAbstractSlider::VyAbstractSlider(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
}

void VyAbstractSlider::setRange(int minimum, int maximum) {
    const int before = m_range.value();
    if (!m_range.setRange(minimum, maximum))
        return;
    emitSignal(this, &rangeChanged);
    update();
    if (m_range.value() != before)
        emitSignal(this, &valueChanged);
}

void VyAbstractSlider::setValue(int value) {
    if (!m_range.setValue(value))
        return;
    update();
    emitSignal(this, &valueChanged);
}

void VyAbstractSlider::setOrientation(Orientation orientation) {
    m_orientation = orientation;
    update();
}

void VyAbstractSlider::setSliderDown(bool down) {
    if (m_sliderDown == down)
        return;
    m_sliderDown = down;
    update();
    emitSignal(this, down ? &sliderPressed : &sliderReleased);
}

void VyAbstractSlider::triggerAction(Action action) {
    switch (action) {
    case SingleStepAdd:
        setValue(m_range.offset(m_singleStep));
        break;
    case SingleStepSub:
        setValue(m_range.offset(-static_cast<long long>(m_singleStep)));
        break;
    case PageStepAdd:
        setValue(m_range.offset(m_pageStep));
        break;
    case PageStepSub:
        setValue(m_range.offset(-static_cast<long long>(m_pageStep)));
        break;
    case ToMinimum:
        setValue(m_range.minimum());
        break;
    case ToMaximum:
        setValue(m_range.maximum());
        break;
    }
}

int VyAbstractSlider::styleSlot() const {
    return vyControlStyleSlot(this, m_hovered || m_sliderDown);
}

void VyAbstractSlider::keyPressEvent(VyKeyEvent* e) {
    if (!isEnabled()) {
        e->ignore();
        return;
    }
    switch (e->key()) {
    case VyKeyEvent::KeyRight:
    case VyKeyEvent::KeyUp:
        triggerAction(SingleStepAdd);
        break;
    case VyKeyEvent::KeyLeft:
    case VyKeyEvent::KeyDown:
        triggerAction(SingleStepSub);
        break;
    default:
        e->ignore();
        return;
    }
    e->accept();
}

void VyAbstractSlider::wheelEvent(VyWheelEvent* e) {
    if (!isEnabled() || e->delta() == 0) {
        e->ignore();
        return;
    }
    e->accept();
    const long long notches = e->notches();
    setValue(m_range.offset(notches * m_singleStep * wheelDirection()));
}

void VyAbstractSlider::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void VyAbstractSlider::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void VyAbstractSlider::focusInEvent(VyFocusEvent*) {
    update();
}

void VyAbstractSlider::focusOutEvent(VyFocusEvent*) {
    update();
}

void VyAbstractSlider::resizeEvent(VyResizeEvent*) {
    update();
}
