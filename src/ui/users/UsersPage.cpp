#include "ui/users/UsersPage.h"

#include "model/DeviceProfile.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/settings/BitMaskChecks.h"
#include "ui/settings/SettingsManager.h"
#include "ui/users/UserEditDialog.h"
#include "ui/users/UserLoginDialog.h"

#include <algorithm>

namespace {
// Design metrics, pixels at 1920x1080.
constexpr int kMargin = 24;
constexpr int kListWidth = 360;
constexpr int kRowHeight = 44;
constexpr int kRowGap = 10;
constexpr int kFunctionColumns = 3;
constexpr int kLabelHeight = 36;
constexpr int kChannelRowHeight = 34;
constexpr int kSaveWidth = 220;

uint32_t functionText(uint32_t bit) {
    switch (bit) {
    case UserRights::kLiveView:
        return TextId::User::RightLiveView;
    case UserRights::kPlayback:
        return TextId::User::RightPlayback;
    case UserRights::kBackup:
        return TextId::LiveView::MenuBackup;
    case UserRights::kPtz:
        return TextId::User::RightPtz;
    case UserRights::kShutdown:
        return TextId::LiveView::MenuShutdown;
    default:
        break;
    }
    for (int c = 0; c < UserRights::kSettingsCategories; ++c)
        if (bit == UserRights::settingsBit(c))
            return SettingsManager::categoryTitle(c);
    return 0;
}

} // namespace

const std::vector<uint32_t>& UsersPage::functionBits() {
    static const std::vector<uint32_t> bits = [] {
        std::vector<uint32_t> out = {UserRights::kLiveView, UserRights::kPlayback,
                                     UserRights::kBackup, UserRights::kPtz};
        for (int c = 0; c < UserRights::kSettingsCategories; ++c)
            out.push_back(UserRights::settingsBit(c));
        out.push_back(UserRights::kShutdown);
        return out;
    }();
    return bits;
}

UsersPage::UsersPage(VyWidget* parent)
    : SettingsPage(TextId::User::Users, parent)
    , m_access(UserAccess::instance())
    , m_list(new VyListWidget(this)) {
    auto button = [&](uint32_t textId, VySlot slot) {
        auto* b = new VyPushButton(VyTranslation::tr(textId), this);
        connect(b, &b->clicked, this, slot);
        b->show();
        return b;
    };
    m_add = button(TextId::User::AddUser, VY_SLOT(UsersPage, addUser));
    m_delete = button(TextId::User::DeleteUser, VY_SLOT(UsersPage, deleteUser));
    m_password = button(TextId::User::ChangePassword, VY_SLOT(UsersPage, changePassword));
    m_pattern = button(TextId::User::SetPattern, VY_SLOT(UsersPage, setPattern));
    m_clearPattern = button(TextId::User::ClearPattern, VY_SLOT(UsersPage, clearPattern));
    m_saveRights = button(TextId::User::SaveRights, VY_SLOT(UsersPage, saveRights));
    for (uint32_t bit : functionBits()) {
        auto* box = new VyCheckBox(VyTranslation::tr(functionText(bit)), this);
        box->show();
        m_functions.push_back(box);
    }
    const int channels =
        std::clamp(DeviceProfile::current().channelCount, 1, int(BitMaskChecks::kMaxBits));
    m_liveLabel = new VyLabel(this);
    m_liveLabel->setTextId(TextId::User::LiveChannels);
    m_live = new BitMaskChecks(channels, this);
    m_playbackLabel = new VyLabel(this);
    m_playbackLabel->setTextId(TextId::User::PlaybackChannels);
    m_playback = new BitMaskChecks(channels, this);
    for (VyWidget* w : {static_cast<VyWidget*>(m_list), static_cast<VyWidget*>(m_liveLabel),
                        static_cast<VyWidget*>(m_live), static_cast<VyWidget*>(m_playbackLabel),
                        static_cast<VyWidget*>(m_playback)})
        w->show();
    const VyIniSettings ini(VyResources::path(UserLoginDialog::kStyleFile));
    m_errorColour = UiLook::colourOr(ini, "UserLoginDialog/Error/Foreground", m_errorColour);
    m_list->setSelectionMode(VyListWidget::SingleSelection);
    connect(m_list, &m_list->currentRowChanged, this, VY_SLOT(UsersPage, userChosen));
}

