#pragma once
// The system settings' maintenance page: the automatic restart (block 115) and the way to the
// system log, the firmware upgrade and the factory defaults, each its own window over the
// settings, and the configuration saved to or loaded from the USB stick.
#include "ui/settings/SettingsPage.h"

#include <functional>

class VyCheckBox;
class VyLabel;
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
    VyPushButton* exportButton() const { return m_export; }
    VyPushButton* importButton() const { return m_import; }
    // Asked before an import replaces every setting; true goes ahead.
    void setImportConfirmation(std::function<bool()> confirm) {
        m_confirmImport = std::move(confirm);
    }
    // Saves every setting to the USB stick, or replaces them with the stick's file; the page
    // says how it went. False when App did not do it.
    bool exportConfig() { return transferConfig(true); }
    bool importConfig();
    VyString statusText() const;

    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void openLog();
    void openUpgrade();
    void openDefaults();
    bool transferConfig(bool toStick);
    void exportClicked() { exportConfig(); }
    void importClicked() { importConfig(); }
    static bool askWithMessageBox();

    int m_slot;
    VyCheckBox* m_enabled;
    VyComboBox* m_day;
    VyTimeEdit* m_time;
    VyPushButton* m_log;
    VyPushButton* m_upgrade;
    VyPushButton* m_defaults;
    VyPushButton* m_export;
    VyPushButton* m_import;
    VyLabel* m_status;
    std::function<bool()> m_confirmImport;
};
