#include "UserScreensTestApp.h"

#include "model/DeviceProfile.h"
#include "model/KeyManagerLink.h"
#include "model/UserAccess.h"
#include "platform/display/VyFrameDump.h"
#include "platform/keys/VyScriptedKeyLibrary.h"
#include "toolkit/events/DvrKeyEvent.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/WindowShell.h"
#include "ui/liveview/StartMenu.h"
#include "ui/playback/PlaybackSearchPanel.h"
#include "ui/playback/PlaybackWindow.h"
#include "ui/settings/BitMaskChecks.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/SettingsTile.h"
#include "ui/settings/SettingsWindow.h"
#include "ui/users/ScreenLockWindow.h"
#include "ui/users/UserEditDialog.h"
#include "ui/users/UsersPage.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace {

// The lock window, the user entry and what a user's rights grey out.
class UserAccessScreensTest : public UserScreensTest {
protected:
    void logIn(bool admin, uint32_t functions) {
        UserRights r;
        r.functions = functions;
        r.liveChannels = r.playbackChannels = 1; // channel 1 only
        link.answerOk(admin, r);
        ASSERT_EQ(access.login(admin ? "admin" : "oper", "12345").outcome,
                  UserAccess::Outcome::LoggedIn);
    }
    UserAccess access;
};

} // namespace

TEST_F(UserAccessScreensTest, LockLetsOnlyTheEscapeKeysThroughAndUnlockingNeedsALogin) {
    auto library = std::make_shared<VyScriptedKeyLibrary>();
    VyKeyManager::Setup setup;
    setup.library = library;
    setup.startPollThread = false;
    VyKeyManager keys(setup);
    auto press = [&](uint32_t key) {
        VyApplication::postEvent(&keys, std::make_unique<DvrKeyEvent>(key, 0));
        settle();
    };
    link.loginRequired = false;
    access.refreshUsers();
    int prompts = 0;
    bool letIn = false;
    UserAccess::setLoginPrompt([&] {
        ++prompts;
        return letIn && access.login("admin", "12345").outcome == UserAccess::Outcome::LoggedIn;
    });
    link.answerOk(true, UserRights());

    WindowShell shell;
    shell.showMainView();
    shell.toggleLock();
    settle();
    ScreenLockWindow* lock = shell.lockWindow();
    ASSERT_NE(lock, nullptr);
    EXPECT_TRUE(lock->isVisible());
    EXPECT_TRUE(access.isScreenLocked());
    shot("screenlock.png");

    // Digits, arrows, OK, layout and playback keys are dropped before they reach anything.
    for (uint32_t key : {8u, 24u, 27u, 28u, 29u, 39u, 56u, 96u})
        press(key);
    EXPECT_EQ(lock->unlockRequests(), 0);
    EXPECT_EQ(prompts, 0);
    EXPECT_TRUE(access.isScreenLocked());

    press(VyKeyManager::KeyEscape); // the login is refused: still locked
    EXPECT_EQ(prompts, 1);
    EXPECT_TRUE(access.isScreenLocked());
    EXPECT_TRUE(VyKeyManager::keyRestriction());
    letIn = true;
    press(VyKeyManager::KeyEscape2);
    EXPECT_EQ(prompts, 2);
    EXPECT_FALSE(access.isScreenLocked());
    EXPECT_FALSE(VyKeyManager::keyRestriction());
    EXPECT_FALSE(lock->isVisible());
    shell.closeAll();
}

// The device keys that drive playback and PTZ without the start menu: nobody logged in is
// asked for a login, a user without the right is refused, one with it gets through.
class DeviceKeyRightsTest : public UserAccessScreensTest {
protected:
    void SetUp() override {
        UserAccessScreensTest::SetUp();
        VyKeyManager::Setup setup;
        setup.library = library;
        setup.link = &keyLink;
        setup.startPollThread = false;
        keys = std::make_unique<VyKeyManager>(setup);
        link.loginRequired = true;
        access.refreshUsers();
        UserAccess::setLoginPrompt([this] {
            ++prompts;
            return false;
        });
    }
    void TearDown() override {
        keys.reset();
        UserAccessScreensTest::TearDown();
    }
    void press(uint32_t key) {
        VyApplication::postEvent(keys.get(), std::make_unique<DvrKeyEvent>(key, 0));
        settle();
    }
    std::shared_ptr<VyScriptedKeyLibrary> library = std::make_shared<VyScriptedKeyLibrary>();
    KeyManagerLink keyLink;
    std::unique_ptr<VyKeyManager> keys;
    int prompts = 0;
};

