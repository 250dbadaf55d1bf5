#pragma once
// Uploading by FTP: on or off, the server and port, the account and the remote folder.
// Offered where the model has FtpEnable. Holds block 92.
#include "ui/settings/SettingsPage.h"

class VyCheckBox;
class VyLineEdit;
class VySpinBox;

class FtpPage : public SettingsPage {
    VY_OBJECT(FtpPage, SettingsPage)
public:
    explicit FtpPage(VyWidget* parent = nullptr);
    VyCheckBox* enabledBox() const { return m_enabled; }
    VyLineEdit* serverEdit() const { return m_server; }
    VySpinBox* portBox() const { return m_port; }
    VyLineEdit* folderEdit() const { return m_folder; }

protected:
    void showValues() override;
    void collectValues() override;

private:
    int m_slot;
    VyCheckBox* m_enabled;
    VyLineEdit* m_server;
    VySpinBox* m_port;
    VyLineEdit* m_folder;
};
