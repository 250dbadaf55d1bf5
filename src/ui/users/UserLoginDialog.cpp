#include "ui/users/UserLoginDialog.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/users/PatternWidget.h"

#include <algorithm>

namespace {
// Design metrics, pixels at 1920x1080.
constexpr int kMargin = 24;
constexpr int kRowHeight = 40;
constexpr int kLabelWidth = 160;
constexpr int kButtonWidth = 140;
constexpr int kButtonGap = 20;
// Characters the password field takes; App's field holds a few more bytes.
constexpr int kPasswordChars = 16;
} // namespace

UserLoginDialog::UserLoginDialog(UserAccess* access, bool unlock)
    : m_access(access)
    , m_unlock(unlock)
    , m_user(new VyComboBox(this))
    , m_password(new VyLineEdit(this))
    , m_ok(new VyPushButton(VyTranslation::tr(TextId::Common::Ok), this))
    , m_cancel(new VyPushButton(VyTranslation::tr(TextId::Common::Cancel), this))
    , m_method(new VyPushButton(VyTranslation::tr(TextId::User::Pattern), this))
    , m_pattern(new PatternWidget(this)) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_labelColour = ini.color(VyString("UserLoginDialog/Label/Foreground")).argb();
    m_errorColour = ini.color(VyString("UserLoginDialog/Error/Foreground")).argb();
    setTitleId(unlock ? TextId::User::UnlockTitle : TextId::User::LoginTitle);

    if (m_access != nullptr) {
        m_access->refreshUsers();
        const UserAccess::User* current = m_access->currentUser();
        for (const UserAccess::User& u : m_access->users()) {
            m_user->addItem(u.name, u.id);
            if (current != nullptr && current->id == u.id)
                m_user->setCurrentIndex(m_user->count() - 1);
        }
    }
    m_password->setEchoMode(VyLineEdit::Password);
    m_password->setMaxLength(kPasswordChars);
    for (VyWidget* w : {static_cast<VyWidget*>(m_user), static_cast<VyWidget*>(m_password),
                        static_cast<VyWidget*>(m_ok), static_cast<VyWidget*>(m_cancel),
                        static_cast<VyWidget*>(m_method)})
        w->show();
    connect(m_method, &m_method->clicked, this, VY_SLOT(UserLoginDialog, switchMethod));
    connect(m_pattern, &m_pattern->entered, this, VY_SLOT(UserLoginDialog, tryPattern));
    connect(m_ok, &m_ok->clicked, this, VY_SLOT(UserLoginDialog, tryLogin));
    connect(m_password, &m_password->returnPressed, this, VY_SLOT(UserLoginDialog, tryLogin));
    connect(m_cancel, &m_cancel->clicked, this, VY_SLOT(VyDialog, reject));
    place(kDesignWidth, kDesignHeight);
}

UserLoginDialog::~UserLoginDialog() = default;

void UserLoginDialog::install() {
    UserAccess::setLoginPrompt([] {
        UserAccess* access = UserAccess::instance();
        if (access == nullptr)
            return false;
        UserLoginDialog dialog(access, access->isScreenLocked());
        return dialog.exec() == Accepted;
    });
}

void UserLoginDialog::tryLogin() {
    if (m_access == nullptr || m_user->currentIndex() < 0)
        return;
    const UserAccess::LoginResult result =
        m_access->login(m_user->currentText(), m_password->text());
    m_password->setText(VyString());
    showAnswer(result);
}

void UserLoginDialog::tryPattern() {
    if (m_access == nullptr || m_user->currentIndex() < 0)
        return;
    const UserAccess::LoginResult result = m_access->login(
        m_user->currentText(), VyString(m_pattern->pattern()), UserLoginRequest::kPattern);
    m_pattern->clear();
    showAnswer(result);
}

void UserLoginDialog::showAnswer(const UserAccess::LoginResult& result) {
    m_last = result;
    m_tried = true;
    if (m_last.outcome == UserAccess::Outcome::LoggedIn) {
        accept();
        return;
    }
    update();
}

void UserLoginDialog::switchMethod() {
    m_patternMode = !m_patternMode;
    m_tried = false;
    m_password->setText(VyString());
    m_pattern->clear();
    m_password->setVisible(!m_patternMode);
    m_pattern->setVisible(m_patternMode);
    m_method->setText(
        VyTranslation::tr(m_patternMode ? TextId::User::Password : TextId::User::Pattern));
    place(kDesignWidth, m_patternMode ? kPatternDesignHeight : kDesignHeight);
    update();
}

