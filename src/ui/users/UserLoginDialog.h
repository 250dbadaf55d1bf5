#pragma once
// The login: a user chosen from App's list and a password typed in a line edit (with the
// on-screen keyboard it opens, or the remote's digits), or, after the pattern button, an
// unlock pattern drawn on a grid of dots. App checks the password; a wrong one
// says how many tries are left, a locked user for how long. The password is cleared from
// the line edit as soon as it went out, whatever the answer.
//
//     UserLoginDialog::install();   // protected actions ask through it from now on
#include "model/UserAccess.h"
#include "toolkit/widgets/VyDialog.h"

#include <cstdint>

class PatternWidget;
class VyComboBox;
class VyLineEdit;
class VyPushButton;

class UserLoginDialog : public VyDialog {
    VY_OBJECT(UserLoginDialog, VyDialog)
public:
    static constexpr const char* kStyleFile = "style/userlogindialog.ini";
    static constexpr int kDesignWidth = 760; // pixels at 1920x1080
    static constexpr int kDesignHeight = 330;
    static constexpr int kPatternDesignHeight = 560; // with the dots instead of the password

    // `unlock`: the title says that the screen is locked.
    explicit UserLoginDialog(UserAccess* access, bool unlock = false);
    ~UserLoginDialog() override;

    // Makes the dialog the login prompt of the user access model.
    static void install();

    // Sends the login; accepts on success, else shows why and stays open.
    void tryLogin();
    // Between the password and the pattern.
    void switchMethod();
    bool patternMode() const { return m_patternMode; }
    PatternWidget* patternWidget() const { return m_pattern; }

    VyComboBox* userBox() const { return m_user; }
    VyLineEdit* passwordEdit() const { return m_password; }
    // The text shown under the fields (empty while there is nothing to say).
    VyString message() const;

protected:
    void retranslate() override;
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void showEvent(VyShowEvent* e) override;

private:
    VyRect rowLabelRect(int row) const;
    void tryPattern();
    void showAnswer(const UserAccess::LoginResult& result);

    UserAccess* m_access;
    bool m_unlock;
    VyComboBox* m_user;       // child
    VyLineEdit* m_password;   // child
    VyPushButton* m_ok;       // child
    VyPushButton* m_cancel;   // child
    VyPushButton* m_method;   // child
    PatternWidget* m_pattern; // child
    bool m_patternMode = false;
    UserAccess::LoginResult m_last;
    bool m_tried = false;
    vyargb m_labelColour = 0xFFC8CCD2;
    vyargb m_errorColour = 0xFFE64646;
};
