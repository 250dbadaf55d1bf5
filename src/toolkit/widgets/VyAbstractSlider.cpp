#include "toolkit/widgets/VyAbstractSlider.h"

#include <algorithm>
#include <climits>

#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/widgets/VyControlState.h"

namespace {

constexpr int kWheelNotch = 120; // wheel delta of one notch

int addClamped(int value, long long step) {
    return static_cast<int>(
        std::max<long long>(INT_MIN, std::min<long long>(INT_MAX, value + step)));
}

} // namespace

VyAbstractSlider::VyAbstractSlider(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
}

void VyAbstractSlider::setRange(int minimum, int maximum) {
    if (minimum > maximum)
        std::swap(minimum, maximum);
    if (minimum == m_minimum && maximum == m_maximum)
        return;
    m_minimum = minimum;
    m_maximum = maximum;
    emitSignal(this, &rangeChanged);
    const int clamped = std::max(m_minimum, std::min(m_value, m_maximum));
    if (clamped != m_value)
        setValue(clamped);
    else
        update();
}

void VyAbstractSlider::setValue(int value) {
    value = std::max(m_minimum, std::min(value, m_maximum));
    if (value == m_value)
        return;
    m_value = value;
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
        setValue(addClamped(m_value, m_singleStep));
        break;
    case SingleStepSub:
        setValue(addClamped(m_value, -static_cast<long long>(m_singleStep)));
        break;
    case PageStepAdd:
        setValue(addClamped(m_value, m_pageStep));
        break;
    case PageStepSub:
        setValue(addClamped(m_value, -static_cast<long long>(m_pageStep)));
        break;
    case ToMinimum:
        setValue(m_minimum);
        break;
    case ToMaximum:
        setValue(m_maximum);
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
    // Part notches of fine wheels add up to at least one step.
    long long notches = e->delta() / kWheelNotch;
    if (notches == 0)
        notches = e->delta() > 0 ? 1 : -1;
    setValue(addClamped(m_value, notches * m_singleStep * wheelDirection()));
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
