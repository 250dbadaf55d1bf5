#include "toolkit/widgets/VySpinBox.h"

#include <algorithm>
#include <climits>

#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyControlState.h"

namespace {

constexpr int kMaxTypedDigits = 10; // an int32 never has more

} // namespace

VySpinBox::VySpinBox(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
}

VySpinBox::~VySpinBox() {
    stopRepeat();
}

void VySpinBox::setRange(int minimum, int maximum) {
    const int before = m_range.value();
    m_range.setRange(minimum, maximum);
    if (m_range.value() != before)
        m_typed.clear();
    update();
    if (m_range.value() != before)
        emitSignal(this, &valueChanged);
}

void VySpinBox::setValue(int value) {
    m_typed.clear();
    update();
    if (m_range.setValue(value))
        emitSignal(this, &valueChanged);
}

void VySpinBox::setWrapping(bool on) {
    m_wrapping = on;
    update();
}

void VySpinBox::setPrefix(const VyString& prefix) {
    m_prefix = prefix;
    update();
}

void VySpinBox::setSuffix(const VyString& suffix) {
    m_suffix = suffix;
    update();
}

void VySpinBox::stepBy(int steps) {
    commitTyped();
    const long long step = static_cast<long long>(steps) * m_step;
    const long long next = static_cast<long long>(m_range.value()) + step;
    if (m_wrapping && m_range.span() > 0 &&
        (next > m_range.maximum() || next < m_range.minimum())) {
        // Past one end continues from the other, as a clock's hour field does.
        setValue(next > m_range.maximum() ? m_range.minimum() : m_range.maximum());
        return;
    }
    setValue(m_range.offset(step));
}

VyString VySpinBox::text() const {
    return m_prefix + (m_typed.isEmpty() ? VyString::number(m_range.value()) : m_typed) + m_suffix;
}

int VySpinBox::styleSlot() const {
    return vyControlStyleSlot(this, m_hovered);
}

VySize VySpinBox::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VySpinBoxOption>().font, 0);
    const int w = std::max(
        VyTextLayout::width(m_prefix + VyString::number(m_range.maximum()) + m_suffix, px),
        VyTextLayout::width(m_prefix + VyString::number(m_range.minimum()) + m_suffix, px));
    const int h = VyTextLayout::lineHeight(px) + 2 * style->scaled(VyStyle::kFieldPaddingDesign);
    return VySize(w + h + 2 * style->scaled(VyStyle::kFieldPaddingDesign), h);
}

void VySpinBox::commitTyped() {
    if (m_typed.isEmpty())
        return;
    const long long typed = std::stoll(m_typed.toStdString());
    m_typed.clear();
    setValue(static_cast<int>(std::max<long long>(INT_MIN, std::min<long long>(INT_MAX, typed))));
}

void VySpinBox::paintEvent(VyPaintEvent*) {
    const bool upEnabled = m_wrapping || m_range.value() < m_range.maximum();
    const bool downEnabled = m_wrapping || m_range.value() > m_range.minimum();
    VyStyle::instance()->drawSpinBox(canvas(), rect(), styleSlot(), text(), m_pressedPart,
                                     upEnabled, downEnabled);
}

void VySpinBox::keyPressEvent(VyKeyEvent* e) {
    if (!isEnabled()) {
        e->ignore();
        return;
    }
    const int key = e->key();
    if (key >= VyKeyEvent::KeyDigit0 && key <= VyKeyEvent::KeyDigit9) {
        if (m_typed.length() >= kMaxTypedDigits)
            m_typed.clear();
        // A leading zero carries nothing.
        if (m_typed == "0")
            m_typed.clear();
        m_typed += VyString::number(key - VyKeyEvent::KeyDigit0);
        update();
    } else if (key == VyKeyEvent::KeyUp) {
        stepUp();
    } else if (key == VyKeyEvent::KeyDown) {
        stepDown();
    } else if (key == VyKeyEvent::KeyOk && isTyping()) {
        commitTyped();
    } else if (key == VyKeyEvent::KeyEscape && isTyping()) {
        m_typed.clear();
        update();
    } else {
        e->ignore();
        return;
    }
    e->accept();
}

void VySpinBox::wheelEvent(VyWheelEvent* e) {
    if (!isEnabled() || e->delta() == 0) {
        e->ignore();
        return;
    }
    e->accept();
    stepBy(e->notches());
}

void VySpinBox::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    m_pressedPart = VyStyle::instance()->spinBoxPartAt(rect(), e->pos());
    if (m_pressedPart == VyStyle::SpinNone)
        return;
    stepBy(m_pressedPart == VyStyle::SpinUp ? 1 : -1);
    stopRepeat();
    m_repeatTimer = startTimer(kRepeatDelayMs);
}

void VySpinBox::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    stopRepeat();
    if (m_pressedPart != VyStyle::SpinNone) {
        m_pressedPart = VyStyle::SpinNone;
        update();
    }
}

void VySpinBox::stopRepeat() {
    if (m_repeatTimer)
        killTimer(m_repeatTimer);
    m_repeatTimer = 0;
    m_repeating = false;
}

void VySpinBox::timerEvent(VyTimerEvent* e) {
    if (!m_repeatTimer || e->timerId() != m_repeatTimer)
        return;
    if (!m_repeating) {
        killTimer(m_repeatTimer);
        m_repeatTimer = startTimer(kRepeatIntervalMs);
        m_repeating = true;
    }
    stepBy(m_pressedPart == VyStyle::SpinUp ? 1 : -1);
}

void VySpinBox::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void VySpinBox::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void VySpinBox::focusInEvent(VyFocusEvent*) {
    update();
}

void VySpinBox::focusOutEvent(VyFocusEvent*) {
    commitTyped();
    update();
}

void VySpinBox::hideEvent(VyHideEvent*) {
    stopRepeat();
    m_pressedPart = VyStyle::SpinNone;
}
