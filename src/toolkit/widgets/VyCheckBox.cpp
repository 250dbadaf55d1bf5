#include "toolkit/widgets/VyCheckBox.h"

#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"

VyCheckBox::VyCheckBox(VyWidget* parent)
    : VyAbstractButton(parent) {
    setCheckable(true);
}

VyCheckBox::VyCheckBox(const VyString& text, VyWidget* parent)
    : VyCheckBox(parent) {
    setText(text);
}

VySize VyCheckBox::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyCheckBoxOption>().font, VyStyleNormal);
    return VySize(style->indicatorSize() + style->indicatorSpacing() +
                      VyTextLayout::width(text(), px),
                  std::max(style->indicatorSize(), VyTextLayout::lineHeight(px)));
}

void VyCheckBox::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawCheckBox(canvas(), rect(), styleSlot(), isChecked(), text());
}
