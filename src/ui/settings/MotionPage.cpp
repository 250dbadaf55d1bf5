#include "ui/settings/MotionPage.h"

#include "model/DeviceProfile.h"
#include "protocol/MotionBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/UiLook.h"
#include "ui/settings/MotionAreaGrid.h"

namespace {

constexpr int kMarginDesign = 24;     // pixels at 1920x1080
constexpr int kGridWidthDesign = 704; // 16:9 picture, 32 pixels per column

} // namespace

MotionPage::MotionPage(VyWidget* parent)
    : ChannelPage(TextId::Settings::TypeMotion, TextId::Settings::Channel,
                  MotionBlock::kBlockNumber, MotionBlock::kSize,
                  DeviceProfile::current().channelCount, parent) {
    m_enabled = new VyCheckBox(this);
    addRow(TextId::Settings::Enable, m_enabled);
    watch(m_enabled, &m_enabled->toggled);
    m_sensitivity = new VySpinBox(this);
    m_sensitivity->setRange(MotionBlock::kMinSensitivity, MotionBlock::kMaxSensitivity);
    addRow(TextId::Settings::Sensitivity, m_sensitivity);
    watch(m_sensitivity, &m_sensitivity->valueChanged);
    m_grid = new MotionAreaGrid(this);
    m_grid->show();
    watch(m_grid, &m_grid->areaEdited);
}

void MotionPage::showItem(int index) {
    auto& b = item<MotionBlock>(index);
    m_enabled->setChecked(b.enabled != 0);
    showSpin(m_sensitivity, clampForDisplay(b.sensitivity, MotionBlock::kMinSensitivity,
                                            MotionBlock::kMaxSensitivity, "sensitivity"));
    m_grid->setArea(b.area);
}

void MotionPage::collectItem(int index) {
    auto& b = item<MotionBlock>(index);
    b.enabled = m_enabled->isChecked() ? 1 : 0;
    b.sensitivity =
        uint8_t(fromControl(savedItem<MotionBlock>(index).sensitivity, MotionBlock::kMinSensitivity,
                            MotionBlock::kMaxSensitivity, m_sensitivity->value()));
    // The area is edited in place by the grid.
}

void MotionPage::resizeEvent(VyResizeEvent* e) {
    ChannelPage::resizeEvent(e);
    const int w = UiLook::scaledX(kGridWidthDesign);
    const int top = rowsBottom();
    const int h = std::min(w * 9 / 16, height() - top - UiLook::scaledY(kMarginDesign));
    m_grid->setGeometry(UiLook::scaledX(kMarginDesign), top, w, h);
}
