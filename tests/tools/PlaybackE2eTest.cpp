// The playback window against the simulated recorder on a real socket, both in this process:
// month and day search, play from a press on the time bar, pause, speed, seek by a second
// press, and a clip exported to the simulated USB stick (and one cancelled). The simulator's
// clock is moved by hand, so nothing here depends on how fast the machine is.
#include "SimPlayback.h"
#include "SimPlaybackPlane.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimTags.h"
#include "SimThumbnails.h"

#include "ipc/IpcClient.h"
#include "model/IpcRecorderLink.h"
#include "model/SystemInfo.h"
#include "model/UiManager.h"
#include "model/UiModels.h"
#include "protocol/RecordTypeBit.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/playback/MotionSearchPanel.h"
#include "ui/playback/PlaybackScreen.h"
#include "ui/playback/PlaybackSearchPanel.h"
#include "ui/playback/PlaybackSession.h"
#include "ui/playback/PlaybackWindow.h"
#include "ui/playback/RecordTimeBar.h"
#include "ui/playback/TagSearchPanel.h"
#include "ui/playback/ThumbnailBar.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

class PlaybackE2e : public ::testing::Test {
protected:
    void SetUp() override {
        char dir[] = "/tmp/playback-e2e-XXXXXX";
        ASSERT_TRUE(::mkdtemp(dir));
        m_dir = dir;
        VyResources::setRoot(VY_RESOURCES_DIR);
        translation = new VyTranslation(VyString(VY_RESOURCES_DIR "/language"), nullptr);
        VyTranslation::resetInstance(translation);
        translation->changeLanguage(VyTranslation::kEnglish);
        VyApplication::setDisplayDevice("mem:1280x720");
        app = std::make_unique<VyApplication>();
        app->screen()->cursor()->hide();

        config.channels = 8;
        config.recordSeed = 5;
        config.usbFreeMiB = 4096;
        recorder = std::make_unique<SimRecorder>(config);
        playback = std::make_unique<SimPlayback>(config, SimRecordDb::localToday());
        server.setLogging(false);
        recorder->attach(server);
        playback->attach(server);
        tags = std::make_unique<SimTags>(config, SimRecordDb::localToday());
        tags->attach(server);
        thumbnails = std::make_unique<SimThumbnails>(playback->db());
        thumbnails->attach(server);
        ASSERT_TRUE(server.listen(m_dir + "/IPC_UI"));
        ASSERT_TRUE(server.start());

        std::memset(&SystemInfo::record(), 0, sizeof(SystemInfoRecord));
        SystemInfo::record().channelCount = config.channels;
        IpcClientConfig c;
        c.socketPath = m_dir + "/IPC_UI";
        c.joinableThreads = true;
        ASSERT_TRUE(client.UI_IPC_ClientInit(nullptr, c));
        RecorderLink::setInstance(&link);
        manager = std::make_unique<UiManager>(models.get(), nullptr);
        window = new PlaybackWindow(config.channels);
        window->setSnapshotDirectory(VyString(m_dir.c_str()));
        window->open();
    }
    void TearDown() override {
        delete window;
        client.stop();
        server.stop();
        manager.reset();
        models.reset();
        RecorderLink::setInstance(nullptr);
        app.reset();
        VyTranslation::resetInstance();
        ::unlink((m_dir + "/IPC_UI").c_str());
        ::rmdir(m_dir.c_str());
    }
    template <typename Done>
    bool runUntil(Done done) {
        for (int i = 0; i < 5000 && !done(); ++i) {
            if (app->processPostedEvents() == 0)
                usleep(1000);
        }
        return done();
    }
    void press(VyWidget* w, VyPoint p) {
        VyMouseEvent press(VyEvent::MouseButtonPress, p, p, VyMouseEvent::LeftButton, 1);
        VyApplication::sendEvent(w, &press);
        VyMouseEvent release(VyEvent::MouseButtonRelease, p, p, VyMouseEvent::LeftButton, 0);
        VyApplication::sendEvent(w, &release);
    }
    void pressBar(const VyDateTime& t) {
        RecordTimeBar* bar = window->timeBar();
        const VyPoint p(bar->timeToX(t), bar->rowTrack(0).top + 2);
        VyMouseEvent press(VyEvent::MouseButtonPress, p, p, VyMouseEvent::LeftButton, 1);
        VyApplication::sendEvent(bar, &press);
        VyMouseEvent release(VyEvent::MouseButtonRelease, p, p, VyMouseEvent::LeftButton, 0);
        VyApplication::sendEvent(bar, &release);
    }
    long long simSeconds() const { return playback->state().timeMs / 1000; }
    static long long localSeconds(const VyDateTime& t) {
        return SimRecordDb::daysFromCivil(t.date().year(), t.date().month(), t.date().day()) *
                   86400LL +
               t.time().msecsSinceStartOfDay() / 1000;
    }
    std::string status() const { return window->statusLabel()->text().c_str(); }

