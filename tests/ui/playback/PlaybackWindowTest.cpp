// The playback window's device keys and buttons turn into the record data model's messages,
// and App's answers reach it only while it is open.
#include "ui/playback/PlaybackWindow.h"
#include "model/ModelTestSupport.h"
#include "model/RecDataManager.h"
#include "protocol/DaySearchResult.h"
#include "protocol/PicPlayCommand.h"
#include "protocol/PlaybackCommand.h"
#include "protocol/PlaybackControl.h"
#include "protocol/PlaybackJump.h"
#include "protocol/PlaybackStatus.h"
#include "protocol/RecordTypeBit.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"
#include "ui/playback/MotionSearchPanel.h"
#include "ui/playback/PlaybackDetailsPanel.h"
#include "ui/playback/PlaybackScreen.h"
#include "ui/playback/PlaybackSearchPanel.h"
#include "ui/playback/PlaybackSession.h"
#include "ui/playback/RecordTimeBar.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

class PlaybackWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        VyResources::setRoot(VY_RESOURCES_DIR);
        VyApplication::setDisplayDevice("mem:1280x720");
        app = std::make_unique<VyApplication>();
        app->screen()->cursor()->hide();
        info.channelCount = 8;
        RecorderLink::setInstance(&link);
        records = std::make_unique<RecDataManager>(info);
        window = std::make_unique<PlaybackWindow>(8);
        window->open();
    }
    void TearDown() override {
        window.reset();
        records.reset();
        RecorderLink::setInstance(nullptr);
        app.reset();
    }
    // Delivers an App notice to the session as the UI manager forwards it.
    void notice(uint16_t sub, const void* body, uint32_t len) {
        auto e = makeIpcEvent(300, sub, 0, body, len);
        VyApplication::sendEvent(window->session(), e.get());
    }

    std::unique_ptr<VyApplication> app;
    SystemInfoRecord info{};
    FakeRecorderLink link;
    std::unique_ptr<RecDataManager> records;
    std::unique_ptr<PlaybackWindow> window;
};

TEST_F(PlaybackWindowTest, DeviceKeysReachThePlayerOperations) {
    EXPECT_FALSE(window->handleDeviceKey(38));
    EXPECT_FALSE(window->handleDeviceKey(83));
    ASSERT_TRUE(window->handleDeviceKey(39)); // play from the cursor
    ASSERT_EQ(link.sentOf(300, 0).size(), 1u);
    ASSERT_EQ(link.sentOf(300, 3).size(), 1u);
    struct Case {
        int key;
        uint16_t sub;
        int32_t word0; // action or seconds
        int32_t word1; // value
    } cases[] = {
        {42, 6, int32_t(PlaybackControl::kSpeed), 1},
        {42, 6, int32_t(PlaybackControl::kSpeed), 2},
        {41, 6, int32_t(PlaybackControl::kSpeed), 1},
        {43, 8, -30, -1},
        {44, 8, 30, -1},
        {79, 6, int32_t(PlaybackControl::kFrameStep), 1},
        {39, 6, int32_t(PlaybackControl::kResume), 0},
        {39, 6, int32_t(PlaybackControl::kPause), 0},
    };
    for (const Case& c : cases) {
        link.sent.clear();
        ASSERT_TRUE(window->handleDeviceKey(c.key)) << c.key;
        ASSERT_EQ(link.sent.size(), 1u) << c.key;
        const SentMessage& m = link.sent[0];
        EXPECT_EQ(m.subType, c.sub) << c.key;
        int32_t words[2];
        std::memcpy(words, m.body.data(), sizeof words);
        EXPECT_EQ(words[0], c.word0) << c.key;
        EXPECT_EQ(words[1], c.word1) << c.key;
    }
    link.sent.clear();
    window->handleDeviceKey(40); // stop
    EXPECT_EQ(link.sentOf(300, 3).size(), 1u);
    EXPECT_FALSE(window->session()->isPlaying());
    window->handleDeviceKey(81); // next day: a new day search
    EXPECT_EQ(window->searchPanel()->date(), VyDate::currentDate().addDays(1));
    EXPECT_EQ(link.sentOf(300, 28).size(), 1u);
}