VyString UserLoginDialog::message() const {
    if (!m_tried)
        return VyString();
    switch (m_last.outcome) {
    case UserAccess::Outcome::LoggedIn:
        return VyString();
    case UserAccess::Outcome::WrongPassword:
        return VyTranslation::tr(TextId::User::WrongPassword).arg(m_last.triesLeft);
    case UserAccess::Outcome::Locked:
        return VyTranslation::tr(TextId::User::Locked).arg(m_last.lockSeconds);
    case UserAccess::Outcome::TooLong:
        return VyTranslation::tr(TextId::User::PasswordTooLong);
    case UserAccess::Outcome::UnknownUser:
    case UserAccess::Outcome::NoAnswer:
        break;
    }
    return VyTranslation::tr(TextId::User::LoginFailed);
}

void UserLoginDialog::retranslate() {
    VyDialog::retranslate();
    m_ok->setText(VyTranslation::tr(TextId::Common::Ok));
    m_cancel->setText(VyTranslation::tr(TextId::Common::Cancel));
    m_method->setText(
        VyTranslation::tr(m_patternMode ? TextId::User::Password : TextId::User::Pattern));
}

VyRect UserLoginDialog::rowLabelRect(int row) const {
    const VyStyle* style = VyStyle::instance();
    const VyRect content = contentRect();
    const int rowHeight = style->scaledHeight(kRowHeight);
    const int y = content.top + style->scaledHeight(kMargin) + row * (rowHeight * 3 / 2);
    return VyRect(content.left + style->scaled(kMargin), y, style->scaled(kLabelWidth), rowHeight);
}

void UserLoginDialog::paintEvent(VyPaintEvent* e) {
    VyDialog::paintEvent(e);
    VyCanvas* c = canvas();
    const int size = UiLook::instance().fontPixelSize();
    const int align = VyCanvas::AlignLeft | VyCanvas::AlignVCenter;
    c->drawText(rowLabelRect(0), align, VyTranslation::tr(TextId::User::UserName), size,
                m_labelColour);
    if (!m_patternMode)
        c->drawText(rowLabelRect(1), align, VyTranslation::tr(TextId::User::Password), size,
                    m_labelColour);
    const VyString text = message();
    if (!text.isEmpty()) {
        VyRect r = m_patternMode ? m_pattern->geometry() : rowLabelRect(2);
        if (m_patternMode) {
            r.top = r.bottom + 1;
            r.bottom = r.top + rowLabelRect(0).height() - 1;
        }
        r.left = rowLabelRect(0).left;
        r.right = contentRect().right - VyStyle::instance()->scaled(kMargin);
        c->drawText(r, align, text, size, m_errorColour);
    }
}

void UserLoginDialog::resizeEvent(VyResizeEvent* e) {
    VyDialog::resizeEvent(e);
    const VyStyle* style = VyStyle::instance();
    const VyRect content = contentRect();
    const int margin = style->scaled(kMargin);
    for (int row = 0; row < 2; ++row) {
        const VyRect label = rowLabelRect(row);
        const int x = label.right + 1 + margin / 2;
        VyWidget* field = row == 0 ? static_cast<VyWidget*>(m_user) : m_password;
        field->setGeometry(x, label.top, content.right - margin - x + 1, label.height());
    }
    const int row = style->scaledHeight(kRowHeight);
    const int bw = style->scaled(kButtonWidth);
    const int gap = style->scaled(kButtonGap);
    const int x = (width() - 2 * bw - gap) / 2;
    const int y = content.bottom - style->scaledHeight(kMargin) - row + 1;
    m_ok->setGeometry(x, y, bw, row);
    m_cancel->setGeometry(x + bw + gap, y, bw, row);
    m_method->setGeometry(content.left + margin, y, bw, row);
    // The dots take a square from the password row down to the message row.
    const VyRect top = rowLabelRect(1);
    const int side = std::max(0, y - row - top.top - margin / 2);
    m_pattern->setGeometry((width() - side) / 2, top.top, side, side);
}

void UserLoginDialog::showEvent(VyShowEvent* e) {
    VyDialog::showEvent(e);
    m_pattern->setVisible(m_patternMode);
    if (!m_patternMode)
        m_password->setFocus();
}
