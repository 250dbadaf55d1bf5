#include "ui/settings/StreamPage.h"

#include "model/DeviceProfile.h"
#include "protocol/FactorySettings.h"
#include "runtime/VyLog.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/UiLook.h"

#include <algorithm>
#include <string>

namespace {

constexpr int kMarginDesign = 24; // pixels at 1920x1080
constexpr int kButtonWidthDesign = 240;
constexpr int kButtonHeightDesign = 44;
constexpr int kBitrateStepKbps = 64;
constexpr const char* kCodecNames[StreamBlock::CodecCount] = {"H.264", "H.265"};

VyString sizeName(int index) {
    const StreamBlock::Size& s = StreamBlock::kResolutions[index];
    return VyString(std::to_string(s.width) + "\xc3\x97" + std::to_string(s.height));
}

int maxResolutionOf(const StreamBlock::Stream& s) {
    return std::min<int>(s.maxResolution, StreamBlock::kResolutionCount - 1);
}

int maxFrameRateOf(const StreamBlock::Stream& s) {
    return std::max<int>(StreamBlock::kMinFrameRate, s.maxFrameRate);
}

int maxBitrateOf(const StreamBlock::Stream& s) {
    return std::max<int>(StreamBlock::kMinBitrateKbps, s.maxBitrateKbps);
}

} // namespace

StreamPage::StreamPage(VyWidget* parent)
    : ChannelPage(TextId::Settings::Encoding, TextId::Settings::Channel, StreamBlock::kBlockNumber,
                  StreamBlock::kSize, DeviceProfile::current().channelCount, parent) {
    m_stream = new VyComboBox(this);
    m_stream->addItem(VyTranslation::tr(TextId::Settings::MainStream), 0);
    m_stream->addItem(VyTranslation::tr(TextId::Settings::SubStream), 1);
    m_stream->setCurrentIndex(0);
    addRow(TextId::Settings::Stream, m_stream);
    VyObject::connect(m_stream, &m_stream->currentIndexChanged, this,
                      VY_SLOT(StreamPage, streamChosen));
    m_resolution = new VyComboBox(this);
    addRow(TextId::Settings::Resolution, m_resolution);
    watch(m_resolution, &m_resolution->currentIndexChanged);
    m_frameRate = new VySpinBox(this);
    addRow(TextId::Settings::FrameRate, m_frameRate);
    watch(m_frameRate, &m_frameRate->valueChanged);
    m_mode = new VyComboBox(this);
    m_mode->addItem(VyTranslation::tr(TextId::Settings::BitrateConstant), StreamBlock::Constant);
    m_mode->addItem(VyTranslation::tr(TextId::Settings::BitrateVariable), StreamBlock::Variable);
    addRow(TextId::Settings::BitrateMode, m_mode);
    watch(m_mode, &m_mode->currentIndexChanged);
    m_bitrate = new VySpinBox(this);
    m_bitrate->setSingleStep(kBitrateStepKbps);
    addRow(TextId::Settings::Bitrate, m_bitrate);
    watch(m_bitrate, &m_bitrate->valueChanged);
    m_quality = new VySpinBox(this);
    m_quality->setRange(StreamBlock::kMinQuality, StreamBlock::kMaxQuality);
    addRow(TextId::Settings::Quality, m_quality);
    watch(m_quality, &m_quality->valueChanged);
    m_iFrame = new VySpinBox(this);
    m_iFrame->setRange(StreamBlock::kMinIFrameInterval, StreamBlock::kMaxIFrameInterval);
    addRow(TextId::Settings::IFrameInterval, m_iFrame);
    watch(m_iFrame, &m_iFrame->valueChanged);
    m_codec = new VyComboBox(this);
    for (int c = 0; c < StreamBlock::CodecCount; ++c)
        m_codec->addItem(VyString(kCodecNames[c]), c);
    addRow(TextId::Settings::Codec, m_codec);
    watch(m_codec, &m_codec->currentIndexChanged);
    if (DeviceProfile::current().audioNum > 0) {
        m_audio = new VyCheckBox(this);
        addRow(TextId::Settings::Audio, m_audio);
        watch(m_audio, &m_audio->toggled);
    }
    m_copy = new VyPushButton(VyTranslation::tr(TextId::Settings::Copy), this);
    m_copy->show();
    VyObject::connect(m_copy, &m_copy->clicked, this, VY_SLOT(StreamPage, copyToAllChannels));
}