TEST_F(PlaybackWindowTest, MotionSearchSendsTheCellsMarkedByPressAndDrag) {
    window->control(PlaybackWindow::MotionSearch)->click();
    MotionSearchPanel* panel = window->motionPanel();
    ASSERT_TRUE(panel->isVisible());
    auto mouse = [&](int type, int column, int row, uint8_t buttons) {
        const VyRect r = panel->cellRect(column, row);
        const VyPoint p(r.left + r.width() / 2, r.top + r.height() / 2);
        VyMouseEvent e(type, p, p, type == VyEvent::MouseMove ? 0 : VyMouseEvent::LeftButton,
                       buttons);
        VyApplication::sendEvent(panel, &e);
    };
    // Everything is marked at first: a press clears a cell, the drag clears what it crosses.
    mouse(VyEvent::MouseButtonPress, 0, 0, 1);
    mouse(VyEvent::MouseMove, 3, 0, 1);
    mouse(VyEvent::MouseMove, 3, 21, 1);
    mouse(VyEvent::MouseButtonRelease, 3, 21, 0);
    link.sent.clear();
    panel->searchButton()->click();
    const auto sent = link.sentOf(300, 13);
    ASSERT_EQ(sent.size(), 1u);
    ASSERT_EQ(sent[0]->body.size(), 112u);
    for (int row = 0; row < 22; ++row) {
        uint32_t word;
        std::memcpy(&word, sent[0]->body.data() + 24 + 4 * row, 4);
        const uint32_t expected = row == 0 ? 0x3FFFF0u : 0x3FFFF7u;
        EXPECT_EQ(word, expected) << row;
    }
    // The cell's picture behind the grid is as large as the cell: the window, which is kept
    // for the next playback, lets it go when the search ends and when it closes.
    EXPECT_TRUE(panel->hasPicture());
    window->control(PlaybackWindow::MotionSearch)->click();
    EXPECT_FALSE(panel->hasPicture());
    window->control(PlaybackWindow::MotionSearch)->click();
    ASSERT_TRUE(panel->hasPicture());
    window->closeWindow();
    EXPECT_FALSE(panel->hasPicture());
}

TEST_F(PlaybackWindowTest, DayAnswersFillTheBarAndDetailsAndAChosenSegmentPlays) {
    window->search();
    const VyDate today = VyDate::currentDate();
    std::vector<uint8_t> body(16 + 2 * 16);
    DaySearchResult head;
    head.channel = 1;
    head.segmentCount = 2;
    head.day = RecDataManager::pack(VyDateTime(today));
    const RecordSegmentEntry entries[2] = {{3600, 7200, 1, 0}, {36000, 36600, 2, 0}};
    std::memcpy(body.data(), &head, sizeof head);
    std::memcpy(body.data() + 16, entries, sizeof entries);
    notice(3, body.data(), uint32_t(body.size()));
    head.channel = 7; // not asked for: dropped
    std::memcpy(body.data(), &head, sizeof head);
    notice(3, body.data(), uint32_t(body.size()));
    ASSERT_EQ(window->timeBar()->channels().size(), 1u);
    PlaybackDetailsPanel* details = window->detailsPanel();
    ASSERT_EQ(details->channel().segments.size(), 2u);

    link.sent.clear();
    const VyRect row = details->rowRect(1);
    ASSERT_FALSE(row.isEmpty());
    VyMouseEvent press(VyEvent::MouseButtonPress, VyPoint(row.left + 5, row.top + 2), VyPoint(0, 0),
                       VyMouseEvent::LeftButton, 1);
    VyApplication::sendEvent(details, &press);
    const auto play = link.sentOf(300, 3);
    ASSERT_EQ(play.size(), 1u);
    PlaybackCommand cmd;
    std::memcpy(&cmd, play[0]->body.data(), sizeof cmd);
    EXPECT_EQ(RecDataManager::unpack(cmd.start), VyDateTime(today, VyTime(10, 0)));
    EXPECT_EQ(window->timeBar()->cursorTime(), VyDateTime(today, VyTime(10, 0)));
}

