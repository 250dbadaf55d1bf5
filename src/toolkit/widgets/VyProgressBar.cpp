#include "toolkit/widgets/VyProgressBar.h"

#include <algorithm>

#include "toolkit/style/VyStyle.h"

VyProgressBar::VyProgressBar(VyWidget* parent)
    : VyWidget(parent) {}

void VyProgressBar::setRange(int minimum, int maximum) {
    const int before = m_range.value();
    m_range.setRange(minimum, maximum);
    update();
    if (m_range.value() != before)
        emitSignal(this, &valueChanged);
}

void VyProgressBar::setValue(int value) {
    if (!m_range.setValue(value))
        return;
    update();
    emitSignal(this, &valueChanged);
}

void VyProgressBar::setTextVisible(bool on) {
    m_textVisible = on;
    update();
}

int VyProgressBar::percent() const {
    return m_range.percent();
}

VyString VyProgressBar::text() const {
    return VyString::number(percent()) + "%";
}

void VyProgressBar::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawProgressBar(canvas(), rect(), percent(),
                                         m_textVisible ? text() : VyString());
}
