#pragma once
// The start menu's shut-down entry: shut the recorder down, restart it, or log the user out.
// Each choice is confirmed before anything happens; answering no returns to the choice.
// Shutting down and restarting are App's (MaintenanceLink); logging out is the user model's.
#include "toolkit/widgets/VyMessageBox.h"

#include <functional>

class ShutdownDialog : public VyMessageBox {
    VY_OBJECT(ShutdownDialog, VyMessageBox)
public:
    // Results of the dialog's buttons.
    enum Choice { Nothing = 0, ShutDown = 1, Restart = 2, LogOut = 3 };
    // Asked before a choice is carried out; true goes ahead.
    using Confirmation = std::function<bool(Choice)>;

    explicit ShutdownDialog(VyWidget* parent = nullptr);

    void setConfirmation(Confirmation confirm) { m_confirm = std::move(confirm); }
    // The button of a choice, null for one not offered (log out with nobody logged in).
    VyPushButton* choiceButton(Choice c) const;
    // The choice carried out, Nothing until one was.
    Choice carriedOut() const { return m_done; }

    void done(int result) override;

private:
    static bool askWithMessageBox(Choice c);
    bool carryOut(Choice c);

    Confirmation m_confirm;
    Choice m_done = Nothing;
    VyPushButton* m_buttons[4] = {};
};
