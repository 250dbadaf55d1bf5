#pragma once
// The system settings' maintenance page: the automatic restart (block 115) and the way to the
// system log, the firmware upgrade and the factory defaults, each its own window over the
// settings.
#include "ui/settings/SettingsPage.h"

class VyCheckBox;
class VyComboBox;
class VyPushButton;
class VyTimeEdit;

class MaintenancePage : public SettingsPage {
    VY_OBJECT(MaintenancePage, SettingsPage)
public:
    explicit MaintenancePage(VyWidget* parent = nullptr);

    VyCheckBox* enabledBox() const { return m_enabled; }
    VyComboBox* dayBox() const { return m_day; }
    VyTimeEdit* timeEdit() const { return m_time; }
    VyPushButton* logButton() const { return m_log; }
    VyPushButton* upgradeButton() const { return m_upgrade; }
    VyPushButton* defaultsButton() const { return m_defaults; }

    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void openLog();
    void openUpgrade();
    void openDefaults();

    int m_slot;
    VyCheckBox* m_enabled;
    VyComboBox* m_day;
    VyTimeEdit* m_time;
    VyPushButton* m_log;
    VyPushButton* m_upgrade;
    VyPushButton* m_defaults;
};