void UsersPage::opened() {
    if (m_access != nullptr)
        m_access->refreshUsers();
}

void UsersPage::showValues() {
    fillList();
}

void UsersPage::fillList() {
    const VyString chosen = chosenUser() ? chosenUser()->name : VyString();
    m_list->clear();
    int row = 0;
    if (m_access != nullptr) {
        const auto& users = m_access->users();
        for (size_t i = 0; i < users.size(); ++i) {
            const UserAccess::User& u = users[i];
            m_list->addItem(u.admin ? u.name + " (" +
                                          VyTranslation::tr(TextId::User::Administrator) + ")"
                                    : u.name);
            if (u.name == chosen)
                row = int(i);
        }
    }
    if (m_list->count() > 0)
        m_list->setCurrentRow(row);
    userChosen();
}

const UserAccess::User* UsersPage::chosenUser() const {
    if (m_access == nullptr)
        return nullptr;
    const int row = m_list->currentRow();
    const auto& users = m_access->users();
    return row >= 0 && row < int(users.size()) ? &users[size_t(row)] : nullptr;
}

void UsersPage::userChosen() {
    const UserAccess::User* u = chosenUser();
    // Accounts are the administrator's to manage; anybody may change their own password.
    const UserAccess::User* me = m_access != nullptr ? m_access->currentUser() : nullptr;
    const bool manager = m_access != nullptr && (!m_access->loginRequired() || (me && me->admin));
    const bool self = u != nullptr && me != nullptr && me->name == u->name;
    const bool editable = u != nullptr && !u->admin && manager;
    const UserRights rights = u != nullptr ? u->rights : UserRights();
    const auto& bits = functionBits();
    for (size_t i = 0; i < bits.size(); ++i) {
        m_functions[i]->setChecked((rights.functions & bits[i]) != 0);
        m_functions[i]->setEnabled(editable);
    }
    m_live->setMask(rights.liveChannels);
    m_playback->setMask(rights.playbackChannels);
    for (VyWidget* w : {static_cast<VyWidget*>(m_live), static_cast<VyWidget*>(m_playback),
                        static_cast<VyWidget*>(m_saveRights), static_cast<VyWidget*>(m_delete)})
        w->setEnabled(editable);
    for (VyWidget* w : {m_password, m_pattern, m_clearPattern})
        w->setEnabled(u != nullptr && (manager || self));
    m_add->setEnabled(manager);
    update();
}

UserRights UsersPage::shownRights() const {
    UserRights r;
    const auto& bits = functionBits();
    for (size_t i = 0; i < bits.size(); ++i)
        if (m_functions[i]->isChecked())
            r.functions |= bits[i];
    r.liveChannels = m_live->mask();
    r.playbackChannels = m_playback->mask();
    return r;
}

bool UsersPage::run(VyDialog& dialog) {
    if (m_runDialog)
        return m_runDialog(dialog);
    return dialog.exec() == VyDialog::Accepted;
}

void UsersPage::showOutcome(const UserAccess::EditResult& result) {
    m_messageId = UserEditDialog::messageOf(result);
    m_lockSeconds = result.lockSeconds;
    // A change done moves the list; one refused leaves it as it was.
    if (result.outcome == UserAccess::EditOutcome::Done)
        fillList();
    update();
}

void UsersPage::runAccountDialog(int mode) {
    const UserAccess::User* u = chosenUser();
    if (m_access == nullptr || (mode != UserEditDialog::AddUser && u == nullptr))
        return;
    const VyString name = u != nullptr ? u->name : VyString();
    VyPointer<UsersPage> self(this);
    UserEditDialog dialog(m_access, UserEditDialog::Mode(mode), name);
    const bool done = run(dialog);
    if (!self || !done)
        return;
    UserAccess::EditResult ok;
    ok.outcome = UserAccess::EditOutcome::Done;
    showOutcome(ok);
    if (mode == UserEditDialog::AddUser) {
        for (int row = 0; row < m_list->count(); ++row)
            if (size_t(row) < m_access->users().size() &&
                m_access->users()[size_t(row)].name == dialog.nameEdit()->text().trimmed())
                m_list->setCurrentRow(row);
    }
}

