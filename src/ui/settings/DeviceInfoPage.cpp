#include "ui/settings/DeviceInfoPage.h"

#include "model/SystemInfo.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyLabel.h"

#include <cstring>

namespace {

// A text field of the record, never read past its end.
template <size_t N>
VyString fieldText(const char (&field)[N]) {
    return VyString(std::string(field, strnlen(field, N)));
}

} // namespace

DeviceInfoPage::DeviceInfoPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::DeviceInfo, parent) {
    auto row = [&](uint32_t textId) {
        auto* label = new VyLabel(this);
        addRow(textId, label);
        return label;
    };
    m_model = row(TextId::Settings::Model);
    m_serial = row(TextId::Settings::SerialNumber);
    m_software = row(TextId::Settings::SoftwareVersion);
    m_hardware = row(TextId::Settings::HardwareVersion);
    m_channels = row(TextId::Settings::Channel);
    m_alarms = row(TextId::Settings::AlarmInput);
    m_disks = row(TextId::Settings::Disk);
}

void DeviceInfoPage::showValues() {
    const SystemInfoRecord& r = SystemInfo::record();
    m_model->setText(fieldText(r.modelName));
    m_serial->setText(fieldText(r.serialNumber));
    m_software->setText(fieldText(r.softwareVersion));
    m_hardware->setText(fieldText(r.hardwareVersion));
    // Channels as total (analogue + network).
    m_channels->setText(VyString::number(int(r.channelCount)) + " (" +
                        VyString::number(int(r.analogChannelCount)) + " + " +
                        VyString::number(int(r.ipChannelCount)) + ")");
    m_alarms->setText(VyString::number(int(r.alarmInputCount)) + " / " +
                      VyString::number(int(r.alarmOutputCount)));
    m_disks->setText(VyString::number(int(r.diskCount)));
}