TEST_F(PlaybackWindowTest, InstantPlaybackPlaysTheLastFiveMinutesOfOneChannel) {
    // Just after midnight the five minutes begin the day before, which is searched.
    const VyDateTime now(VyDate(2026, 3, 15), VyTime(0, 2, 0));
    window->instantPlayback(5, now);
    EXPECT_EQ(window->searchPanel()->checkedChannels(), std::vector<int>{5});
    EXPECT_EQ(window->searchPanel()->date(), VyDate(2026, 3, 14));
    const auto play = link.sentOf(300, 3);
    ASSERT_EQ(play.size(), 1u);
    PlaybackCommand cmd;
    std::memcpy(&cmd, play[0]->body.data(), sizeof cmd);
    EXPECT_EQ(cmd.windowCount, 1u);
    EXPECT_EQ(cmd.windowChannels[0], 5);
    EXPECT_EQ(RecDataManager::unpack(cmd.start), VyDateTime(VyDate(2026, 3, 14), VyTime(23, 57)));
    EXPECT_EQ(RecDataManager::unpack(cmd.end), now);
}

TEST_F(PlaybackWindowTest, ZoomButtonsTheShortestCheckedWinsAndTypeFiltersReachTheBar) {
    RecordTimeBar* bar = window->timeBar();
    EXPECT_EQ(window->zoomSpan(), 86400u);
    window->zoomButton(2)->click(); // 1 h with 24 h still checked
    EXPECT_EQ(window->zoomSpan(), 3600u);
    EXPECT_EQ(bar->span(), 3600u);
    window->zoomButton(0)->click();
    window->zoomButton(2)->click(); // none checked: the bar keeps its zoom
    EXPECT_EQ(window->zoomSpan(), 0u);
    EXPECT_EQ(bar->span(), 3600u);
    VyWheelEvent wheel(VyPoint(400, 30), VyPoint(0, 0), 120, 0);
    VyApplication::sendEvent(bar, &wheel);
    EXPECT_EQ(bar->span(), 1800u);
    EXPECT_TRUE(window->zoomButton(3)->isChecked());

    PlaybackSearchPanel* panel = window->searchPanel();
    panel->typeBox(PlaybackSearchPanel::Motion)->click();
    panel->typeBox(PlaybackSearchPanel::Alarm)->click();
    const uint32_t filter = bar->typeFilter();
    EXPECT_EQ(filter & (RecordTypeBit::Motion | RecordTypeBit::Alarm | RecordTypeBit::Pir), 0u);
    EXPECT_NE(filter & RecordTypeBit::Continuous, 0u);
    EXPECT_NE(filter & RecordTypeBit::Smart, 0u);
}

TEST_F(PlaybackWindowTest, PicturePlaybackSendsOneWindowPerCellThenPlaysAndStops) {
    window->togglePlay(); // video playing: picture playback stops it first
    link.sent.clear();
    window->control(PlaybackWindow::PicturePlay)->click();
    ASSERT_EQ(link.sent.size(), 6u); // stop, four windows, play
    EXPECT_EQ(link.sent[0].subType, 3);
    for (int i = 1; i <= 4; ++i) {
        ASSERT_EQ(link.sent[size_t(i)].subType, 27);
        RecPicWindow w;
        std::memcpy(&w, link.sent[size_t(i)].body.data(), sizeof w);
        EXPECT_EQ(w.window, uint32_t(i - 1));
        EXPECT_EQ(w.channel, uint32_t(i - 1));
        EXPECT_EQ(w.splitWnds, 4u);
        EXPECT_EQ(w.width, 1280u);
    }
    EXPECT_EQ(link.sent[5].subType, 19);
    EXPECT_EQ(link.sent[5].body[0], PicPlayCommand::kPlay);
    link.sent.clear();
    window->control(PlaybackWindow::PicturePlay)->click();
    ASSERT_EQ(link.sentOf(300, 19).size(), 1u);
    EXPECT_EQ(link.sentOf(300, 19)[0]->body[0], PicPlayCommand::kStop);
}

