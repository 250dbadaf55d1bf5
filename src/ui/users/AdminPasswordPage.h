#pragma once
// The administrator's password as a page of its own, for the start-up wizard: the password
// in use, the new one and the new one again. It is changed through the users page's account
// request when the wizard moves on; App checks the old password and counts a wrong one
// towards the lock. Left empty, the password stays as it is. The fields are emptied as
// soon as the request went out, whatever the answer, and when the page goes.
#include "ui/settings/SettingsPage.h"

class UserAccess;
class VyLineEdit;

class AdminPasswordPage : public SettingsPage {
    VY_OBJECT(AdminPasswordPage, SettingsPage)
public:
    explicit AdminPasswordPage(VyWidget* parent = nullptr);
    ~AdminPasswordPage() override;

    VyLineEdit* oldPasswordEdit() const { return m_old; }
    VyLineEdit* newPasswordEdit() const { return m_new; }
    VyLineEdit* confirmEdit() const { return m_confirm; }
    // Why the last change was not made (empty while there is nothing to say).
    VyString message() const;

protected:
    void showValues() override {}
    void collectValues() override {}
    bool sendRequests() override;
    void paintEvent(VyPaintEvent* e) override;

private:
    VyLineEdit* addPasswordRow(uint32_t textId);
    // The administrator's account name as App lists it; empty when App names none.
    VyString adminName();
    void clearSecrets();
    bool refuse(uint32_t messageId, int lockSeconds = 0);

    UserAccess* m_access;
    VyLineEdit* m_old;     // child
    VyLineEdit* m_new;     // child
    VyLineEdit* m_confirm; // child
    uint32_t m_messageId = 0;
    int m_lockSeconds = 0;
    vyargb m_errorColour = 0xFFE64646;
};
