#include "toolkit/widgets/VyColorScale.h"

#include "toolkit/style/VyStyle.h"

VyColorScale::VyColorScale(VyWidget* parent)
    : VyWidget(parent) {}

void VyColorScale::setLabels(const VyString& high, const VyString& low) {
    m_high = high;
    m_low = low;
    update();
}

void VyColorScale::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawColorScale(canvas(), rect(), m_high, m_low);
}