TEST_F(PlaybackWindowTest, ProgressMovesTheCursorOnlyWhilePlayingAndOpen) {
    const VyDateTime from(VyDate::currentDate(), VyTime(9, 0));
    window->timeBar()->setCursorTime(from);
    window->togglePlay();
    PlaybackStatus st;
    st.time = RecDataManager::pack(from.addSecs(42));
    notice(14, &st, sizeof st);
    EXPECT_EQ(window->timeBar()->cursorTime(), from.addSecs(42));
    notice(14, &st, 12); // short: dropped
    EXPECT_EQ(window->session()->progressCount(), 1);
    window->closeWindow();
    EXPECT_FALSE(window->session()->readyForRecorderMessages());
}

} // namespace

TEST_F(PlaybackWindowTest, CellsShowTheVideoPlaneOnlyWhilePlaying) {
    auto flushed = [&](VyPoint p) {
        for (int i = 0; i < 5; ++i)
            app->processPostedEvents();
        VyScreen* s = app->screen();
        return reinterpret_cast<const uint16_t*>(s->mapping() + p.y * s->lineLength())[p.x];
    };
    const VyRect cell = window->screen()->cellRects()[1];
    const VyPoint inside = window->screen()->mapToGlobal(
        VyPoint(cell.left + cell.width() / 2, cell.top + cell.height() / 2));
    const int pad = UiLook::scaledX(8) + 1; // inside the box of the channel number
    const VyPoint corner = window->screen()->mapToGlobal(VyPoint(cell.left + pad, cell.top + pad));
    constexpr uint16_t kOverlay = 0x8000; // set: the interface covers the video plane
    EXPECT_NE(flushed(inside) & kOverlay, 0) << "before playing, whatever App shows is hidden";
    window->handleDeviceKey(39);
    EXPECT_EQ(flushed(inside), 0) << "playing: the cell lets App's picture through";
    EXPECT_NE(flushed(corner) & kOverlay, 0) << "the channel number keeps its dark box";
    window->handleDeviceKey(40);
    EXPECT_NE(flushed(inside) & kOverlay, 0) << "stopped: covered again";
}

TEST_F(PlaybackWindowTest, MovedCellsAreToldToAppWhilePlayingOnly) {
    auto widthOfFirstCell = [&](const SentMessage* split) {
        uint16_t w = 0; // PlaybackWindowRect at 16: channel i32, x, y, width u16
        std::memcpy(&w, split->body.data() + 16 + 8, sizeof w);
        return w;
    };
    window->control(PlaybackWindow::FullScreen)->click();
    window->control(PlaybackWindow::FullScreen)->click();
    EXPECT_TRUE(link.sentOf(300, 0).empty()) << "nothing plays: nothing to move";
    window->handleDeviceKey(39);
    ASSERT_EQ(link.sentOf(300, 0).size(), 1u);
    const uint16_t before = widthOfFirstCell(link.sentOf(300, 0)[0]);
    link.sent.clear();
    window->control(PlaybackWindow::FullScreen)->click();
    ASSERT_EQ(link.sentOf(300, 0).size(), 1u);
    EXPECT_GT(widthOfFirstCell(link.sentOf(300, 0)[0]), before);
    EXPECT_TRUE(link.sentOf(300, 3).empty()) << "the cells play on";
    link.sent.clear();
    window->control(PlaybackWindow::Clip)->click(); // only the time bar moves
    EXPECT_TRUE(link.sentOf(300, 0).empty());
}
