#include "ui/maintenance/ShutdownDialog.h"

#include "model/MaintenanceLink.h"
#include "model/UserAccess.h"
#include "protocol/MaintenancePower.h"
#include "runtime/VyLog.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"

namespace {
constexpr int kDesignWidth = 720; // pixels at 1920x1080: four buttons side by side
constexpr int kDesignHeight = 330;
} // namespace

ShutdownDialog::ShutdownDialog(VyWidget* parent)
    : VyMessageBox(Question, VyString(), NoButton, parent)
    , m_confirm(&ShutdownDialog::askWithMessageBox) {
    setTitleId(TextId::LiveView::MenuShutdown);
    setTextId(TextId::Maintenance::PowerQuestion);
    m_buttons[ShutDown] = addButton(TextId::Maintenance::ShutDown, ShutDown);
    m_buttons[Restart] = addButton(TextId::Maintenance::Restart, Restart);
    const UserAccess* users = UserAccess::instance();
    if (users != nullptr && users->isLoggedIn())
        m_buttons[LogOut] = addButton(TextId::Maintenance::LogOut, LogOut);
    m_buttons[Nothing] = addButton(TextId::Common::Cancel, Nothing);
    setEscapeResult(Nothing);
    place(kDesignWidth, kDesignHeight);
}

VyPushButton* ShutdownDialog::choiceButton(Choice c) const {
    return c >= Nothing && c <= LogOut ? m_buttons[c] : nullptr;
}

bool ShutdownDialog::askWithMessageBox(Choice c) {
    VyMessageBox box(Warning, VyString(), Yes | No);
    box.setTextId(c == ShutDown  ? TextId::Maintenance::ConfirmShutDown
                  : c == Restart ? TextId::Maintenance::ConfirmRestart
                                 : TextId::Maintenance::ConfirmLogOut);
    return box.exec() == Yes;
}

bool ShutdownDialog::carryOut(Choice c) {
    UserAccess* users = UserAccess::instance();
    if ((c == ShutDown || c == Restart) && users != nullptr &&
        !users->ensure(UserRights::kShutdown))
        return false;
    switch (c) {
    case ShutDown:
        return MaintenanceLink::requestPower(MaintenancePower::kShutDown);
    case Restart:
        return MaintenanceLink::requestPower(MaintenancePower::kRestart);
    case LogOut:
        if (users == nullptr)
            return false;
        users->logout();
        return true;
    case Nothing:
        break;
    }
    return false;
}

void ShutdownDialog::done(int result) {
    if (isFinished())
        return;
    const auto choice = Choice(result);
    if (choice == ShutDown || choice == Restart || choice == LogOut) {
        VyPointer<ShutdownDialog> self(this);
        const bool confirmed = m_confirm && m_confirm(choice); // may run the event loop
        if (!self || isFinished())
            return;
        if (!confirmed) {
            VY_GUI_LOG("power choice %d not confirmed\n", result);
            return; // back to the choice
        }
        if (carryOut(choice))
            m_done = choice;
    }
    VyMessageBox::done(result);
}
