#pragma once
// The users page of the system settings: App's users in a list, the account dialogs (add,
// delete, password, unlock pattern) and the rights of the user chosen: a box per function
// and, for live view and playback, a box per channel. Each change goes to App at once
// (the accounts are App's, not a parameter block), so the window's Apply has nothing to
// send here. Only the administrator (or anybody, while App asks for no login) manages the
// accounts; another user may change their own password and pattern. The administrator
// keeps every right and cannot be deleted: those controls are greyed while it is chosen.
#include "model/UserAccess.h"
#include "ui/settings/SettingsPage.h"

#include <cstdint>
#include <functional>
#include <vector>

class BitMaskChecks;
class VyCheckBox;
class VyDialog;
class VyLabel;
class VyListWidget;
class VyPushButton;

class UsersPage : public SettingsPage {
    VY_OBJECT(UsersPage, SettingsPage)
public:
    // The functions a box stands for, in the order shown.
    static const std::vector<uint32_t>& functionBits();

    explicit UsersPage(VyWidget* parent = nullptr);

    VyListWidget* userList() const { return m_list; }
    VyCheckBox* functionBox(int index) const { return m_functions[size_t(index)]; }
    BitMaskChecks* liveChannels() const { return m_live; }
    BitMaskChecks* playbackChannels() const { return m_playback; }
    VyPushButton* deleteButton() const { return m_delete; }
    VyPushButton* saveRightsButton() const { return m_saveRights; }
    // The user chosen in the list, or null.
    const UserAccess::User* chosenUser() const;
    // The rights the boxes show.
    UserRights shownRights() const;
    // The last answer shown under the rights (empty while there is nothing to say).
    VyString message() const;

    // The buttons' actions. Each asks through a dialog (tests answer it by a hook); delete
    // asks for a confirmation first.
    void addUser();
    void deleteUser();
    void changePassword();
    void setPattern();
    void clearPattern();
    void saveRights();
    // Runs a dialog modally and answers whether it was accepted; tests replace it.
    using DialogRunner = std::function<bool(VyDialog&)>;
    void setDialogRunner(DialogRunner runner) { m_runDialog = std::move(runner); }

protected:
    void opened() override;
    void showValues() override;
    void collectValues() override {}
    void resizeEvent(VyResizeEvent* e) override;
    void paintEvent(VyPaintEvent* e) override;

private:
    void fillList();
    void userChosen();
    void runAccountDialog(int mode);
    void showOutcome(const UserAccess::EditResult& result);
    bool run(VyDialog& dialog);

    UserAccess* m_access;
    VyListWidget* m_list;                 // child
    VyPushButton* m_add;                  // child
    VyPushButton* m_delete;               // child
    VyPushButton* m_password;             // child
    VyPushButton* m_pattern;              // child
    VyPushButton* m_clearPattern;         // child
    std::vector<VyCheckBox*> m_functions; // children, by functionBits()
    VyLabel* m_liveLabel;                 // child
    BitMaskChecks* m_live;                // child
    VyLabel* m_playbackLabel;             // child
    BitMaskChecks* m_playback;            // child
    VyPushButton* m_saveRights;           // child
    DialogRunner m_runDialog;
    uint32_t m_messageId = 0;
    int m_lockSeconds = 0;
    vyargb m_errorColour = 0xFFE64646;
};
