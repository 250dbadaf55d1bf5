#include "ui/settings/RecordParamPage.h"

#include "model/DeviceProfile.h"
#include "protocol/RecordParamBlock.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VySpinBox.h"

namespace {

constexpr uint16_t kDefaultPreRecordSec = 5;
constexpr uint16_t kDefaultPostRecordSec = 30;

} // namespace

RecordParamPage::RecordParamPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Record, parent) {
    const DeviceProfile& profile = DeviceProfile::current();
    const int channels = profile.channelCount > 0 ? profile.channelCount : 1;
    for (int ch = 0; ch < channels; ++ch)
        m_slots.push_back(blocks().declare<RecordParamBlock>(uint8_t(ch)));

    m_channel = new VySpinBox(this);
    m_channel->setRange(1, channels);
    addRow(TextId::Settings::Channel, m_channel);
    VyObject::connect(m_channel, &m_channel->valueChanged, this,
                      VY_SLOT(RecordParamPage, channelChosen));
    m_pre = new VySpinBox(this);
    m_pre->setRange(0, RecordParamBlock::kMaxPreRecordSec);
    addRow(TextId::Settings::PreRecord, m_pre);
    watch(m_pre, &m_pre->valueChanged);
    m_post = new VySpinBox(this);
    m_post->setRange(RecordParamBlock::kMinPostRecordSec, RecordParamBlock::kMaxPostRecordSec);
    m_post->setSingleStep(5);
    addRow(TextId::Settings::PostRecord, m_post);
    watch(m_post, &m_post->valueChanged);
    if (profile.audioNum > 0) {
        m_audio = new VyCheckBox(this);
        addRow(TextId::Settings::Audio, m_audio);
        watch(m_audio, &m_audio->toggled);
    }
}

void RecordParamPage::showValues() {
    m_shown = clampForDisplay(m_channel->value() - 1, 0, int(m_slots.size()) - 1, "channel");
    const auto& b = blocks().editAs<RecordParamBlock>(m_slots[size_t(m_shown)]);
    showSpin(m_pre,
             clampForDisplay(b.preRecordSec, 0, RecordParamBlock::kMaxPreRecordSec, "pre-record"));
    showSpin(m_post, clampForDisplay(b.postRecordSec, RecordParamBlock::kMinPostRecordSec,
                                     RecordParamBlock::kMaxPostRecordSec, "post-record"));
    if (m_audio != nullptr)
        m_audio->setChecked(b.audioEnabled != 0);
}

void RecordParamPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<RecordParamBlock>(m_slots[size_t(m_shown)]);
    const auto& saved = blocks().savedAs<RecordParamBlock>(m_slots[size_t(m_shown)]);
    b.preRecordSec = uint16_t(
        fromControl(saved.preRecordSec, 0, RecordParamBlock::kMaxPreRecordSec, m_pre->value()));
    b.postRecordSec = uint16_t(fromControl(saved.postRecordSec, RecordParamBlock::kMinPostRecordSec,
                                           RecordParamBlock::kMaxPostRecordSec, m_post->value()));
    if (m_audio != nullptr)
        b.audioEnabled = m_audio->isChecked() ? 1 : 0;
}

void RecordParamPage::beforeWrite() {
    for (size_t ch = 0; ch < m_slots.size(); ++ch)
        if (blocks().isModified(m_slots[ch]))
            blocks().editAs<RecordParamBlock>(m_slots[ch]).channel = uint8_t(ch);
}

void RecordParamPage::channelChosen() {
    if (!isOpened())
        return;
    collectValues();
    showValues();
}

void RecordParamPage::restoreDefaults() {
    if (!isOpened())
        return;
    for (int slot : m_slots) {
        auto& b = blocks().editAs<RecordParamBlock>(slot);
        b.preRecordSec = kDefaultPreRecordSec;
        b.postRecordSec = kDefaultPostRecordSec;
        b.recordStream = RecordParamBlock::kStreamMain;
    }
    showValues();
    markEdited();
}