    std::string m_dir;
    VyTranslation* translation = nullptr;
    std::unique_ptr<VyApplication> app;
    SimRecorderConfig config;
    SimServer server;
    std::unique_ptr<SimRecorder> recorder;
    std::unique_ptr<SimPlayback> playback;
    std::unique_ptr<SimTags> tags;
    std::unique_ptr<SimThumbnails> thumbnails;
    IpcClient client;
    IpcRecorderLink link{client};
    std::unique_ptr<UiModels> models = std::make_unique<UiModels>();
    std::unique_ptr<UiManager> manager;
    PlaybackWindow* window = nullptr;
};

TEST_F(PlaybackE2e, SearchPlayPauseSpeedSeekAndExportAClip) {
    PlaybackSession* session = window->session();
    const VyDate today = VyDate::currentDate();
    const std::vector<int> channels = window->searchPanel()->checkedChannels();
    ASSERT_EQ(channels, (std::vector<int>{0, 1, 2, 3}));

    // The month: the days the simulator holds recordings on are marked.
    ASSERT_TRUE(runUntil([&] { return session->markedDays() != 0; }));
    const uint8_t bits[16] = {0x0F};
    EXPECT_EQ(session->markedDays(),
              playback->db().monthDays(today.year(), today.month(), bits, 16, 0));
    EXPECT_TRUE(window->searchPanel()->isMarked(today.day()));

    // The day: every channel's segments reach the time bar.
    window->search();
    ASSERT_TRUE(runUntil([&] { return window->timeBar()->channels().size() == 4; }));
    const long day = SimRecordDb::daysFromCivil(today.year(), today.month(), today.day());
    for (const RecordChannel& ch : window->timeBar()->channels())
        EXPECT_EQ(ch.segments.size(), playback->db().day(ch.channel, day).size()) << ch.channel;

    // A press on the bar plays from there.
    pressBar(VyDateTime(today, VyTime(10, 0)));
    const VyDateTime pressed = window->timeBar()->cursorTime();
    ASSERT_TRUE(runUntil([&] { return playback->state().playing; }));
    EXPECT_EQ(simSeconds(), localSeconds(pressed));
    EXPECT_EQ(playback->state().windowChannels, channels);
    playback->advance(1000);
    ASSERT_TRUE(runUntil([&] { return session->playbackTime() == pressed.addSecs(1); }));
    EXPECT_EQ(window->timeBar()->cursorTime(), pressed.addSecs(1));

    // Pause: the recorder's time stands.
    window->togglePlay();
    ASSERT_TRUE(runUntil([&] { return playback->state().paused; }));
    const long long paused = simSeconds();
    playback->advance(5000);
    EXPECT_EQ(simSeconds(), paused);

    // Resume at 4x: a second moves the cells four.
    window->togglePlay();
    window->control(PlaybackWindow::Faster)->click();
    window->control(PlaybackWindow::Faster)->click();
    ASSERT_TRUE(
        runUntil([&] { return playback->state().speed == 2 && !playback->state().paused; }));
    playback->advance(1000);
    ASSERT_TRUE(runUntil([&] { return session->playbackTime() == pressed.addSecs(5); }));

    // A press while playing seeks.
    pressBar(VyDateTime(today, VyTime(15, 0)));
    const VyDateTime seek = window->timeBar()->cursorTime();
    ASSERT_TRUE(runUntil([&] { return simSeconds() == localSeconds(seek); }));

    // Clip mode: two presses mark the clip, the backup button exports it.
    window->control(PlaybackWindow::Clip)->click();
    pressBar(VyDateTime(today, VyTime(15, 0)));
    pressBar(VyDateTime(today, VyTime(15, 10)));
    ASSERT_TRUE(window->timeBar()->clipStart() < window->timeBar()->clipEnd());
    EXPECT_EQ(simSeconds(), localSeconds(seek)) << "presses in clip mode do not seek";
    window->control(PlaybackWindow::Backup)->click();
    ASSERT_TRUE(runUntil([&] { return playback->state().exporting; }));
    for (int i = 0; i < 4; ++i)
        playback->advance(1000);
    ASSERT_TRUE(
        runUntil([&] { return session->exportState() == PlaybackSession::ExportState::Done; }));
    EXPECT_EQ(status(), "The clip was exported.");
    EXPECT_LT(playback->state().usbFreeMiB, 4096u);

    // A second export, cancelled half way.
    window->control(PlaybackWindow::Backup)->click();
    ASSERT_TRUE(runUntil([&] { return playback->state().exporting; }));
    playback->advance(1000);
    ASSERT_TRUE(runUntil([&] { return session->exportPercent() == 25; }));
    EXPECT_EQ(status(), "Exporting the clip: 25%");
    window->cancelButton()->click();
    ASSERT_TRUE(
        runUntil([&] { return session->exportState() == PlaybackSession::ExportState::Failed; }));
    EXPECT_EQ(status(), "The export was cancelled.");
    EXPECT_EQ(playback->state().exportsDone, 1);

    // A snapshot of the selected cell, named after its channel and picture time.
    window->control(PlaybackWindow::Snapshot)->click();
    EXPECT_NE(window->lastSnapshot().c_str(), std::string());
    EXPECT_NE(std::string(window->lastSnapshot().c_str()).find("/CH1_"), std::string::npos);
    ::unlink(window->lastSnapshot().c_str());

    // Motion search over the whole picture of the selected cell: its motion events alone.
    window->control(PlaybackWindow::MotionSearch)->click();
    window->motionPanel()->searchButton()->click();
    ASSERT_TRUE(runUntil([&] { return window->timeBar()->channels().size() == 1; }));
    size_t motion = 0;
    for (const RecordSegmentEntry& e : playback->db().day(0, day))
        motion += (e.typeBits & RecordTypeBit::Motion) != 0;
    const auto& found = window->timeBar()->channels()[0].segments;
    EXPECT_EQ(found.size(), motion);
    for (const RecordSegment& s : found)
        EXPECT_NE(s.typeBits & RecordTypeBit::Motion, 0u);

    window->control(PlaybackWindow::Stop)->click();
    ASSERT_TRUE(runUntil([&] { return !playback->state().playing; }));
}

