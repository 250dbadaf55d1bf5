#include "../../model/UserLinkDouble.h"
#include "../settings/SettingsUiTestApp.h"

#include "platform/display/VyFrameDump.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "ui/users/PatternWidget.h"
#include "ui/users/UserLoginDialog.h"

#include <cstdlib>
#include <string>

namespace {

// VY_SHOT_DIR=dir writes the dialog as dir/userlogindialog.png, to look at it.
class UserLoginDialogTest : public SettingsUiTest {
protected:
    const char* displayDevice() const override {
        static std::string device;
        const char* dir = std::getenv("VY_SHOT_DIR");
        device = dir ? std::string("mem:960x540:") + dir + "/userlogin.raw" : "mem:960x540";
        return device.c_str();
    }
    void SetUp() override {
        SettingsUiTest::SetUp();
        VyStyle::instance()->followScreen(app()->screen());
        RecorderLink::setInstance(&link);
        link.addEntry("admin", true, UserRights());
        link.addEntry("oper", false, UserRights());
    }
    void shot(const char* name) {
        if (const char* dir = std::getenv("VY_SHOT_DIR")) {
            app()->screen()->flush();
            VyFrameDump::fromRawFile(std::string(dir) + "/userlogin.raw", 960, 540)
                .savePng(std::string(dir) + "/" + name);
        }
    }
    void TearDown() override {
        RecorderLink::setInstance(nullptr);
        SettingsUiTest::TearDown();
    }
    UserLinkDouble link;
};

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

TEST_F(UserLoginDialogTest, LockedUserIsToldForHowLong) {
    UserAccess access;
    link.answer = UserLoginAnswer();
    link.answer.result = UserLoginAnswer::kLocked;
    link.answer.lockSeconds = 120;
    UserLoginDialog dialog(&access, true);
    dialog.passwordEdit()->setText("12345");
    dialog.tryLogin();
    EXPECT_EQ(dialog.message().toStdString(),
              "Too many wrong passwords. This user is locked for 120 seconds.");
    EXPECT_FALSE(dialog.isFinished());
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
