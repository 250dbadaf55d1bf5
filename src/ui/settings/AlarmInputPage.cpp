#include "ui/settings/AlarmInputPage.h"

#include "model/DeviceProfile.h"
#include "protocol/AlarmInputBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/settings/BitMaskChecks.h"

namespace {

constexpr int kMaxPreset = 255;
constexpr uint16_t kDefaultHoldSec = 10;

} // namespace

AlarmInputPage::AlarmInputPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::AlarmInput, parent) {
    const DeviceProfile& profile = DeviceProfile::current();
    const int inputs = profile.alarmInputNum > 0 ? profile.alarmInputNum : 1;
    for (int i = 0; i < inputs; ++i)
        m_slots.push_back(blocks().declare<AlarmInputBlock>(uint8_t(i)));

    m_input = new VySpinBox(this);
    m_input->setRange(1, inputs);
    addRow(TextId::Settings::AlarmInput, m_input);
    VyObject::connect(m_input, &m_input->valueChanged, this, VY_SLOT(AlarmInputPage, inputChosen));
    auto check = [&](uint32_t textId) {
        auto* b = new VyCheckBox(this);
        addRow(textId, b);
        watch(b, &b->toggled);
        return b;
    };
    m_enabled = check(TextId::Settings::Enable);
    m_normallyClosed = check(TextId::Settings::NormallyClosed);
    m_buzzer = check(TextId::Settings::Buzzer);
    m_popup = check(TextId::Settings::PopUp);
    m_email = check(TextId::Settings::Email);
    m_record = new BitMaskChecks(profile.channelCount, this);
    addRow(TextId::Settings::RecordChannels, m_record);
    watch(m_record, &m_record->toggled);
    if (profile.alarmOutputNum > 0) {
        m_outputs =
            new BitMaskChecks(profile.alarmOutputNum > 8 ? 8 : profile.alarmOutputNum, this);
        addRow(TextId::Settings::AlarmOutput, m_outputs);
        watch(m_outputs, &m_outputs->toggled);
    }
    m_preset = new VySpinBox(this);
    m_preset->setRange(0, kMaxPreset);
    addRow(TextId::Settings::PtzPreset, m_preset);
    watch(m_preset, &m_preset->valueChanged);
    m_hold = new VySpinBox(this);
    m_hold->setRange(0, AlarmInputBlock::kMaxHoldSec);
    addRow(TextId::Settings::HoldTime, m_hold);
    watch(m_hold, &m_hold->valueChanged);
}

void AlarmInputPage::showValues() {
    m_shown = clampForDisplay(m_input->value() - 1, 0, int(m_slots.size()) - 1, "alarm input");
    const auto& b = blocks().editAs<AlarmInputBlock>(m_slots[size_t(m_shown)]);
    m_enabled->setChecked(b.enabled != 0);
    m_normallyClosed->setChecked(b.normallyClosed != 0);
    m_buzzer->setChecked(b.buzzer != 0);
    m_popup->setChecked(b.popup != 0);
    m_email->setChecked(b.email != 0);
    m_record->setMask(b.recordChannels);
    if (m_outputs != nullptr)
        m_outputs->setMask(b.alarmOutputs);
    showSpin(m_preset, b.ptzPreset);
    showSpin(m_hold, clampForDisplay(b.holdSec, 0, AlarmInputBlock::kMaxHoldSec, "hold time"));
}

void AlarmInputPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<AlarmInputBlock>(m_slots[size_t(m_shown)]);
    const auto& saved = blocks().savedAs<AlarmInputBlock>(m_slots[size_t(m_shown)]);
    auto flag = [](VyCheckBox* box) { return uint8_t(box->isChecked() ? 1 : 0); };
    b.enabled = flag(m_enabled);
    b.normallyClosed = flag(m_normallyClosed);
    b.buzzer = flag(m_buzzer);
    b.popup = flag(m_popup);
    b.email = flag(m_email);
    // Bits of channels or outputs this model does not have stay as App has them.
    const uint64_t channelBits =
        m_record->count() >= 64 ? ~uint64_t(0) : (uint64_t(1) << m_record->count()) - 1;
    b.recordChannels = (saved.recordChannels & ~channelBits) | m_record->mask();
    if (m_outputs != nullptr) {
        const uint8_t outputBits = uint8_t((1u << m_outputs->count()) - 1);
        b.alarmOutputs = uint8_t((saved.alarmOutputs & ~outputBits) | m_outputs->mask());
    }
    b.ptzPreset = uint8_t(m_preset->value());
    b.holdSec =
        uint16_t(fromControl(saved.holdSec, 0, AlarmInputBlock::kMaxHoldSec, m_hold->value()));
}

void AlarmInputPage::beforeWrite() {
    for (size_t i = 0; i < m_slots.size(); ++i)
        if (blocks().isModified(m_slots[i]))
            blocks().editAs<AlarmInputBlock>(m_slots[i]).input = uint8_t(i);
}

void AlarmInputPage::inputChosen() {
    if (!isOpened())
        return;
    collectValues();
    showValues();
}

void AlarmInputPage::restoreDefaults() {
    if (!isOpened())
        return;
    for (int slot : m_slots) {
        auto& b = blocks().editAs<AlarmInputBlock>(slot);
        b.enabled = 0;
        b.normallyClosed = 0;
        b.buzzer = 1;
        b.popup = 1;
        b.email = 0;
        b.ptzPreset = 0;
        b.alarmOutputs = 0;
        b.recordChannels = 1;
        b.holdSec = kDefaultHoldSec;
    }
    showValues();
    markEdited();
}
