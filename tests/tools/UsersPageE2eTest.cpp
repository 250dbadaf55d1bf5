// The users page against the simulated recorder on a real socket: accounts added, changed
// and deleted through the page's dialogs end up in the recorder's store as salted hashes,
// a wrong old password counts towards the lock and the page says for how long, and no
// password reaches the GUI's log.
#include "SimSha256.h"
#include "SimUiFixture.h"

#include "model/UserAccess.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyMessageBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/users/UserEditDialog.h"
#include "ui/users/UsersPage.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <unistd.h>

namespace {

// The users page against the simulator's accounts, with a login asked for.
class UsersPageE2e : public SimUiFixture {
protected:
    void SetUp() override {
        users.setLoginRequired(true);
        SimUiFixture::SetUp();
        access = models->users();
    }
    void TearDown() override {
        page.reset();
        SimUiFixture::TearDown();
    }
    std::unique_ptr<UsersPage> openPage() {
        auto opened = std::make_unique<UsersPage>();
        opened->setGeometry(0, 0, 1280, 600);
        opened->show();
        opened->open();
        return opened;
    }
    bool choose(UsersPage& shown, const char* name) {
        const auto& list = access->users();
        for (size_t i = 0; i < list.size(); ++i)
            if (list[i].name == name) {
                shown.userList()->setCurrentRow(int(i));
                return true;
            }
        return false;
    }
    // The dialogs the page opens from now on: an account dialog is filled by `fill` and
    // submitted once (what it then says is kept), a question is answered Yes.
    void answerDialogs(const std::function<void(UserEditDialog&)>& fill) {
        lastMessage.clear();
        page->setDialogRunner([this, fill](VyDialog& d) {
            if (auto* box = dynamic_cast<VyMessageBox*>(&d)) {
                box->done(VyMessageBox::Yes);
                return false;
            }
            auto& dialog = static_cast<UserEditDialog&>(d);
            fill(dialog);
            dialog.submit();
            lastMessage = dialog.message().toStdString();
            return dialog.isFinished() && dialog.result() == VyDialog::Accepted;
        });
    }

    UserAccess* access = nullptr;
    std::unique_ptr<UsersPage> page;
    std::string lastMessage;
};

} // namespace

TEST_F(UsersPageE2e, AddChangePasswordAndDeleteRoundTripWithHashesOnlyAndNoPasswordLogged) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    page = openPage();
    ASSERT_EQ(page->userList()->count(), 2);

    answerDialogs([](UserEditDialog& d) {
        d.nameEdit()->setText("guest");
        d.newPasswordEdit()->setText("Pw-first-1");
        d.confirmEdit()->setText("Pw-first-1");
    });
    page->addUser();
    ASSERT_EQ(page->userList()->count(), 3);
    SimUsers::Account stored;
    ASSERT_TRUE(users.account("guest", &stored));
    EXPECT_NE(stored.hash, simSha256("Pw-first-1", 10));
    EXPECT_EQ(access->login("guest", "Pw-first-1").outcome, UserAccess::Outcome::LoggedIn);
    access->logout();

    ASSERT_TRUE(choose(*page, "guest"));
    answerDialogs([](UserEditDialog& d) {
        d.passwordEdit()->setText("Pw-first-1");
        d.newPasswordEdit()->setText("Pw-second-2");
        d.confirmEdit()->setText("Pw-other-3"); // the confirmation differs: nothing is sent
    });
    page->changePassword();
    EXPECT_EQ(lastMessage, "The new passwords do not match.");
    answerDialogs([](UserEditDialog& d) {
        d.passwordEdit()->setText("Pw-first-1");
        d.newPasswordEdit()->setText("Pw-second-2");
        d.confirmEdit()->setText("Pw-second-2");
    });
    page->changePassword();
    EXPECT_EQ(page->message().toStdString(), "The change was saved.");
    EXPECT_EQ(access->login("guest", "Pw-first-1").outcome, UserAccess::Outcome::WrongPassword);
    EXPECT_EQ(access->login("guest", "Pw-second-2").outcome, UserAccess::Outcome::LoggedIn);
    access->logout();

    // Rights saved from the boxes come back with the list.
    ASSERT_TRUE(choose(*page, "guest"));
    page->functionBox(0)->setChecked(false); // live view
    page->functionBox(2)->setChecked(true);  // backup
    page->saveRights();
    ASSERT_TRUE(users.account("guest", &stored));
    EXPECT_EQ(stored.rights.functions, UserRights::kPlayback | UserRights::kBackup);

    answerDialogs([](UserEditDialog&) {});
    ASSERT_TRUE(choose(*page, "admin"));
    EXPECT_FALSE(page->deleteButton()->isEnabled());
    ASSERT_TRUE(choose(*page, "guest"));
    page->deleteUser();
    EXPECT_EQ(page->userList()->count(), 2);
    EXPECT_FALSE(users.account("guest", &stored));
    page.reset();

    const std::string log =
        testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("guest"), std::string::npos); // the log was captured
    for (const char* secret : {"Pw-first-1", "Pw-second-2", "Pw-other-3"})
        EXPECT_EQ(log.find(secret), std::string::npos) << secret;
}

TEST_F(UsersPageE2e, WrongOldPasswordsLockTheUserAndThePageSaysForHowLong) {
    page = openPage();
    ASSERT_TRUE(choose(*page, SimUsers::kUserName));
    answerDialogs([](UserEditDialog& d) {
        d.passwordEdit()->setText("nope");
        d.newPasswordEdit()->setText("newpass");
        d.confirmEdit()->setText("newpass");
    });
    for (uint32_t n = 1; n < SimUsers::kMaxWrong; ++n) {
        page->changePassword();
        EXPECT_EQ(lastMessage, "The password is wrong.") << n;
    }
    page->changePassword();
    EXPECT_EQ(
        lastMessage,
        VyTranslation::tr(TextId::User::Locked).arg(int(SimUsers::kLockSeconds)).toStdString());
    // Locked, the right password is not heard either, by a change or a login.
    answerDialogs([](UserEditDialog& d) {
        d.passwordEdit()->setText(SimUsers::kUserPassword);
        d.newPasswordEdit()->setText("newpass");
        d.confirmEdit()->setText("newpass");
    });
    page->changePassword();
    EXPECT_NE(lastMessage.find("locked"), std::string::npos) << lastMessage;
    EXPECT_EQ(access->login(SimUsers::kUserName, SimUsers::kUserPassword).outcome,
              UserAccess::Outcome::Locked);
}
