#include "ui/settings/CameraPage.h"

#include "model/DeviceProfile.h"
#include "protocol/CameraBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VySpinBox.h"

#include <cstring>

namespace {

// Characters, not bytes: a name of 15 characters fits the 32-byte field even in scripts of
// two bytes per character.
constexpr int kMaxNameCharacters = 15;

} // namespace

CameraPage::CameraPage(VyWidget* parent)
    : ChannelPage(TextId::Settings::Camera, TextId::Settings::Channel, CameraBlock::kBlockNumber,
                  CameraBlock::kSize, DeviceProfile::current().channelCount, parent) {
    m_name = new VyLineEdit(this);
    m_name->setMaxLength(kMaxNameCharacters);
    addRow(TextId::Settings::ChannelName, m_name);
    watch(m_name, &m_name->textChanged);
    auto check = [&](uint32_t textId) {
        auto* b = new VyCheckBox(this);
        addRow(textId, b);
        watch(b, &b->toggled);
        return b;
    };
    auto position = [&](uint32_t textId) {
        auto* box = new VySpinBox(this);
        box->setRange(0, CameraBlock::kMaxPosition);
        addRow(textId, box);
        watch(box, &box->valueChanged);
        return box;
    };
    m_showName = check(TextId::Settings::ShowName);
    m_nameX = position(TextId::Settings::NameX);
    m_nameY = position(TextId::Settings::NameY);
    m_showTime = check(TextId::Settings::ShowTime);
    m_timeX = position(TextId::Settings::TimeX);
    m_timeY = position(TextId::Settings::TimeY);
}

void CameraPage::showItem(int index) {
    const auto& b = item<CameraBlock>(index);
    const VyString name = fieldText(b.name, sizeof b.name);
    if (m_name->text() != name)
        m_name->setText(name);
    m_showName->setChecked(b.showName != 0);
    m_showTime->setChecked(b.showTime != 0);
    showSpin(m_nameX, clampForDisplay(b.nameX, 0, CameraBlock::kMaxPosition, "name x"));
    showSpin(m_nameY, clampForDisplay(b.nameY, 0, CameraBlock::kMaxPosition, "name y"));
    showSpin(m_timeX, clampForDisplay(b.timeX, 0, CameraBlock::kMaxPosition, "time x"));
    showSpin(m_timeY, clampForDisplay(b.timeY, 0, CameraBlock::kMaxPosition, "time y"));
}

void CameraPage::collectItem(int index) {
    auto& b = item<CameraBlock>(index);
    const auto& saved = savedItem<CameraBlock>(index);
    if (m_name->text() != fieldText(saved.name, sizeof saved.name))
        storeText(b.name, sizeof b.name, m_name->text());
    else
        std::memcpy(b.name, saved.name, sizeof b.name);
    b.showName = m_showName->isChecked() ? 1 : 0;
    b.showTime = m_showTime->isChecked() ? 1 : 0;
    const int hi = CameraBlock::kMaxPosition;
    b.nameX = uint16_t(fromControl(saved.nameX, 0, hi, m_nameX->value()));
    b.nameY = uint16_t(fromControl(saved.nameY, 0, hi, m_nameY->value()));
    b.timeX = uint16_t(fromControl(saved.timeX, 0, hi, m_timeX->value()));
    b.timeY = uint16_t(fromControl(saved.timeY, 0, hi, m_timeY->value()));
}
