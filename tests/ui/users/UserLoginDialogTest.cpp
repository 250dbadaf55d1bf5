#include "UserScreensTestApp.h"

#include "model/DeviceProfile.h"
#include "platform/display/VyFrameDump.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsTile.h"
#include "ui/settings/SettingsWindow.h"
#include "ui/users/PatternWidget.h"
#include "ui/users/UserLoginDialog.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace {

// The login dialog, and the settings tiles asking through it.
using UserLoginDialogTest = UserScreensTest;

} // namespace

TEST_F(UserLoginDialogTest, WrongPasswordSaysTriesLeftAndClearsTheFieldThenTheRightOneGetsIn) {
    UserAccess access;
    UserRights rights;
    rights.functions = UserRights::kLiveView;
    link.answerOk(false, rights);
    UserLoginDialog dialog(&access);
    ASSERT_EQ(dialog.userBox()->count(), 2);
    EXPECT_EQ(dialog.userBox()->itemText(1).toStdString(), "oper");
    dialog.userBox()->setCurrentIndex(1);
    dialog.show();
    settle();

    dialog.passwordEdit()->setText("999");
    dialog.tryLogin();
    settle();
    EXPECT_EQ(dialog.message().toStdString(),
              "Wrong password. 3 tries left before this user is locked.");
    EXPECT_TRUE(dialog.passwordEdit()->text().isEmpty());
    EXPECT_FALSE(dialog.isFinished());
    shot("userlogindialog.png");

    dialog.passwordEdit()->setText("12345");
    dialog.tryLogin();
    EXPECT_TRUE(dialog.isFinished());
    EXPECT_EQ(dialog.result(), VyDialog::Accepted);
    EXPECT_TRUE(dialog.passwordEdit()->text().isEmpty());
    ASSERT_NE(access.currentUser(), nullptr);
    EXPECT_EQ(access.currentUser()->name.toStdString(), "oper");
}

TEST_F(UserLoginDialogTest, DrawnPatternGoesOutAsThePatternMethodAndGetsIn) {
    UserAccess access;
    link.answerOk(true, UserRights());
    link.password = "12369";
    UserLoginDialog dialog(&access);
    dialog.show();
    dialog.switchMethod();
    settle();
    PatternWidget* p = dialog.patternWidget();
    ASSERT_TRUE(p->isVisible());
    ASSERT_GT(p->width(), 0);
    mouse(p, VyEvent::MouseButtonPress, p->dotCentre(1).x, p->dotCentre(1).y);
    for (int dot : {2, 3, 6, 9})
        mouse(p, VyEvent::MouseMove, p->dotCentre(dot).x, p->dotCentre(dot).y);
    settle();
    shot("userloginpattern.png");
    mouse(p, VyEvent::MouseButtonRelease, p->dotCentre(9).x, p->dotCentre(9).y);

    ASSERT_FALSE(link.requests.empty());
    UserLoginRequest sent;
    ASSERT_EQ(link.requests.back().body.size(), sizeof sent);
    std::memcpy(&sent, link.requests.back().body.data(), sizeof sent);
    EXPECT_EQ(sent.method, UserLoginRequest::kPattern);
    EXPECT_STREQ(sent.secret, "12369");
    EXPECT_TRUE(dialog.isFinished());
    EXPECT_TRUE(p->pattern().empty());
}

// Every category without its right stays shut and asks for a login; the one granted opens.
TEST_F(UserLoginDialogTest, SettingsTilesWithoutTheirRightStayShutAndAskForALogin) {
    UserAccess access;
    UserRights rights;
    rights.functions = UserRights::kLiveView | UserRights::kSettingsRecord;
    link.answerOk(false, rights);
    ASSERT_EQ(access.login("oper", "12345").outcome, UserAccess::Outcome::LoggedIn);
    int prompts = 0;
    UserAccess::setLoginPrompt([&] {
        ++prompts;
        return false;
    });
    SettingsManager manager;
    SettingsWindow* w = manager.openWindow();
    ASSERT_GE(w->tiles().size(), 2u); // the granted category and at least one other
    for (SettingsTile* tile : w->tiles()) {
        const int before = prompts;
        tile->keyActivate();
        settle();
        const bool granted = tile->category() == SettingsManager::Record;
        EXPECT_EQ(w->page() != nullptr, granted) << "category " << tile->category();
        EXPECT_EQ(prompts - before, granted ? 0 : 1) << "category " << tile->category();
        if (w->page() != nullptr)
            w->leaveCategory();
    }
}
