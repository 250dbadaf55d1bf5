#include "toolkit/widgets/VyProgressBar.h"

#include <algorithm>

#include "toolkit/style/VyStyle.h"

VyProgressBar::VyProgressBar(VyWidget* parent)
    : VyWidget(parent) {}

void VyProgressBar::setRange(int minimum, int maximum) {
    if (minimum > maximum)
        std::swap(minimum, maximum);
    m_minimum = minimum;
    m_maximum = maximum;
    const int clamped = std::max(m_minimum, std::min(m_value, m_maximum));
    if (clamped != m_value)
        setValue(clamped);
    else
        update();
}

void VyProgressBar::setValue(int value) {
    value = std::max(m_minimum, std::min(value, m_maximum));
    if (value == m_value)
        return;
    m_value = value;
    update();
    emitSignal(this, &valueChanged);
}

void VyProgressBar::setTextVisible(bool on) {
    m_textVisible = on;
    update();
}

int VyProgressBar::percent() const {
    const int64_t span = static_cast<int64_t>(m_maximum) - m_minimum;
    if (span <= 0)
        return 0;
    return static_cast<int>((static_cast<int64_t>(m_value) - m_minimum) * 100 / span);
}

VyString VyProgressBar::text() const {
    return VyString::number(percent()) + "%";
}

void VyProgressBar::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawProgressBar(canvas(), rect(), percent(),
                                         m_textVisible ? text() : VyString());
}
