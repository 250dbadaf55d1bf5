// The playback window as the main view opens it through the window layer: the start menu's
// search, instant playback of one channel, the remote's playback keys while it is open (and
// not after), and the live view taking the screen back when it closes.
#include "../liveview/LiveViewTestApp.h"

#include "model/RecDataManager.h"
#include "model/SystemInfo.h"
#include "model/UserAccess.h"
#include "protocol/PlaybackCommand.h"
#include "protocol/PlaybackControl.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/DvrKeyEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/input/VyKeyManager.h"
#include "toolkit/widgets/CWidget.h"
#include "toolkit/widgets/VyMenu.h"
#include "ui/WindowShell.h"
#include "ui/liveview/LiveViewController.h"
#include "ui/liveview/MainViewTaskBar.h"
#include "ui/playback/PlaybackSearchPanel.h"
#include "ui/playback/PlaybackWindow.h"

#include <cstring>

namespace {

class PlaybackShellTest : public LiveViewTest {
protected:
    void SetUp() override {
        LiveViewTest::SetUp();
        std::memset(&SystemInfo::record(), 0, sizeof(SystemInfoRecord));
        SystemInfo::record().channelCount = 8;
        records = std::make_unique<RecDataManager>(SystemInfo::record());
        VyKeyManager::Setup setup;
        setup.startPollThread = false;
        keys = std::make_unique<VyKeyManager>(setup);
        link.rosterReply.assign(8, 0xFF);
        shell = std::make_unique<WindowShell>();
        shell->showMainView();
        settle();
    }
    void TearDown() override {
        shell.reset();
        keys.reset();
        records.reset();
        LiveViewTest::TearDown();
    }
    void key(uint32_t value) {
        DvrKeyEvent e(value);
        VyApplication::sendEvent(keys.get(), &e);
        settle();
    }
    void chooseSearchInStartMenu() {
        MainViewWindow* main = shell->mainView();
        ASSERT_TRUE(main->taskBar()->keyAction(74));
        settle();
        auto* menu = dynamic_cast<VyMenu*>(main->controller()->openMenu());
        ASSERT_NE(menu, nullptr);
        menu->setHighlighted(2); // user, separator, search, ...
        menu->keyActivate();
        settle();
    }

    std::unique_ptr<RecDataManager> records;
    std::unique_ptr<VyKeyManager> keys;
    std::unique_ptr<WindowShell> shell;
};

} // namespace

TEST_F(PlaybackShellTest, StartMenuSearchOpensPlaybackWhoseKeysWorkUntilItClosesToLiveView) {
    key(39);
    EXPECT_EQ(link.count(300, 3), 0) << "no playback window, no playback key";

    chooseSearchInStartMenu();
    PlaybackWindow* playback = shell->playback();
    ASSERT_NE(playback, nullptr);
    EXPECT_TRUE(playback->isVisible());
    EXPECT_EQ(link.count(300, 28), 1); // the day of the checked channels
    EXPECT_EQ(link.count(300, 1), 1);  // the marked days of the month
    EXPECT_FALSE(manager->isShown());

    key(39); // play from the cursor
    EXPECT_EQ(link.count(300, 3), 1);
    EXPECT_TRUE(playback->session()->isPlaying());
    key(42); // faster
    ASSERT_NE(link.last(300), nullptr);
    EXPECT_EQ(link.last(300)->subType, 6);
    EXPECT_EQ(playback->session()->speed(), 1);

    const int previews = link.count(100, 1);
    const int announced = link.count(300, 35);
    VyKeyEvent escape(VyEvent::KeyPress, VyKeyEvent::KeyEscape);
    VyApplication::sendEvent(playback, &escape);
    settle();
    EXPECT_FALSE(playback->isVisible());
    EXPECT_FALSE(playback->session()->isPlaying());
    EXPECT_EQ(link.count(300, 3), 2) << "closing stops the cells";
    EXPECT_TRUE(manager->isShown());
    EXPECT_EQ(link.count(100, 1), previews + 1) << "the live decoders restart";
    EXPECT_EQ(link.count(300, 35), announced + 1);

    const size_t sent = link.sent.size();
    key(39);
    key(42);
    EXPECT_EQ(link.sent.size(), sent) << "playback keys after the window closed";

    // Opened again, the same window searches again.
    shell->openPlayback(-1, 0);
    EXPECT_EQ(shell->playback(), playback);
    EXPECT_EQ(link.count(300, 28), 2);
}

// The playback key works over any screen; when playback closes, the screen it was opened
// over must still be above the live view, or it would sit hidden, out of the keys' reach.
TEST_F(PlaybackShellTest, ClosingPlaybackLeavesTheScreenItOpenedOverAboveTheLiveView) {
    CWidget other(nullptr, VyWidget::Window);
    other.setGeometry(100, 100, 400, 300);
    other.show();
    settle();
    shell->openPlayback(-1, 0);
    PlaybackWindow* playback = shell->playback();
    ASSERT_NE(playback, nullptr);
    VyKeyEvent escape(VyEvent::KeyPress, VyKeyEvent::KeyEscape);
    VyApplication::sendEvent(playback, &escape);
    settle();
    ASSERT_FALSE(playback->isVisible());
    VyScreen* screen = VyApplication::instance()->screen();
    int mainAt = -1;
    int otherAt = -1;
    for (int i = 0; i < screen->windowCount(); ++i) {
        if (screen->windowAt(i) == screen->windowOf(shell->mainView()))
            mainAt = i;
        if (screen->windowAt(i) == screen->windowOf(&other))
            otherAt = i;
    }
    ASSERT_GE(mainAt, 0);
    EXPECT_GT(otherAt, mainAt);
}

TEST_F(PlaybackShellTest, InstantPlaybackPlaysTheChannelAloneFromFiveMinutesAgo) {
    const long long now = VyDateTime::currentDateTime().toTime_t();
    shell->openPlayback(2, now - PlaybackWindow::kInstantSeconds);
    ASSERT_NE(shell->playback(), nullptr);
    ASSERT_EQ(link.count(300, 3), 1);
    const RecordedMessage* play = link.last(300);
    ASSERT_EQ(play->subType, 3);
    ASSERT_EQ(play->body.size(), PlaybackCommand::kSize);
    PlaybackCommand cmd;
    std::memcpy(&cmd, play->body.data(), sizeof cmd);
    EXPECT_EQ(cmd.command, PlaybackCommand::kPlay);
    EXPECT_EQ(cmd.windowCount, 1u);
    EXPECT_EQ(cmd.windowChannels[0], 2);
    EXPECT_EQ(RecDataManager::unpack(cmd.start),
              VyDateTime::fromTime_t(now - PlaybackWindow::kInstantSeconds));
    EXPECT_EQ(shell->playback()->session()->playingChannels(), std::vector<int>{2});

    // A channel without a time: its day is searched, that channel alone.
    const int searches = link.count(300, 28);
    shell->openPlayback(5, 0);
    EXPECT_EQ(shell->playback()->searchPanel()->checkedChannels(), std::vector<int>{5});
    EXPECT_EQ(link.count(300, 28), searches + 1);
}

TEST_F(PlaybackShellTest, LockedScreenKeepsPlaybackClosed) {
    UserAccess access;
    access.lockScreen();
    shell->openPlayback(-1, 0);
    EXPECT_EQ(shell->playback(), nullptr);
    EXPECT_EQ(link.count(300, 28), 0);
}
