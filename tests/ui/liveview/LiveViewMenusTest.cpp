// The live view's menus and keys: a layout chosen in a menu travels as event 1031 to the
// manager and is applied; the sequence menu sets the dwell; the device keys of the main view
// and of the video screen.
#include "LiveViewTestApp.h"

#include "ui/ShellActions.h"
#include "ui/liveview/LiveViewController.h"
#include "ui/liveview/MainViewTaskBar.h"
#include "ui/liveview/MoreLayoutMenu.h"
#include "ui/liveview/PlayMenu.h"
#include "ui/liveview/ScreanLayoutMenu.h"
#include "ui/liveview/StartMenu.h"
#include "ui/liveview/VideoLayout.h"
#include "ui/liveview/VyVideoScreen.h"

namespace {

class LiveViewMenusTest : public LiveViewTest {
protected:
    VyVideoScreen* screen() const { return window->videoScreen(); }
    // Opens the menu, moves the highlight to the item and presses OK.
    void choose(VyMenu* menu, int item) {
        menu->popup(VyPoint(10, 10));
        menu->setHighlighted(item);
        menu->keyActivate();
        settle();
    }
};

// Records which screen the main view asked for.
class RecordingShell : public ShellActions {
public:
    void openPlayback(int channel, int64_t) override {
        asked.push_back("playback " + std::to_string(channel));
    }
    void openSettings() override { asked.push_back("settings"); }
    void openBackup() override { asked.push_back("backup"); }
    void openUserMenu() override { asked.push_back("user"); }
    void toggleLock() override { asked.push_back("lock"); }
    void openShutdown() override { asked.push_back("shutdown"); }
    void openAnalytics() override { asked.push_back("analytics"); }
    std::vector<std::string> asked;
};

} // namespace

TEST_F(LiveViewMenusTest, StartMenuEntriesOpenTheirScreensThroughTheShell) {
    open(4);
    RecordingShell shell;
    ShellActions* previous = ShellActions::instance();
    ShellActions::install(&shell);
    // Rows: user, separator, search, backup, settings, separator, lock, shutdown.
    for (int row : {0, 2, 3, 4, 6, 7}) {
        EXPECT_TRUE(window->taskBar()->keyAction(74));
        settle();
        auto* menu = dynamic_cast<VyMenu*>(window->controller()->openMenu());
        ASSERT_NE(menu, nullptr);
        menu->setHighlighted(row);
        menu->keyActivate();
        settle();
    }
    ShellActions::install(previous);
    EXPECT_EQ(shell.asked, (std::vector<std::string>{"user", "playback -1", "backup", "settings",
                                                     "lock", "shutdown"}));
}

TEST_F(LiveViewMenusTest, LayoutMenusOfferTheCountListAndTheChoiceIsApplied) {
    open(16);
    ScreanLayoutMenu plain(16);
    EXPECT_EQ(plain.layoutIds(), (std::vector<int>{0, 1, 4, 7, 11}));
    EXPECT_EQ(plain.itemText(4), "16 Split");
    MoreLayoutMenu more(16);
    EXPECT_EQ(more.layoutIds(), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(more.itemText(6), "10-1 Split");
    choose(&more, 9);
    EXPECT_EQ(manager->requestedLayout(), 9);
    EXPECT_EQ(screen()->shownLayoutIndex(), 9);
    EXPECT_EQ(screen()->videoLayout()->items().size(), 13u);
    // An identifier outside the catalogue gives the first layout.
    ScreanLayoutMenu::postLayoutChoice(77);
    settle();
    EXPECT_EQ(screen()->shownLayoutIndex(), 0);
}

TEST_F(LiveViewMenusTest, SequenceMenuSetsTheDwellOrStopsTheSequence) {
    open(8);
    PlayMenu menu;
    EXPECT_EQ(menu.dwellTimes(), (std::vector<int>{5, 10, 20, 30, 60, 120, 300, 600, -1}));
    EXPECT_EQ(menu.itemText(0), "5 s");
    EXPECT_EQ(menu.itemText(7), "10 min");
    choose(&menu, 1);
    EXPECT_EQ(manager->sequenceDwell(), 10);
    for (int i = 0; i < 3; ++i)
        advance(1000);
    EXPECT_EQ(PlayMenu::remainingText(manager->secondsLeft()), "Sequence: 7 s");
    choose(&menu, menu.itemCount() - 1);
    EXPECT_EQ(manager->sequenceDwell(), -1);
    PlayMenu shortMenu(true);
    EXPECT_EQ(shortMenu.itemText(1), "10s");
    EXPECT_EQ(shortMenu.dwellTimes().size(), 6u);
}

TEST_F(LiveViewMenusTest, StartMenuShowsTheUserAndTheLockState) {
    StartMenu menu("admin", true);
    EXPECT_EQ(menu.iconPath(StartMenu::User), "images/admin.png");
    EXPECT_EQ(menu.iconPath(StartMenu::Lock), "images/unlocked.png");
    menu.setLocked(true);
    EXPECT_EQ(menu.iconPath(StartMenu::Lock), "images/locked.png");
    choose(&menu, menu.itemCount() - 1);
    EXPECT_EQ(menu.chosenEntry(), StartMenu::Shutdown);
    EXPECT_EQ(StartMenu("guard", false).iconPath(StartMenu::User), "images/user.png");
}

TEST_F(LiveViewMenusTest, DeviceKeysChangeTheSplitPageAndSelection) {
    open(16);
    EXPECT_TRUE(window->keyAction(MainViewWindow::KeySplit4));
    EXPECT_EQ(screen()->shownLayoutIndex(), 1);
    EXPECT_TRUE(window->selectChannel(11));
    EXPECT_EQ(screen()->pageStart(), 8);
    EXPECT_EQ(screen()->selectedCell()->channel(), 10);
    EXPECT_TRUE(screen()->keyAction(VyVideoScreen::KeyNextCell));
    EXPECT_EQ(screen()->selectedCell()->channel(), 11);
    EXPECT_TRUE(screen()->keyAction(VyVideoScreen::KeyNextCell)); // wraps within the page
    EXPECT_EQ(screen()->selectedCell()->channel(), 8);
    EXPECT_TRUE(window->keyAction(MainViewWindow::KeyEnlarge));
    EXPECT_TRUE(screen()->isSingleView());
    EXPECT_TRUE(window->keyAction(MainViewWindow::KeyNextSplit));
    EXPECT_EQ(screen()->shownLayoutIndex(), 1); // from "1": the next plain split
    EXPECT_FALSE(window->selectChannel(17));
    EXPECT_FALSE(window->keyAction(200));
}