TEST_F(DeviceKeyRightsTest, PlaybackKeysOfAnOpenWindowNeedThePlaybackRight) {
    WindowShell shell;
    shell.showMainView();
    logIn(false, UserRights::kLiveView | UserRights::kPlayback);
    shell.openPlayback(-1, 0);
    settle();
    ASSERT_NE(shell.playback(), nullptr);
    press(39); // play
    EXPECT_EQ(prompts, 0);

    // Logged out by the menu time-out with playback still open: its keys ask for a login,
    // and a user without the right is refused (asked again).
    access.menuTimedOut();
    press(39);
    EXPECT_EQ(prompts, 1);
    logIn(false, UserRights::kLiveView);
    press(42); // faster
    EXPECT_EQ(prompts, 2);
    shell.closeAll();
}

TEST_F(DeviceKeyRightsTest, PtzKeyBoardCommandsGoOnlyForAUserWithTheRight) {
    auto command = [&] {
        PTZ_keyvaluet c;
        c.command = 1;
        library->pushPtzCommand(c);
        press(VyKeyManager::KeySerialPtz);
    };
    command();
    EXPECT_EQ(prompts, 1);
    logIn(false, UserRights::kLiveView | UserRights::kPlayback);
    command();
    EXPECT_EQ(prompts, 2);
    EXPECT_EQ(link.ptzCommands, 0);
    logIn(false, UserRights::kPtz);
    command();
    EXPECT_EQ(prompts, 2);
    EXPECT_EQ(link.ptzCommands, 1);
}

TEST_F(UserAccessScreensTest, UserEntryLogsInLogsOutAndSwitches) {
    WindowShell shell;
    int prompts = 0;
    UserAccess::setLoginPrompt([&] {
        ++prompts;
        return access.login("oper", "12345").outcome == UserAccess::Outcome::LoggedIn;
    });
    link.answerOk(false, UserRights());
    shell.openUserMenu(); // nobody in: the login
    ASSERT_EQ(prompts, 1);
    ASSERT_TRUE(access.isLoggedIn());

    std::string asked;
    WindowShell::UserMenuChoice choice = WindowShell::SwitchUser;
    shell.setUserMenuChooser([&](const VyString& name) {
        asked = name.toStdString();
        return choice;
    });
    shell.openUserMenu();
    EXPECT_EQ(asked, "oper");
    EXPECT_EQ(prompts, 2);
    choice = WindowShell::KeepUser;
    shell.openUserMenu();
    EXPECT_EQ(prompts, 2);
    EXPECT_TRUE(access.isLoggedIn());
    choice = WindowShell::LogOut;
    shell.openUserMenu();
    EXPECT_FALSE(access.isLoggedIn());
    ASSERT_FALSE(link.sends.empty());
    EXPECT_EQ(link.sends.back().subType, UserSubType::Logout);
}

// Over every single right an ordinary user may hold: the start menu, the settings tiles
// and the live channels offer exactly what it grants.
TEST_F(UserAccessScreensTest, EverythingAUserMayNotDoIsGreyedAndAChannelNotTheirsShowsNothing) {
    access.refreshUsers();
    {
        StartMenu menu("admin", true);
        menu.followAccess(access); // nobody in: offered, a try asks for a login
        EXPECT_EQ(menu.itemText(0).toStdString(), "Log in");
        EXPECT_EQ(menu.iconPath(StartMenu::User), "images/user.png");
        for (auto e :
             {StartMenu::Search, StartMenu::Backup, StartMenu::Settings, StartMenu::Shutdown})
            EXPECT_TRUE(menu.isEntryEnabled(e)) << e;
    }
    std::vector<uint32_t> grants = {0};
    for (int bit = 0; bit < 11; ++bit)
        grants.push_back(1u << bit);
    for (uint32_t functions : grants) {
        logIn(false, functions);
        StartMenu menu("admin", true);
        menu.followAccess(access);
        EXPECT_EQ(menu.itemText(0).toStdString(), "oper");
        EXPECT_EQ(menu.iconPath(StartMenu::User), "images/user.png");
        EXPECT_EQ(menu.isEntryEnabled(StartMenu::Search), functions == UserRights::kPlayback);
        EXPECT_EQ(menu.isEntryEnabled(StartMenu::Backup), functions == UserRights::kBackup);
        EXPECT_EQ(menu.isEntryEnabled(StartMenu::Shutdown), functions == UserRights::kShutdown);
        bool settings = false;
        for (int c = 0; c < UserRights::kSettingsCategories; ++c)
            settings = settings || functions == UserRights::settingsBit(c);
        EXPECT_EQ(menu.isEntryEnabled(StartMenu::Settings), settings) << functions;

        SettingsManager manager;
        SettingsWindow* w = manager.openWindow();
        ASSERT_FALSE(w->tiles().empty());
        for (SettingsTile* tile : w->tiles())
            EXPECT_EQ(tile->isEnabled(), functions == UserRights::settingsBit(tile->category()))
                << "category " << tile->category() << " rights " << functions;
        EXPECT_EQ(access.offers(UserRights::kLiveView, 0), functions == UserRights::kLiveView);
        EXPECT_FALSE(access.offers(UserRights::kLiveView, 1));
        PlaybackSearchPanel search(4);
        for (int ch = 0; ch < 4; ++ch)
            search.setChannelChecked(ch, true);
        const std::vector<int> playable =
            functions == UserRights::kPlayback ? std::vector<int>{0} : std::vector<int>{};
        EXPECT_EQ(search.checkedChannels(), playable) << functions;
        access.logout();
    }
    logIn(true, 0);
    StartMenu menu("oper", false);
    menu.followAccess(access);
    EXPECT_EQ(menu.iconPath(StartMenu::User), "images/admin.png");
    for (auto e : {StartMenu::Search, StartMenu::Backup, StartMenu::Settings, StartMenu::Shutdown})
        EXPECT_TRUE(menu.isEntryEnabled(e)) << e;
    EXPECT_TRUE(access.offers(UserRights::kLiveView, 1));
}

