#include "toolkit/widgets/VyPushButton.h"

#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyStyleSlot.h"
#include "toolkit/style/VyTextLayout.h"

VyPushButton::VyPushButton(VyWidget* parent)
    : VyAbstractButton(parent) {}

VyPushButton::VyPushButton(const VyString& text, VyWidget* parent)
    : VyAbstractButton(parent) {
    setText(text);
}

void VyPushButton::setImages(const VyBitmap& normal, const VyBitmap& hover) {
    m_normalImage = normal;
    m_hoverImage = hover;
    update();
}

VySize VyPushButton::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyPushButtonOption>().font, VyStyleNormal);
    return VySize(VyTextLayout::width(text(), px) + 4 * style->scaled(VyStyle::kFieldPaddingDesign),
                  VyTextLayout::lineHeight(px) + 2 * style->scaled(VyStyle::kFieldPaddingDesign));
}

void VyPushButton::paintEvent(VyPaintEvent*) {
    const int slot = styleSlot();
    const bool highlighted = slot == VyStyleHover || slot == VyStyleFocus;
    const VyBitmap& image = highlighted && !m_hoverImage.isNull() ? m_hoverImage : m_normalImage;
    VyStyle::instance()->drawPushButton(canvas(), rect(), slot, isDown(), isChecked(), text(),
                                        icon(), image);
}
