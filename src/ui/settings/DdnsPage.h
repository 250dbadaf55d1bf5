#pragma once
// Dynamic DNS: on or off, the service (the built-in one or a server of the user's), the
// host name to keep registered with its account, and App's status of the registration.
// Holds block 54.
#include "ui/settings/SettingsPage.h"

class VyCheckBox;
class VyComboBox;
class VyLabel;
class VyLineEdit;

class DdnsPage : public SettingsPage {
    VY_OBJECT(DdnsPage, SettingsPage)
public:
    explicit DdnsPage(VyWidget* parent = nullptr);

    VyCheckBox* enabledBox() const { return m_enabled; }
    VyComboBox* providerBox() const { return m_provider; }
    VyLineEdit* serverEdit() const { return m_server; }
    VyLineEdit* hostEdit() const { return m_host; }
    VyLineEdit* userEdit() const { return m_user; }
    VyLineEdit* passwordEdit() const { return m_password; }
    VyLabel* statusLabel() const { return m_status; }

    // Off, the built-in service and no account; the status stays App's.
    void restoreDefaults() override;

protected:
    void showValues() override;
    void collectValues() override;

private:
    int m_slot;
    VyCheckBox* m_enabled;
    VyComboBox* m_provider;
    VyLineEdit* m_server;
    VyLineEdit* m_host;
    VyLineEdit* m_user;
    VyLineEdit* m_password;
    VyLabel* m_status;
};
