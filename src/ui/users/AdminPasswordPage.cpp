#include "ui/users/AdminPasswordPage.h"

#include "model/UserAccess.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "ui/UiLook.h"
#include "ui/users/UserEditDialog.h"
#include "ui/users/UserLoginDialog.h"

namespace {
constexpr int kMarginDesign = 24; // pixels at 1920x1080
constexpr int kMessageHeightDesign = 44;
} // namespace

AdminPasswordPage::AdminPasswordPage(VyWidget* parent)
    : SettingsPage(TextId::User::AdminPassword, parent)
    , m_access(UserAccess::instance()) {
    m_old = addPasswordRow(TextId::User::OldPassword);
    m_new = addPasswordRow(TextId::User::NewPassword);
    m_confirm = addPasswordRow(TextId::User::ConfirmPassword);
    const VyIniSettings ini(VyResources::path(UserLoginDialog::kStyleFile));
    m_errorColour = UiLook::colourOr(ini, "UserLoginDialog/Error/Foreground", m_errorColour);
}

AdminPasswordPage::~AdminPasswordPage() {
    clearSecrets();
}

VyLineEdit* AdminPasswordPage::addPasswordRow(uint32_t textId) {
    auto* edit = new VyLineEdit(this);
    edit->setEchoMode(VyLineEdit::Password);
    edit->setMaxLength(UserEditDialog::kFieldChars);
    addRow(textId, edit);
    watch(edit, &edit->textChanged);
    return edit;
}

void AdminPasswordPage::clearSecrets() {
    for (VyLineEdit* e : {m_old, m_new, m_confirm})
        e->setText(VyString());
}

bool AdminPasswordPage::refuse(uint32_t messageId, int lockSeconds) {
    m_messageId = messageId;
    m_lockSeconds = lockSeconds;
    update();
    return false;
}

VyString AdminPasswordPage::adminName() {
    auto find = [this] {
        for (const UserAccess::User& u : m_access->users())
            if (u.admin)
                return u.name;
        return VyString();
    };
    VyString name = find();
    if (name.isEmpty() && m_access->refreshUsers())
        name = find();
    return name;
}

bool AdminPasswordPage::sendRequests() {
    m_messageId = 0;
    if (m_old->text().isEmpty() && m_new->text().isEmpty() && m_confirm->text().isEmpty())
        return true; // the password stays
    if (m_new->text() != m_confirm->text()) {
        // Both typed again: a mismatch says nothing about which one was meant.
        m_new->setText(VyString());
        m_confirm->setText(VyString());
        return refuse(TextId::User::PasswordsDiffer);
    }
    if (m_access == nullptr) {
        VY_GUI_LOG("administrator password not changed: no user access\n");
        clearSecrets();
        return refuse(TextId::User::LoginFailed);
    }
    VyPointer<AdminPasswordPage> self(this);
    const VyString name = adminName(); // may wait for App
    if (!self)
        return false;
    if (name.isEmpty()) {
        VY_GUI_LOG("administrator password not changed: App lists no administrator\n");
        clearSecrets();
        return refuse(TextId::User::LoginFailed);
    }
    const UserAccess::EditResult result =
        m_access->changePassword(name, m_old->text(), m_new->text());
    if (!self)
        return false;
    clearSecrets();
    if (result.outcome == UserAccess::EditOutcome::Done) {
        VY_GUI_LOG("administrator password changed from the wizard\n");
        update();
        return true;
    }
    return refuse(UserEditDialog::messageOf(result), result.lockSeconds);
}

VyString AdminPasswordPage::message() const {
    return UserEditDialog::messageText(m_messageId, m_lockSeconds);
}

void AdminPasswordPage::paintEvent(VyPaintEvent* e) {
    SettingsPage::paintEvent(e);
    const VyString text = message();
    VyCanvas* c = canvas();
    if (text.isEmpty() || c == nullptr)
        return;
    const int x = UiLook::scaledX(kMarginDesign);
    c->drawText(VyRect(x, rowsBottom(), width() - 2 * x, UiLook::scaledY(kMessageHeightDesign)),
                VyCanvas::AlignLeft | VyCanvas::AlignVCenter, text,
                UiLook::instance().fontPixelSize(), m_errorColour);
}