void UsersPage::addUser() {
    runAccountDialog(UserEditDialog::AddUser);
}

void UsersPage::changePassword() {
    runAccountDialog(UserEditDialog::ChangePassword);
}

void UsersPage::setPattern() {
    runAccountDialog(UserEditDialog::SetPattern);
}

void UsersPage::clearPattern() {
    runAccountDialog(UserEditDialog::ClearPattern);
}

void UsersPage::deleteUser() {
    const UserAccess::User* u = chosenUser();
    if (m_access == nullptr || u == nullptr)
        return;
    const VyString name = u->name;
    VyPointer<UsersPage> self(this);
    VyMessageBox box(VyMessageBox::Question,
                     VyTranslation::tr(TextId::User::DeleteQuestion).arg(name),
                     VyMessageBox::Yes | VyMessageBox::No);
    run(box);
    if (!self || box.result() != VyMessageBox::Yes)
        return;
    showOutcome(m_access->deleteUser(name));
}

void UsersPage::saveRights() {
    const UserAccess::User* u = chosenUser();
    if (m_access == nullptr || u == nullptr || u->admin)
        return;
    showOutcome(m_access->setRights(u->name, shownRights()));
}

VyString UsersPage::message() const {
    return UserEditDialog::messageText(m_messageId, m_lockSeconds);
}

void UsersPage::resizeEvent(VyResizeEvent* e) {
    SettingsPage::resizeEvent(e);
    const int margin = UiLook::scaledX(kMargin);
    const int top = UiLook::scaledY(kMargin);
    const int row = UiLook::scaledY(kRowHeight);
    const int gap = UiLook::scaledY(kRowGap);
    const int listWidth = UiLook::scaledX(kListWidth);
    // Left: the list over the account buttons.
    VyPushButton* const buttons[] = {m_add, m_delete, m_password, m_pattern, m_clearPattern};
    const int buttonsHeight = 5 * (row + gap);
    const int listHeight = std::max(row, height() - 2 * top - buttonsHeight);
    m_list->setGeometry(margin, top, listWidth, listHeight);
    int y = top + listHeight + gap;
    for (VyPushButton* b : buttons) {
        b->setGeometry(margin, y, listWidth, row);
        y += row + gap;
    }
    // Right: the rights.
    const int left = margin + listWidth + 2 * margin;
    const int width = std::max(1, this->width() - left - margin);
    const int column = width / kFunctionColumns;
    for (size_t i = 0; i < m_functions.size(); ++i)
        m_functions[i]->setGeometry(left + int(i % kFunctionColumns) * column,
                                    top + int(i / kFunctionColumns) * (row + gap), column, row);
    const int rows = int((m_functions.size() + kFunctionColumns - 1) / kFunctionColumns);
    y = top + rows * (row + gap) + gap;
    const int label = UiLook::scaledY(kLabelHeight);
    // Many channels wrap into rows of boxes, lower than a form row so that 64 fit the page.
    const int gridRows = m_live->rowsFor(width);
    const int gridHeight = gridRows == 1 ? row : gridRows * UiLook::scaledY(kChannelRowHeight);
    m_liveLabel->setGeometry(left, y, width, label);
    m_live->setGeometry(left, y + label, width, gridHeight);
    y += label + gridHeight + gap;
    m_playbackLabel->setGeometry(left, y, width, label);
    m_playback->setGeometry(left, y + label, width, gridHeight);
    y += label + gridHeight + 2 * gap;
    m_saveRights->setGeometry(left, y, UiLook::scaledX(kSaveWidth), row);
}

void UsersPage::paintEvent(VyPaintEvent* e) {
    SettingsPage::paintEvent(e);
    const VyString text = message();
    VyCanvas* c = canvas();
    if (text.isEmpty() || c == nullptr)
        return;
    const VyRect save = m_saveRights->geometry();
    const UiLook& look = UiLook::instance();
    const bool good = m_messageId == TextId::User::Changed;
    const int x = save.right + 1 + UiLook::scaledX(kMargin);
    c->drawText(VyRect(x, save.top, width() - x, save.height()),
                VyCanvas::AlignLeft | VyCanvas::AlignVCenter, text, look.fontPixelSize(),
                good ? look.textForeground : m_errorColour);
}
