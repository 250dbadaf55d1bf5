#pragma once
// The users page's account dialogs: a new user (name, password, confirmation), a password
// change (old, new, confirmation), an unlock pattern set (the user's password and the dots
// drawn) or cleared (the password). Fields take the on-screen keyboard like any line edit.
// App checks every password; an answer other than done is shown under the fields and the
// dialog stays open, a locked user with the seconds left. Password fields are emptied as
// soon as the request went out, whatever the answer.
#include "model/UserAccess.h"
#include "toolkit/widgets/VyDialog.h"

#include <cstdint>
#include <vector>

class PatternWidget;
class VyLineEdit;
class VyPushButton;

class UserEditDialog : public VyDialog {
    VY_OBJECT(UserEditDialog, VyDialog)
public:
    enum Mode { AddUser, ChangePassword, SetPattern, ClearPattern };
    static constexpr int kDesignWidth = 760; // pixels at 1920x1080
    // Characters a name or password field takes: App's fields hold a few more bytes.
    static constexpr int kFieldChars = 16;

    // `userName`: the user changed (unused when adding).
    UserEditDialog(UserAccess* access, Mode mode, const VyString& userName = VyString());
    ~UserEditDialog() override;

    Mode mode() const { return m_mode; }
    // Checks the fields, sends the change; accepts when done, else shows why.
    void submit();

    // Null when the mode has no such field.
    VyLineEdit* nameEdit() const { return m_name; }
    VyLineEdit* passwordEdit() const { return m_password; }
    VyLineEdit* newPasswordEdit() const { return m_newPassword; }
    VyLineEdit* confirmEdit() const { return m_confirm; }
    PatternWidget* patternWidget() const { return m_pattern; }
    // The text shown under the fields (empty while there is nothing to say).
    VyString message() const;
    // The text ID that tells an answer (Locked takes the seconds as %1).
    static uint32_t messageOf(const UserAccess::EditResult& result);
    // That text, with the seconds when it is Locked; empty for 0.
    static VyString messageText(uint32_t textId, int lockSeconds);
    // The rights a new user starts with: live view and playback of every channel.
    static UserRights newUserRights();

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void showEvent(VyShowEvent* e) override;
    void retranslate() override;

private:
    struct Row {
        uint32_t textId;
        VyWidget* field;
    };
    VyLineEdit* addPasswordRow(uint32_t textId);
    VyRect rowLabelRect(int row) const;
    int designHeight() const;
    void showAnswer(const UserAccess::EditResult& result);
    void clearSecrets();

    UserAccess* m_access;
    Mode m_mode;
    VyString m_userName;
    VyLineEdit* m_name = nullptr;        // child
    VyLineEdit* m_password = nullptr;    // child: the old or the only password
    VyLineEdit* m_newPassword = nullptr; // child
    VyLineEdit* m_confirm = nullptr;     // child
    PatternWidget* m_pattern = nullptr;  // child
    VyPushButton* m_ok;                  // child
    VyPushButton* m_cancel;              // child
    std::vector<Row> m_rows;
    uint32_t m_messageId = 0;
    int m_lockSeconds = 0;
    vyargb m_labelColour = 0xFFC8CCD2;
    vyargb m_errorColour = 0xFFE64646;
};
