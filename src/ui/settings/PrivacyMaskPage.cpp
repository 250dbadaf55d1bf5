#include "ui/settings/PrivacyMaskPage.h"

#include "model/DeviceProfile.h"
#include "protocol/FactorySettings.h"
#include "protocol/PrivacyMaskBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/settings/PrivacyMaskArea.h"

#include <algorithm>

namespace {

constexpr int kMarginDesign = 24;     // pixels at 1920x1080
constexpr int kAreaWidthDesign = 704; // a 16:9 picture
constexpr int kButtonWidthDesign = 200;
constexpr int kButtonHeightDesign = 44;

} // namespace

PrivacyMaskPage::PrivacyMaskPage(VyWidget* parent)
    : ChannelPage(TextId::Settings::PrivacyMask, TextId::Settings::Channel,
                  PrivacyMaskBlock::kBlockNumber, PrivacyMaskBlock::kSize,
                  DeviceProfile::current().channelCount, parent) {
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Enable, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    m_clear = new VyPushButton(VyTranslation::tr(TextId::Settings::ClearMasks), this);
    m_clear->show();
    VyObject::connect(m_clear, &m_clear->clicked, this, VY_SLOT(PrivacyMaskPage, clearAll));
    m_area = new PrivacyMaskArea(this);
    m_area->show();
    watch(m_area, &m_area->masksEdited);
}

void PrivacyMaskPage::showItem(int index) {
    auto& b = item<PrivacyMaskBlock>(index);
    m_enabled->setChecked(b.enabled != 0);
    // A mask reaching past the picture is drawn cut at its edge and kept as App has it
    // until the user changes the masks.
    for (const PrivacyMaskBlock::Mask& m : b.masks)
        if (m.x + m.width > PrivacyMaskBlock::kSpan || m.y + m.height > PrivacyMaskBlock::kSpan)
            VY_GUI_LOG("a privacy mask of channel %d reaches past the picture, shown cut\n",
                       index + 1);
    m_area->setMasks(b.masks);
}

void PrivacyMaskPage::collectItem(int index) {
    item<PrivacyMaskBlock>(index).enabled = m_enabled->isChecked() ? 1 : 0;
    // The masks are edited in place by the area.
}

void PrivacyMaskPage::clearAll() {
    if (!isOpened())
        return;
    auto& b = item<PrivacyMaskBlock>(shownItem());
    std::fill(std::begin(b.masks), std::end(b.masks), PrivacyMaskBlock::Mask{});
    m_area->update();
    VY_GUI_LOG("privacy masks of channel %d cleared\n", shownItem() + 1);
    markEdited();
}

void PrivacyMaskPage::restoreDefaults() {
    if (!isOpened())
        return;
    for (int i = 0; i < itemCount(); ++i)
        FactorySettings::setPrivacyMasks(&item<PrivacyMaskBlock>(i));
    showValues();
    markEdited();
}

void PrivacyMaskPage::resizeEvent(VyResizeEvent* e) {
    ChannelPage::resizeEvent(e);
    const int x = UiLook::scaledX(kMarginDesign);
    int top = rowsBottom();
    m_clear->setGeometry(x, top, UiLook::scaledX(kButtonWidthDesign),
                         UiLook::scaledY(kButtonHeightDesign));
    top += UiLook::scaledY(kButtonHeightDesign + kMarginDesign);
    const int w = UiLook::scaledX(kAreaWidthDesign);
    const int h = std::min(w * 9 / 16, height() - top - UiLook::scaledY(kMarginDesign));
    m_area->setGeometry(x, top, w, std::max(0, h));
}
