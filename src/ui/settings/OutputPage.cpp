#include "ui/settings/OutputPage.h"

#include "model/DeviceProfile.h"
#include "model/UiManager.h"
#include "protocol/OutputSettingsBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/settings/BitMaskChecks.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr int kDevices = 3; // OutputSettingsBlock::outputDevice
constexpr const char* kDeviceNames[kDevices] = {"HDMI + VGA", "HDMI", "VGA"};
constexpr const char* kStandardNames[2] = {"PAL", "NTSC"};
constexpr int kMaxTransparency = 255;
constexpr uint32_t kDefaultSpotDwellSec = 5;

// A u32 of the block as the controls' int; anything that large is out of range anyway.
int asInt(uint32_t value) {
    return int(std::min<uint32_t>(value, uint32_t(INT32_MAX)));
}

} // namespace

OutputPage::OutputPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::Output, parent) {
    m_slot = blocks().declare<OutputSettingsBlock>();
    m_device = new VyComboBox(this);
    for (int d = 0; d < kDevices; ++d)
        m_device->addItem(VyString(kDeviceNames[d]), d);
    addRow(TextId::Settings::OutputDevice, m_device);
    watch(m_device, &m_device->currentIndexChanged);
    m_resolution = new VyComboBox(this);
    for (int r = OutputSettingsBlock::R1080p; r <= OutputSettingsBlock::R600p; ++r)
        m_resolution->addItem(UiManager::outputResolutionName(r), r);
    addRow(TextId::Settings::Resolution, m_resolution);
    watch(m_resolution, &m_resolution->currentIndexChanged);
    m_transparency = new VySpinBox(this);
    m_transparency->setRange(0, kMaxTransparency);
    m_transparency->setSingleStep(16);
    addRow(TextId::Settings::Transparency, m_transparency);
    watch(m_transparency, &m_transparency->valueChanged);
    m_sequence = new VySpinBox(this);
    m_sequence->setRange(0, int(OutputSettingsBlock::kMaxDwellSec)); // 0: no sequence
    addRow(TextId::Settings::SequenceDwell, m_sequence);
    watch(m_sequence, &m_sequence->valueChanged);
    m_spot = new VyCheckBox(this);
    addRow(TextId::Settings::SpotOutput, m_spot);
    watch(m_spot, &m_spot->toggled);
    m_standard = new VyComboBox(this);
    for (int s = OutputSettingsBlock::SpotPal; s <= OutputSettingsBlock::SpotNtsc; ++s)
        m_standard->addItem(VyString(kStandardNames[s]), s);
    addRow(TextId::Settings::SpotStandard, m_standard);
    watch(m_standard, &m_standard->currentIndexChanged);
    m_spotDwell = new VySpinBox(this);
    m_spotDwell->setRange(int(OutputSettingsBlock::kMinDwellSec),
                          int(OutputSettingsBlock::kMaxDwellSec));
    addRow(TextId::Settings::SpotDwell, m_spotDwell);
    watch(m_spotDwell, &m_spotDwell->valueChanged);
    const int channels =
        std::clamp(DeviceProfile::current().channelCount, 1, BitMaskChecks::kMaxBits);
    m_spotChannels = new BitMaskChecks(channels, this);
    addRow(TextId::Settings::SpotChannels, m_spotChannels);
    watch(m_spotChannels, &m_spotChannels->toggled);
}

void OutputPage::showValues() {
    const auto& b = blocks().editAs<OutputSettingsBlock>(m_slot);
    m_device->setCurrentIndex(clampForDisplay(b.outputDevice, 0, kDevices - 1, "output device"));
    m_resolution->setCurrentIndex(clampForDisplay(b.resolution, OutputSettingsBlock::R1080p,
                                                  OutputSettingsBlock::R600p, "resolution"));
    showSpin(m_transparency, b.transparency);
    showSpin(m_sequence, clampForDisplay(asInt(b.sequenceDwellSec), 0,
                                         int(OutputSettingsBlock::kMaxDwellSec), "sequence dwell"));
    m_spot->setChecked(b.spotEnabled != 0);
    m_standard->setCurrentIndex(clampForDisplay(b.spotStandard, OutputSettingsBlock::SpotPal,
                                                OutputSettingsBlock::SpotNtsc, "spot format"));
    showSpin(m_spotDwell,
             clampForDisplay(asInt(b.spotDwellSec), int(OutputSettingsBlock::kMinDwellSec),
                             int(OutputSettingsBlock::kMaxDwellSec), "spot dwell"));
    m_spotChannels->setMask(b.spotChannels);
}

void OutputPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<OutputSettingsBlock>(m_slot);
    const auto& saved = blocks().savedAs<OutputSettingsBlock>(m_slot);
    b.outputDevice =
        uint8_t(fromControl(saved.outputDevice, 0, kDevices - 1, m_device->currentIndex()));
    b.resolution = uint8_t(fromControl(saved.resolution, OutputSettingsBlock::R1080p,
                                       OutputSettingsBlock::R600p, m_resolution->currentIndex()));
    b.transparency = uint8_t(m_transparency->value());
    b.sequenceDwellSec =
        uint32_t(fromControl(asInt(saved.sequenceDwellSec), 0,
                             int(OutputSettingsBlock::kMaxDwellSec), m_sequence->value()));
    b.spotEnabled = m_spot->isChecked() ? 1 : 0;
    b.spotStandard =
        uint8_t(fromControl(saved.spotStandard, OutputSettingsBlock::SpotPal,
                            OutputSettingsBlock::SpotNtsc, m_standard->currentIndex()));
    b.spotDwellSec =
        uint32_t(fromControl(asInt(saved.spotDwellSec), int(OutputSettingsBlock::kMinDwellSec),
                             int(OutputSettingsBlock::kMaxDwellSec), m_spotDwell->value()));
    // Channels beyond the boxes keep what App has.
    const int n = m_spotChannels->count();
    const uint64_t shown = n >= 64 ? ~uint64_t(0) : (uint64_t(1) << n) - 1;
    b.spotChannels = (saved.spotChannels & ~shown) | m_spotChannels->mask();
}

uint32_t OutputPage::invalidField() {
    const int dwell = m_sequence->value();
    if (dwell != 0 && dwell < int(OutputSettingsBlock::kMinDwellSec))
        return TextId::Settings::SequenceDwell;
    return 0;
}

void OutputPage::beforeWrite() {
    const auto& b = blocks().editAs<OutputSettingsBlock>(m_slot);
    m_resolutionChanged = b.resolution != blocks().savedAs<OutputSettingsBlock>(m_slot).resolution;
}

void OutputPage::written(int) {
    if (!m_resolutionChanged)
        return;
    m_resolutionChanged = false;
    UiManager* ui = UiManager::instance();
    if (ui == nullptr)
        return;
    VY_GUI_LOG(
        "output resolution changed to %s\n",
        UiManager::outputResolutionName(blocks().savedAs<OutputSettingsBlock>(m_slot).resolution)
            .c_str());
    // The same keep-or-revert question as at start-up; it waits in a nested loop.
    ui->checkOutputResolution();
}

void OutputPage::restoreDefaults() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<OutputSettingsBlock>(m_slot);
    b.transparency = 0;
    b.sequenceDwellSec = 0;
    b.spotEnabled = 0;
    b.spotStandard = OutputSettingsBlock::SpotPal;
    b.spotDwellSec = kDefaultSpotDwellSec;
    showValues();
    markEdited();
}
