#include "ui/users/UserEditDialog.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/users/PatternWidget.h"
#include "ui/users/UserLoginDialog.h"

#include <algorithm>

namespace {
// Design metrics, pixels at 1920x1080.
constexpr int kMargin = 24;
constexpr int kRowHeight = 40;
constexpr int kLabelWidth = 300;
constexpr int kButtonWidth = 140;
constexpr int kButtonGap = 20;
constexpr int kPatternSide = 260;
constexpr int kTitleAndButtons = 200; // title bar, message row and button row

uint32_t titleOf(UserEditDialog::Mode mode) {
    switch (mode) {
    case UserEditDialog::AddUser:
        return TextId::User::AddUser;
    case UserEditDialog::ChangePassword:
        return TextId::User::ChangePassword;
    case UserEditDialog::SetPattern:
        return TextId::User::SetPattern;
    case UserEditDialog::ClearPattern:
        break;
    }
    return TextId::User::ClearPattern;
}

} // namespace

UserEditDialog::UserEditDialog(UserAccess* access, Mode mode, const VyString& userName)
    : m_access(access)
    , m_mode(mode)
    , m_userName(userName)
    , m_ok(new VyPushButton(VyTranslation::tr(TextId::Common::Ok), this))
    , m_cancel(new VyPushButton(VyTranslation::tr(TextId::Common::Cancel), this)) {
    const VyIniSettings ini(VyResources::path(UserLoginDialog::kStyleFile));
    m_labelColour = UiLook::colourOr(ini, "UserLoginDialog/Label/Foreground", m_labelColour);
    m_errorColour = UiLook::colourOr(ini, "UserLoginDialog/Error/Foreground", m_errorColour);
    setTitleId(titleOf(mode));
    switch (mode) {
    case AddUser:
        m_name = new VyLineEdit(this);
        m_name->setMaxLength(kFieldChars);
        m_rows.push_back({TextId::User::UserName, m_name});
        m_newPassword = addPasswordRow(TextId::User::Password);
        m_confirm = addPasswordRow(TextId::User::ConfirmPassword);
        break;
    case ChangePassword:
        m_password = addPasswordRow(TextId::User::OldPassword);
        m_newPassword = addPasswordRow(TextId::User::NewPassword);
        m_confirm = addPasswordRow(TextId::User::ConfirmPassword);
        break;
    case SetPattern:
        m_password = addPasswordRow(TextId::User::Password);
        m_pattern = new PatternWidget(this);
        break;
    case ClearPattern:
        m_password = addPasswordRow(TextId::User::Password);
        break;
    }
    for (const Row& r : m_rows)
        r.field->show();
    m_ok->show();
    m_cancel->show();
    connect(m_ok, &m_ok->clicked, this, VY_SLOT(UserEditDialog, submit));
    connect(m_cancel, &m_cancel->clicked, this, VY_SLOT(VyDialog, reject));
    place(kDesignWidth, designHeight());
}

UserEditDialog::~UserEditDialog() {
    clearSecrets();
}

VyLineEdit* UserEditDialog::addPasswordRow(uint32_t textId) {
    auto* edit = new VyLineEdit(this);
    edit->setEchoMode(VyLineEdit::Password);
    edit->setMaxLength(kFieldChars);
    m_rows.push_back({textId, edit});
    return edit;
}

int UserEditDialog::designHeight() const {
    const int rows = int(m_rows.size()) * kRowHeight * 3 / 2;
    return rows + (m_pattern != nullptr ? kPatternSide : 0) + kTitleAndButtons;
}

UserRights UserEditDialog::newUserRights() {
    UserRights r;
    r.functions = UserRights::kLiveView | UserRights::kPlayback;
    r.liveChannels = r.playbackChannels = ~uint64_t(0);
    return r;
}

void UserEditDialog::clearSecrets() {
    for (VyLineEdit* e : {m_password, m_newPassword, m_confirm})
        if (e != nullptr)
            e->setText(VyString());
    if (m_pattern != nullptr)
        m_pattern->clear();
}

void UserEditDialog::submit() {
    if (m_access == nullptr)
        return;
    m_lockSeconds = 0;
    if (m_name != nullptr && m_name->text().trimmed().isEmpty()) {
        m_messageId = TextId::User::NameMissing;
        update();
        return;
    }
    if (m_confirm != nullptr && m_confirm->text() != m_newPassword->text()) {
        // Both typed again: a mismatch says nothing about which one was meant.
        m_newPassword->setText(VyString());
        m_confirm->setText(VyString());
        m_messageId = TextId::User::PasswordsDiffer;
        update();
        return;
    }
    UserAccess::EditResult result;
    switch (m_mode) {
    case AddUser:
        result =
            m_access->addUser(m_name->text().trimmed(), m_newPassword->text(), newUserRights());
        break;
    case ChangePassword:
        result = m_access->changePassword(m_userName, m_password->text(), m_newPassword->text());
        break;
    case SetPattern:
        // The dots already show a short pattern in their error colour.
        if (m_pattern->pattern().size() < size_t(PatternWidget::kMinDots))
            return;
        result = m_access->setPattern(m_userName, m_password->text(), m_pattern->pattern());
        break;
    case ClearPattern:
        result = m_access->setPattern(m_userName, m_password->text(), std::string());
        break;
    }
    clearSecrets();
    showAnswer(result);
}