TEST_F(UserAccessScreensTest, UsersPageShowsEachUsersRightsAndKeepsTheAdministratorsFixed) {
    UserRights oper;
    oper.functions = UserRights::kPlayback | UserRights::kSettingsRecord;
    oper.liveChannels = 0b10;
    oper.playbackChannels = 0b01;
    link.entries[1].rights = oper;
    logIn(true, 0);
    UsersPage page;
    page.setGeometry(0, 0, 960, 400);
    page.show();
    page.open();
    ASSERT_EQ(page.userList()->count(), 2);
    EXPECT_EQ(page.userList()->itemText(0).toStdString(), "admin (Administrator)");

    page.userList()->setCurrentRow(0);
    EXPECT_FALSE(page.deleteButton()->isEnabled());
    EXPECT_FALSE(page.saveRightsButton()->isEnabled());
    for (size_t i = 0; i < UsersPage::functionBits().size(); ++i)
        EXPECT_FALSE(page.functionBox(int(i))->isEnabled()) << i;

    page.userList()->setCurrentRow(1);
    settle();
    shot("userspage.png");
    EXPECT_TRUE(page.deleteButton()->isEnabled());
    EXPECT_EQ(page.shownRights().functions, oper.functions);
    EXPECT_EQ(page.shownRights().liveChannels, oper.liveChannels);
    EXPECT_EQ(page.shownRights().playbackChannels, oper.playbackChannels);
    // An ordinary user with the system settings sees the accounts but manages none.
    access.logout();
    logIn(false, UserRights::kSettingsSystem);
    page.userList()->setCurrentRow(0);
    page.userList()->setCurrentRow(1);
    EXPECT_FALSE(page.deleteButton()->isEnabled());
    EXPECT_FALSE(page.saveRightsButton()->isEnabled());
    EXPECT_FALSE(page.functionBox(0)->isEnabled());

    UserEditDialog dialog(&access, UserEditDialog::ChangePassword, "oper");
    dialog.show();
    dialog.newPasswordEdit()->setText("abc");
    dialog.confirmEdit()->setText("abd");
    const size_t sent = link.requests.size();
    dialog.submit();
    settle();
    shot("usereditdialog.png");
    EXPECT_EQ(dialog.message().toStdString(), "The new passwords do not match.");
    EXPECT_EQ(link.requests.size(), sent); // a mismatch goes nowhere
}

TEST_F(UserAccessScreensTest, SixtyFourChannelsOfRightsFitTheUsersPageOfTheSettingsWindow) {
    DeviceProfile::current().channelCount = 64;
    link.loginRequired = false;
    SettingsManager manager;
    SettingsWindow* window = manager.openWindow();
    ASSERT_TRUE(window->openCategory(SettingsManager::System));
    UsersPage* page = nullptr;
    for (int i = 0; i < window->pageCount() && page == nullptr; ++i) {
        window->showPage(i);
        page = dynamic_cast<UsersPage*>(window->page());
    }
    ASSERT_NE(page, nullptr);
    settle();
    shot("userspage64.png");
    // Inside the page and no lower than a line of text: the layout scales with the screen,
    // so what fits here fits at 1280x720 and 1920x1080.
    auto inside = [page](VyWidget* w) {
        const VyPoint a = w->mapToWindow(VyPoint(0, 0)), p = page->mapToWindow(VyPoint(0, 0));
        return a.x >= p.x && a.y >= p.y && a.x + w->width() <= p.x + page->width() &&
               a.y + w->height() <= p.y + page->height() &&
               w->height() >= UiLook::instance().fontPixelSize();
    };
    for (BitMaskChecks* grid : {page->liveChannels(), page->playbackChannels()}) {
        ASSERT_EQ(grid->count(), 64);
        for (int b = 0; b < grid->count(); ++b)
            EXPECT_TRUE(inside(grid->box(b))) << "box " << b + 1;
    }
    EXPECT_TRUE(inside(page->saveRightsButton()));
    delete window;
}
