#include "toolkit/widgets/VyRadioButton.h"

#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"

VyRadioButton::VyRadioButton(VyWidget* parent)
    : VyAbstractButton(parent) {
    setCheckable(true);
    setAutoExclusive(true);
}

VyRadioButton::VyRadioButton(const VyString& text, VyWidget* parent)
    : VyRadioButton(parent) {
    setText(text);
}

VySize VyRadioButton::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px =
        VyStyle::fontSize(style->option().get<VyRadioButtonOption>().font, VyStyleNormal);
    return VySize(style->indicatorSize() + style->indicatorSpacing() +
                      VyTextLayout::width(text(), px),
                  std::max(style->indicatorSize(), VyTextLayout::lineHeight(px)));
}

void VyRadioButton::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawRadioButton(canvas(), rect(), styleSlot(), isChecked(), text());
}
