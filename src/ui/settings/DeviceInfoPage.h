#pragma once
// What the recorder is: model, serial number, software and hardware versions and its
// channel, alarm and disk counts, from the system information fetched at start. Nothing
// to edit and no block to fetch.
#include "ui/settings/SettingsPage.h"

class VyLabel;

class DeviceInfoPage : public SettingsPage {
    VY_OBJECT(DeviceInfoPage, SettingsPage)
public:
    explicit DeviceInfoPage(VyWidget* parent = nullptr);
    VyLabel* modelLabel() const { return m_model; }
    VyLabel* channelsLabel() const { return m_channels; }

protected:
    void showValues() override;
    void collectValues() override {}

private:
    VyLabel* m_model;
    VyLabel* m_serial;
    VyLabel* m_software;
    VyLabel* m_hardware;
    VyLabel* m_channels;
    VyLabel* m_alarms;
    VyLabel* m_disks;
};
