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
    : ChannelPage(TextId::Settings::Record, TextId::Settings::Channel,
                  RecordParamBlock::kBlockNumber, RecordParamBlock::kSize,
                  DeviceProfile::current().channelCount, parent) {
    m_pre = new VySpinBox(this);
    m_pre->setRange(0, RecordParamBlock::kMaxPreRecordSec);
    addRow(TextId::Settings::PreRecord, m_pre);
    watch(m_pre, &m_pre->valueChanged);
    m_post = new VySpinBox(this);
    m_post->setRange(RecordParamBlock::kMinPostRecordSec, RecordParamBlock::kMaxPostRecordSec);
    m_post->setSingleStep(5);
    addRow(TextId::Settings::PostRecord, m_post);
    watch(m_post, &m_post->valueChanged);
    if (DeviceProfile::current().audioNum > 0) {
        m_audio = new VyCheckBox(this);
        addRow(TextId::Settings::Audio, m_audio);
        watch(m_audio, &m_audio->toggled);
    }
}

void RecordParamPage::showItem(int index) {
    const auto& b = item<RecordParamBlock>(index);
    showSpin(m_pre,
             clampForDisplay(b.preRecordSec, 0, RecordParamBlock::kMaxPreRecordSec, "pre-record"));
    showSpin(m_post, clampForDisplay(b.postRecordSec, RecordParamBlock::kMinPostRecordSec,
                                     RecordParamBlock::kMaxPostRecordSec, "post-record"));
    if (m_audio != nullptr)
        m_audio->setChecked(b.audioEnabled != 0);
}

void RecordParamPage::collectItem(int index) {
    auto& b = item<RecordParamBlock>(index);
    const auto& saved = savedItem<RecordParamBlock>(index);
    b.preRecordSec = uint16_t(
        fromControl(saved.preRecordSec, 0, RecordParamBlock::kMaxPreRecordSec, m_pre->value()));
    b.postRecordSec = uint16_t(fromControl(saved.postRecordSec, RecordParamBlock::kMinPostRecordSec,
                                           RecordParamBlock::kMaxPostRecordSec, m_post->value()));
    if (m_audio != nullptr)
        b.audioEnabled = m_audio->isChecked() ? 1 : 0;
}

void RecordParamPage::restoreDefaults() {
    if (!isOpened())
        return;
    for (int i = 0; i < itemCount(); ++i) {
        auto& b = item<RecordParamBlock>(i);
        b.preRecordSec = kDefaultPreRecordSec;
        b.postRecordSec = kDefaultPostRecordSec;
        b.recordStream = RecordParamBlock::kStreamMain;
    }
    showValues();
    markEdited();
}