void StreamPage::showStream(const StreamBlock::Stream& s) {
    // The choices follow this channel's encoder: a larger picture, a higher rate than it
    // can do is not offered at all.
    const int largest = maxResolutionOf(s);
    if (m_resolution->count() != StreamBlock::kResolutionCount - largest ||
        m_resolution->itemData(0) != largest) {
        m_resolution->clear();
        for (int r = largest; r < StreamBlock::kResolutionCount; ++r)
            m_resolution->addItem(sizeName(r), r);
    }
    const int resolution =
        clampForDisplay(s.resolution, largest, StreamBlock::kResolutionCount - 1, "resolution");
    m_resolution->setCurrentIndex(m_resolution->findData(resolution));
    m_frameRate->setRange(StreamBlock::kMinFrameRate, maxFrameRateOf(s));
    showSpin(m_frameRate, clampForDisplay(s.frameRate, StreamBlock::kMinFrameRate,
                                          maxFrameRateOf(s), "frame rate"));
    m_mode->setCurrentIndex(clampForDisplay(s.bitrateMode, StreamBlock::Constant,
                                            StreamBlock::Variable, "bit rate mode"));
    m_bitrate->setRange(StreamBlock::kMinBitrateKbps, maxBitrateOf(s));
    showSpin(m_bitrate, clampForDisplay(s.bitrateKbps, StreamBlock::kMinBitrateKbps,
                                        maxBitrateOf(s), "bit rate"));
    showSpin(m_quality, clampForDisplay(s.quality, StreamBlock::kMinQuality,
                                        StreamBlock::kMaxQuality, "quality"));
    showSpin(m_iFrame, clampForDisplay(s.iFrameInterval, StreamBlock::kMinIFrameInterval,
                                       StreamBlock::kMaxIFrameInterval, "I-frame interval"));
    m_codec->setCurrentIndex(clampForDisplay(s.codec, 0, StreamBlock::CodecCount - 1, "codec"));
    if (m_audio != nullptr)
        m_audio->setChecked(s.audio != 0);
}

void StreamPage::showItem(int index) {
    showStream(item<StreamBlock>(index).streams[m_shownStream]);
}

void StreamPage::collectItem(int index) {
    StreamBlock::Stream& s = item<StreamBlock>(index).streams[m_shownStream];
    const StreamBlock::Stream& saved = savedItem<StreamBlock>(index).streams[m_shownStream];
    if (m_resolution->currentIndex() >= 0)
        s.resolution = uint8_t(fromControl(saved.resolution, maxResolutionOf(saved),
                                           StreamBlock::kResolutionCount - 1,
                                           int(m_resolution->currentData())));
    s.frameRate = uint8_t(fromControl(saved.frameRate, StreamBlock::kMinFrameRate,
                                      maxFrameRateOf(saved), m_frameRate->value()));
    s.bitrateMode = uint8_t(fromControl(saved.bitrateMode, StreamBlock::Constant,
                                        StreamBlock::Variable, m_mode->currentIndex()));
    s.bitrateKbps = uint16_t(fromControl(saved.bitrateKbps, StreamBlock::kMinBitrateKbps,
                                         maxBitrateOf(saved), m_bitrate->value()));
    s.quality = uint8_t(fromControl(saved.quality, StreamBlock::kMinQuality,
                                    StreamBlock::kMaxQuality, m_quality->value()));
    s.iFrameInterval = uint16_t(fromControl(saved.iFrameInterval, StreamBlock::kMinIFrameInterval,
                                            StreamBlock::kMaxIFrameInterval, m_iFrame->value()));
    s.codec =
        uint8_t(fromControl(saved.codec, 0, StreamBlock::CodecCount - 1, m_codec->currentIndex()));
    if (m_audio != nullptr)
        s.audio = m_audio->isChecked() ? 1 : 0;
}

void StreamPage::streamChosen() {
    const int chosen = std::max(0, m_stream->currentIndex());
    if (!isOpened()) {
        m_shownStream = chosen;
        return;
    }
    collectItem(shownItem());
    m_shownStream = chosen;
    showItem(shownItem());
}

void StreamPage::copyStream(const StreamBlock::Stream& from, StreamBlock::Stream* to) {
    to->resolution = uint8_t(
        std::clamp<int>(from.resolution, maxResolutionOf(*to), StreamBlock::kResolutionCount - 1));
    to->frameRate =
        uint8_t(std::clamp<int>(from.frameRate, StreamBlock::kMinFrameRate, maxFrameRateOf(*to)));
    to->bitrateMode = from.bitrateMode;
    to->quality = from.quality;
    to->bitrateKbps = uint16_t(
        std::clamp<int>(from.bitrateKbps, StreamBlock::kMinBitrateKbps, maxBitrateOf(*to)));
    to->iFrameInterval = from.iFrameInterval;
    to->codec = from.codec;
    to->audio = from.audio;
}

void StreamPage::copyToAllChannels() {
    if (!isOpened())
        return;
    collectItem(shownItem());
    const StreamBlock& from = item<StreamBlock>(shownItem());
    for (int i = 0; i < itemCount(); ++i) {
        if (i == shownItem())
            continue;
        for (int s = 0; s < StreamBlock::kStreams; ++s)
            copyStream(from.streams[s], &item<StreamBlock>(i).streams[s]);
    }
    VY_GUI_LOG("encoding of channel %d copied to every channel\n", shownItem() + 1);
    markEdited();
}

void StreamPage::restoreDefaults() {
    if (!isOpened())
        return;
    for (int i = 0; i < itemCount(); ++i)
        FactorySettings::setEncoding(&item<StreamBlock>(i));
    showValues();
    markEdited();
}

void StreamPage::resizeEvent(VyResizeEvent* e) {
    ChannelPage::resizeEvent(e);
    m_copy->setGeometry(UiLook::scaledX(kMarginDesign), rowsBottom(),
                        UiLook::scaledX(kButtonWidthDesign), UiLook::scaledY(kButtonHeightDesign));
}
