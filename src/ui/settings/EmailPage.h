#pragma once
// Sending e-mail: the SMTP server and account, sender and receiver, and a test mail sent
// with the settings on screen (offered where the model has EamilTestEnable); the outcome
// App reports is shown beside the button. Holds block 53.
#include "ui/settings/SettingsPage.h"

class VyCheckBox;
class VyLabel;
class VyLineEdit;
class VyPushButton;
class VySpinBox;

class EmailPage : public SettingsPage {
    VY_OBJECT(EmailPage, SettingsPage)
public:
    explicit EmailPage(VyWidget* parent = nullptr);

    VyCheckBox* enabledBox() const { return m_enabled; }
    VyCheckBox* sslBox() const { return m_ssl; }
    VyLineEdit* serverEdit() const { return m_server; }
    VySpinBox* portBox() const { return m_port; }
    VyLineEdit* senderEdit() const { return m_sender; }
    VyLineEdit* receiverEdit() const { return m_receiver; }
    VyLineEdit* userEdit() const { return m_user; }
    VyLineEdit* passwordEdit() const { return m_password; }
    // Null where the model offers no test.
    VyPushButton* testButton() const { return m_test; }
    VyLabel* testResultLabel() const { return m_result; }

    // Sends the settings on screen with the test request (and so applies them).
    void sendTest();
    uint32_t invalidField() override;

protected:
    void showValues() override;
    void collectValues() override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    int m_slot;
    VyCheckBox* m_enabled;
    VyCheckBox* m_ssl;
    VyLineEdit* m_server;
    VySpinBox* m_port;
    VyLineEdit* m_sender;
    VyLineEdit* m_receiver;
    VyLineEdit* m_user;
    VyLineEdit* m_password;
    VyPushButton* m_test = nullptr;
    VyLabel* m_result;
};