uint32_t UserEditDialog::messageOf(const UserAccess::EditResult& result) {
    using O = UserAccess::EditOutcome;
    switch (result.outcome) {
    case O::Done:
        return TextId::User::Changed;
    case O::Exists:
        return TextId::User::UserExists;
    case O::Full:
        return TextId::User::UserListFull;
    case O::WrongPassword:
        return TextId::User::WrongOldPassword;
    case O::Locked:
        return TextId::User::Locked;
    case O::Refused:
        return TextId::User::CannotDelete;
    case O::TooLong:
        return TextId::User::TooLong;
    case O::UnknownUser:
    case O::NoAnswer:
        break;
    }
    return TextId::User::LoginFailed;
}

void UserEditDialog::showAnswer(const UserAccess::EditResult& result) {
    if (result.outcome == UserAccess::EditOutcome::Done) {
        m_messageId = 0;
        accept();
        return;
    }
    m_messageId = messageOf(result);
    m_lockSeconds = result.lockSeconds;
    update();
}

VyString UserEditDialog::message() const {
    return messageText(m_messageId, m_lockSeconds);
}

VyString UserEditDialog::messageText(uint32_t textId, int lockSeconds) {
    if (textId == 0)
        return VyString();
    if (textId == TextId::User::Locked)
        return VyTranslation::tr(textId).arg(lockSeconds);
    return VyTranslation::tr(textId);
}

void UserEditDialog::retranslate() {
    VyDialog::retranslate();
    m_ok->setText(VyTranslation::tr(TextId::Common::Ok));
    m_cancel->setText(VyTranslation::tr(TextId::Common::Cancel));
}

VyRect UserEditDialog::rowLabelRect(int row) const {
    const VyStyle* style = VyStyle::instance();
    const VyRect content = contentRect();
    const int rowHeight = style->scaledHeight(kRowHeight);
    const int y = content.top + style->scaledHeight(kMargin) + row * (rowHeight * 3 / 2);
    return VyRect(content.left + style->scaled(kMargin), y, style->scaled(kLabelWidth), rowHeight);
}

void UserEditDialog::paintEvent(VyPaintEvent* e) {
    VyDialog::paintEvent(e);
    VyCanvas* c = canvas();
    const int size = UiLook::instance().fontPixelSize();
    const int align = VyCanvas::AlignLeft | VyCanvas::AlignVCenter;
    for (size_t i = 0; i < m_rows.size(); ++i)
        c->drawText(rowLabelRect(int(i)), align, VyTranslation::tr(m_rows[i].textId), size,
                    m_labelColour);
    const VyString text = message();
    if (text.isEmpty())
        return;
    const VyStyle* style = VyStyle::instance();
    VyRect r = rowLabelRect(int(m_rows.size()));
    if (m_pattern != nullptr)
        r = VyRect(r.left, m_pattern->geometry().bottom + 1, r.width(), r.height());
    r.right = contentRect().right - style->scaled(kMargin);
    c->drawText(r, align, text, size, m_errorColour);
}

void UserEditDialog::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyStyle* style = VyStyle::instance();
    const VyRect content = contentRect();
    const int margin = style->scaled(kMargin);
    for (size_t i = 0; i < m_rows.size(); ++i) {
        const VyRect label = rowLabelRect(int(i));
        const int x = label.right + 1 + margin / 2;
        m_rows[i].field->setGeometry(x, label.top, content.right - margin - x + 1, label.height());
    }
    const int row = style->scaledHeight(kRowHeight);
    if (m_pattern != nullptr) {
        const int side = style->scaledHeight(kPatternSide);
        m_pattern->setGeometry((width() - side) / 2, rowLabelRect(int(m_rows.size())).top, side,
                               side);
    }
    const int bw = style->scaled(kButtonWidth);
    const int gap = style->scaled(kButtonGap);
    const int x = (width() - 2 * bw - gap) / 2;
    const int y = content.bottom - style->scaledHeight(kMargin) - row + 1;
    m_ok->setGeometry(x, y, bw, row);
    m_cancel->setGeometry(x + bw + gap, y, bw, row);
}

void UserEditDialog::showEvent(VyShowEvent* e) {
    VyDialog::showEvent(e);
    if (m_pattern != nullptr)
        m_pattern->show();
    if (!m_rows.empty())
        m_rows.front().field->setFocus();
}