TEST_F(PlaybackE2e, TagsThumbnailsAndThePlaybackPlane) {
    PlaybackSession* session = window->session();
    const VyDate today = VyDate::currentDate();
    const long long midnight = localSeconds(VyDateTime(today));

    // Tag search: the keyword and channels pick the simulator's tags of the day.
    window->control(PlaybackWindow::Tags)->click();
    TagSearchPanel* panel = window->tagPanel();
    ASSERT_TRUE(panel->isVisible());
    panel->keywordEdit()->setText("entry");
    for (int c = 0; c < config.channels; ++c)
        panel->setChannelChecked(c, c == 2 || c == 5);
    panel->searchButton()->click();
    ASSERT_TRUE(runUntil([&] { return !session->tags().empty(); }));
    std::vector<long long> expected;
    for (int c : {2, 5})
        for (const PlaybackTag& t : tags->find(c, midnight, midnight + 86399, "entry"))
            expected.push_back(SimRecordDb::secondsOf(t.time));
    ASSERT_EQ(panel->tags().size(), expected.size());
    for (const RecordTag& t : panel->tags()) {
        EXPECT_EQ(t.name, "ENTRY");
        EXPECT_TRUE(t.channel == 2 || t.channel == 5) << t.channel;
        EXPECT_NE(std::find(expected.begin(), expected.end(), localSeconds(t.time)),
                  expected.end());
    }

    // OK on a found tag plays from it.
    panel->resultList()->setCurrentRow(0);
    VyKeyEvent ok(VyEvent::KeyPress, VyKeyEvent::KeyOk);
    VyApplication::sendEvent(panel->resultList(), &ok);
    const RecordTag first = panel->tags()[0];
    ASSERT_TRUE(runUntil([&] { return playback->state().playing; }));
    EXPECT_EQ(simSeconds(), localSeconds(first.time));

    // A custom tag at the playback time is found by the next search.
    playback->advance(1000);
    ASSERT_TRUE(runUntil([&] { return session->playbackTime() == first.time.addSecs(1); }));
    for (int c = 0; c < config.channels; ++c)
        panel->setChannelChecked(c, true);
    panel->keywordEdit()->setText("parcel");
    panel->addButton()->click();
    ASSERT_TRUE(runUntil([&] { return tags->addedCount() == 1; }));
    panel->searchButton()->click();
    ASSERT_TRUE(runUntil([&] { return panel->tags().size() == 1; }));
    EXPECT_EQ(panel->tags()[0].name, "parcel");
    EXPECT_EQ(panel->tags()[0].time, first.time.addSecs(1));

    // Thumbnails of the selected row over the bar's span, decoded pixel for pixel. Stopped
    // first, so that the press below starts playing rather than seeking.
    window->control(PlaybackWindow::Stop)->click();
    ASSERT_TRUE(runUntil([&] { return !playback->state().playing; }));
    for (int c = 0; c < config.channels; ++c) // the tag left its channel alone in the split
        window->searchPanel()->setChannelChecked(c, c < 4);
    window->search();
    ASSERT_TRUE(runUntil([&] { return window->timeBar()->channels().size() == 4; }));
    window->control(PlaybackWindow::Thumbnails)->click();
    ThumbnailBar* bar = window->thumbnailBar();
    ASSERT_TRUE(bar->isVisible());
    ASSERT_TRUE(runUntil([&] { return !bar->thumbnails().empty(); }));
    EXPECT_EQ(int(bar->thumbnails().size()), bar->slotCount());
    const int channel = session->thumbnailChannel();
    int shown = -1;
    for (size_t i = 0; i < bar->thumbnails().size(); ++i) {
        const RecordThumbnail& t = bar->thumbnails()[i];
        if (!t.time.isValid())
            continue;
        const long long at = localSeconds(t.time);
        EXPECT_TRUE(SimPlaybackPlane::recordedAt(playback->db(), channel, at));
        const auto sim = SimPlaybackPlane::thumbnail(channel, at, 64, 36);
        const unsigned v = sim[18 * 64 + 40];
        const vyargb rgb = 0xFF000000u | ((v >> 11) * 255 / 31) << 16 |
                           ((v >> 5 & 63) * 255 / 63) << 8 | (v & 31) * 255 / 31;
        EXPECT_EQ(t.picture.pixel(40, 18), rgb) << i;
        shown = int(i);
    }
    ASSERT_GE(shown, 0) << "no step of the span has a recording";

    // A press on a thumbnail plays from there.
    const VyRect slot = bar->slotRect(shown);
    press(bar, VyPoint(slot.left + 2, slot.top + 2));
    const long long chosen = localSeconds(bar->thumbnails()[size_t(shown)].time);
    ASSERT_TRUE(runUntil([&] { return simSeconds() == chosen; }));

    // The simulator's video plane shows the playing cells with their playback time.
    SimPlaybackFrame frame;
    ASSERT_TRUE(playback->planeFrame(1280, 720, &frame));
    EXPECT_EQ(frame.clock, SimPlaybackPlane::stamp(playback->state().timeMs));
    const std::vector<VyRect> cells = window->screen()->cellRects();
    ASSERT_EQ(frame.record.cellCount, cells.size());
    const VyPoint at = window->screen()->mapToGlobal(VyPoint(cells[1].left, cells[1].top));
    EXPECT_EQ(frame.record.cells[1].channel, window->screen()->channels()[1]);
    EXPECT_EQ(frame.record.cells[1].left, at.x);
    EXPECT_EQ(frame.record.cells[1].top, at.y);
    window->control(PlaybackWindow::Stop)->click();
    ASSERT_TRUE(runUntil([&] { return !playback->state().playing; }));
    EXPECT_FALSE(playback->planeFrame(1280, 720, &frame));
}

} // namespace
