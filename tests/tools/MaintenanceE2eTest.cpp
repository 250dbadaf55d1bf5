// The maintenance screens against the simulated recorder: a backup found by type and copied
// file by file with progress, a stick pulled out mid-way, a cancel and a selection too large
// for the stick; shutting down and restarting only once confirmed; the system log paged and
// filtered and exported whole to the stick; an upgrade refused for another model or a damaged file,
// and cut short by the stick going away; factory defaults keeping the groups chosen.
#include "SimFaces.h"
#include "SimUiFixture.h"

#include "protocol/AutoRestartBlock.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/NetworkBlock.h"
#include "protocol/RecordParamBlock.h"
#include "protocol/RecordTypeBit.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VyTableWidget.h"
#include "toolkit/widgets/VyTimeEdit.h"
#include "ui/maintenance/BackupWindow.h"
#include "ui/maintenance/FactoryDefaultsDialog.h"
#include "ui/maintenance/ProgressDialog.h"
#include "ui/maintenance/ShutdownDialog.h"
#include "ui/maintenance/SystemLogWindow.h"
#include "ui/maintenance/UpgradeWindow.h"
#include "ui/playback/PlaybackSession.h"
#include "ui/settings/BitMaskChecks.h"
#include "ui/settings/MaintenancePage.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace {

using Backup = BackupWindow::ExportState;

class MaintenanceE2e : public SimUiFixture {
protected:
    // Lets the simulated stick write for `seconds` and the GUI take the notices.
    void write(BackupWindow& w, int seconds, int expectPercent) {
        // The export request is one-way: the stick writes only once the recorder has it.
        ASSERT_TRUE(runUntil([&] { return playback->state().exporting; }));
        for (int i = 0; i < seconds; ++i)
            playback->advance(1000);
        ASSERT_TRUE(runUntil([&] { return w.exportPercent() == expectPercent; }))
            << w.exportPercent();
        EXPECT_EQ(w.progressDialog()->percent(), expectPercent);
    }
};

TEST_F(MaintenanceE2e, BackupCopiesTheChosenFilesAndSurvivesAStickPulledOutAndACancel) {
    BackupWindow w(kChannels);
    w.open();
    EXPECT_TRUE(w.usbPresent());
    EXPECT_EQ(w.usbFreeMiB(), config.usbFreeMiB);

    // Motion recordings of channel 1 alone: the list holds exactly the recorder's.
    w.channelChecks()->setMask(1);
    w.typeBox(0)->setChecked(false);
    w.typeBox(2)->setChecked(false);
    ASSERT_TRUE(w.search());
    const VyDate today = VyDate::currentDate();
    const long day = SimRecordDb::daysFromCivil(today.year(), today.month(), today.day());
    size_t motion = 0;
    for (const RecordSegmentEntry& e : playback->db().day(0, day))
        motion += (e.typeBits & (RecordTypeBit::Motion | RecordTypeBit::MotionAndAlarm |
                                 RecordTypeBit::Smart | RecordTypeBit::AnalyticsMask)) != 0;
    ASSERT_GE(motion, 2u);
    ASSERT_TRUE(runUntil([&] { return w.items().size() == motion; })) << w.items().size();
    EXPECT_EQ(w.table()->rowCount(), int(motion));
    shot("backup-found.png");
    for (const BackupWindow::Item& it : w.items()) {
        EXPECT_EQ(it.channel, 0);
        EXPECT_TRUE(it.start < it.end);
        // The size the recorder will need for it, at its bit rate.
        EXPECT_EQ(it.bytes,
                  uint64_t(it.start.secsTo(it.end)) * SimPlayback::kBytesPerChannelSecond);
    }

    // Two files, each written a quarter per second; the bar shows the whole job.
    std::vector<int> rows(w.items().size());
    std::iota(rows.begin(), rows.end(), 0);
    std::sort(rows.begin(), rows.end(), [&](int a, int b) {
        return w.items()[size_t(a)].bytes < w.items()[size_t(b)].bytes;
    });
    w.table()->setRowSelected(rows[0], true);
    w.table()->setRowSelected(rows[1], true);
    const uint64_t chosen = w.chosenBytes();
    ASSERT_TRUE(w.exportChosen());
    write(w, 2, 25);
    shot("backup-progress.png");
    write(w, 2, 50);
    write(w, 3, 87); // the second file
    playback->advance(1000);
    ASSERT_TRUE(runUntil([&] { return w.exportState() == Backup::Done; }));
    EXPECT_EQ(w.exportPercent(), 100);
    EXPECT_EQ(w.statusText(), "2 files were copied to the USB device.");
    EXPECT_EQ(playback->state().exportsDone, 2);
    EXPECT_EQ(w.progressDialog(), nullptr);
    EXPECT_EQ(w.usbFreeMiB(), playback->state().usbFreeMiB);
    EXPECT_LE(config.usbFreeMiB - w.usbFreeMiB(), chosen >> 20);

    // The stick pulled out while the first file is written: the job stops and says why.
    ASSERT_TRUE(w.exportChosen());
    write(w, 1, 12);
    playback->setUsbPresent(false);
    ASSERT_TRUE(runUntil([&] { return w.exportState() == Backup::Failed; }));
    EXPECT_EQ(w.statusText(), "The USB device was removed. The backup stopped.");
    EXPECT_FALSE(w.usbPresent());
    EXPECT_FALSE(w.exportChosen()); // no stick: nothing starts
    EXPECT_EQ(w.statusText(), "No USB device found.");

    // Cancel from the progress dialog ends the job without a file more.
    playback->setUsbPresent(true);
    ASSERT_TRUE(w.exportChosen());
    write(w, 1, 12);
    click(w.progressDialog()->cancelButton());
    ASSERT_TRUE(runUntil([&] { return w.exportState() == Backup::Cancelled; }));
    EXPECT_EQ(w.statusText(), "The export was cancelled.");
    EXPECT_EQ(playback->state().exportsDone, 2);

    // A whole day of every channel does not fit: refused before anything is sent.
    w.channelChecks()->setMask(~0ull);
    for (int i = 0; i < BackupWindow::kTypeCount; ++i)
        w.typeBox(i)->setChecked(true);
    ASSERT_TRUE(w.search());
    ASSERT_TRUE(runUntil([&] { return w.session()->results().size() == size_t(kChannels); }));
    w.table()->clearSelection();
    ASSERT_GT(w.chosenBytes() >> 20, w.usbFreeMiB());
    EXPECT_FALSE(w.exportChosen());
    EXPECT_EQ(w.statusText().c_str(), std::string("The files chosen (") +
                                          std::to_string((w.chosenBytes() + (1 << 20) - 1) >> 20) +
                                          " MB) do not fit on the USB device (" +
                                          std::to_string(w.usbFreeMiB()) + " MB free).");
    EXPECT_FALSE(playback->state().exporting);
}

TEST_F(MaintenanceE2e, ShutdownAndRestartHappenOnlyOnceConfirmed) {
    struct Case {
        ShutdownDialog::Choice choice;
        bool confirmed;
        int shutdowns, restarts;
    };
    const Case cases[] = {{ShutdownDialog::ShutDown, false, 0, 0},
                          {ShutdownDialog::Restart, true, 0, 1},
                          {ShutdownDialog::ShutDown, true, 1, 1}};
    for (const Case& c : cases) {
        ShutdownDialog dialog;
        EXPECT_EQ(dialog.choiceButton(ShutdownDialog::LogOut), nullptr); // nobody logged in
        std::vector<ShutdownDialog::Choice> asked;
        dialog.setConfirmation([&](ShutdownDialog::Choice ch) {
            asked.push_back(ch);
            return c.confirmed;
        });
        dialog.show();
        shot("shutdown.png");
        click(dialog.choiceButton(c.choice));
        EXPECT_EQ(asked, std::vector<ShutdownDialog::Choice>{c.choice});
        // Not confirmed: still open on the choice; confirmed: carried out and closed.
        EXPECT_EQ(dialog.isFinished(), c.confirmed);
        EXPECT_EQ(dialog.carriedOut(), c.confirmed ? c.choice : ShutdownDialog::Nothing);
        ASSERT_TRUE(runUntil([&] {
            return maintenance->shutdowns() == c.shutdowns && maintenance->restarts() == c.restarts;
        }));
    }
    // The recorder answers each with its shutdown notice.
    EXPECT_TRUE(runUntil([&] { return manager->isShuttingDown(); }));
}

TEST_F(MaintenanceE2e, SystemLogPagesThroughTenThousandEntriesAndFiltersByType) {
    SystemLogWindow w;
    w.show();
    ASSERT_TRUE(w.search());
    LogSearchRequest all;
    EXPECT_EQ(w.total(), maintenance->log().matches(all));
    ASSERT_GE(w.total(), uint32_t(SimMaintenance::kLogPerDay));
    const int pages = int((w.total() + 99) / 100);
    EXPECT_EQ(w.pageCount(), pages);
    ASSERT_EQ(w.entries().size(), 100u);
    shot("system-log.png");
    EXPECT_FALSE(w.previousButton()->isEnabled());
    EXPECT_EQ(w.pageText().c_str(),
              "Page 1 of " + std::to_string(pages) + ", " + std::to_string(w.total()) + " entries");

    // Pages follow each other without a gap: the last entry of one is older than the first
    // of the next, and the last page holds the rest.
    const LogEntry lastOfFirst = w.entries().back();
    click(w.nextButton());
    ASSERT_EQ(w.pageIndex(), 1);
    auto key = [](const LogEntry& e) {
        const PackedDateTime& t = e.time;
        return std::make_tuple(t.year, t.month, t.day, t.hour, t.minute, t.second);
    };
    EXPECT_LE(key(lastOfFirst), key(w.entries().front()));
    ASSERT_TRUE(w.showPage(pages - 1));
    EXPECT_EQ(w.entries().size(), size_t(w.total() - uint32_t(pages - 1) * 100));
    EXPECT_FALSE(w.nextButton()->isEnabled());
    EXPECT_FALSE(w.showPage(pages));

    // Alarms alone: the recorder's count of them, every one an alarm on a channel.
    for (int i = 0; i < SystemLogWindow::kTypeCount; ++i)
        w.typeBox(i)->setChecked(i == 2);
    ASSERT_TRUE(w.search());
    LogSearchRequest alarms;
    alarms.typeMask = LogSearchRequest::kAlarm;
    EXPECT_EQ(w.total(), maintenance->log().matches(alarms));
    for (const LogEntry& e : w.entries()) {
        EXPECT_EQ(e.type, LogSearchRequest::kAlarm);
        EXPECT_GE(e.channel, 0);
    }
    EXPECT_EQ(w.table()->cell(0, 1).text, "Alarm");
}

TEST_F(MaintenanceE2e, SystemLogExportWritesEveryPageOfTheFilteredSearchToTheStick) {
    SimFaces stick(config.recordSeed, kChannels); // keeps the files the GUI writes
    stick.attach(server);
    maintenance->log().add(LogSearchRequest::kUser, "Login \"admin\", remote", 2);
    SystemLogWindow w;
    w.show();
    for (int i = 0; i < SystemLogWindow::kTypeCount; ++i)
        w.typeBox(i)->setChecked(i == 4); // logins alone
    ASSERT_TRUE(w.search());
    ASSERT_GT(w.pageCount(), 1);
    const LogEntry first = w.entries().front();
    ASSERT_TRUE(w.showPage(w.pageCount() - 1)); // the page on screen is not all that goes
    ASSERT_TRUE(w.exportToUsb());
    shot("system-log-exported.png");

    const std::string day = VyDate::currentDate().toString("yyyyMMdd").toStdString();
    const std::string name = "systemlog_" + day + "_" + day + ".csv";
    EXPECT_EQ(w.statusText().toStdString(), "The log was saved to the USB device as " + name + ".");
    ASSERT_TRUE(stick.hasUsbFile(name));
    // Every match, oldest first, each a line as the table shows it; the text holding a quote
    // and a comma quoted whole.
    const std::string file = stick.usbFile(name);
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), long(w.total()) + 1);
    EXPECT_EQ(
        file.rfind(std::string(SystemLogWindow::kCsvHeader) + SystemLogWindow::csvLine(first), 0),
        0u);
    const std::string channel =
        VyTranslation::tr(TextId::LiveView::ChannelName).arg(3).toStdString();
    const std::string quoted = ",Users," + channel + ",\"Login \"\"admin\"\", remote\"\r\n";
    const size_t found = file.find(quoted);
    EXPECT_NE(found, std::string::npos);
    EXPECT_EQ(file.find(quoted, found + 1), std::string::npos);
    EXPECT_EQ(file.find(",System,"), std::string::npos); // logins alone
}

TEST_F(MaintenanceE2e, UpgradeRefusesOtherModelsAndDamagedFilesAndStopsWhenTheStickGoes) {
    DeviceProfile& p = DeviceProfile::current();
    std::strcpy(p.upgradePrefix, "NVR8_");
    std::strcpy(p.deviceType, "MODEL-A");
    UpgradeWindow w;
    w.setAutoPoll(false); // each look at the progress is the test's
    std::vector<std::string> asked;
    bool answer = false;
    w.setConfirmation([&](const UpgradeFileEntry& f) {
        asked.push_back(f.name);
        return answer;
    });
    w.show();
    w.refresh();
    ASSERT_EQ(w.files().size(), 3u);
    std::vector<std::string> states;
    states.reserve(3);
    for (int row = 0; row < 3; ++row)
        states.push_back(w.table()->cell(row, 3).text.c_str());
    EXPECT_EQ(states, (std::vector<std::string>{"Ready", "For another model", "Damaged"}));
    shot("upgrade-files.png");

    // Refused here, without asking and without a word to the recorder.
    EXPECT_FALSE(w.upgrade(1));
    EXPECT_EQ(w.statusText(), "The upgrade failed: the file is for another model.");
    EXPECT_FALSE(w.upgrade(2));
    EXPECT_EQ(w.statusText(), "The upgrade failed: the file is damaged or incomplete.");
    EXPECT_FALSE(w.upgrade(0)); // not confirmed
    EXPECT_EQ(asked, std::vector<std::string>{"NVR8_V2.4.0.bin"});
    w.refresh(); // a round trip: whatever was sent before it has reached the recorder
    EXPECT_EQ(maintenance->upgrade().state, UpgradeProgress::kIdle);

    // Under way, the stick goes: the recorder says so at the next look and the window too.
    answer = true;
    ASSERT_TRUE(w.upgrade(0));
    for (int i = 0; i < 3; ++i)
        w.poll();
    EXPECT_EQ(w.progressDialog()->percent(), 3 * int(SimMaintenance::kUpgradeStep));
    playback->setUsbPresent(false);
    w.poll();
    EXPECT_EQ(w.state(), UpgradeWindow::State::Failed);
    EXPECT_EQ(w.statusText(), "The upgrade failed: the USB device was removed.");
    EXPECT_EQ(w.progressDialog(), nullptr);

    // Again with the stick: done, then the restart notice.
    playback->setUsbPresent(true);
    w.refresh();
    ASSERT_TRUE(w.upgrade(0));
    for (int i = 0; i < 10 && w.state() == UpgradeWindow::State::Running; ++i)
        w.poll();
    EXPECT_EQ(w.state(), UpgradeWindow::State::Done);
    EXPECT_EQ(w.statusText(), "The upgrade is complete. The device restarts now.");
    EXPECT_TRUE(runUntil([&] { return manager->isShuttingDown(); }));
}

TEST_F(MaintenanceE2e, RestartScheduleReachesTheRecorderAndTheConfigurationGoesToTheStickAndBack) {
    VyWidget window;
    window.setGeometry(0, 0, 1280, 720);
    window.show();
    auto* page = new MaintenancePage(&window);
    page->setGeometry(0, 0, 1280, 720);
    page->show();
    page->open();
    ASSERT_TRUE(page->isOpened());
    shot("maintenance-page.png");
    EXPECT_FALSE(page->enabledBox()->isChecked());
    page->enabledBox()->setChecked(true);
    page->dayBox()->setCurrentIndex(3); // Tuesday
    page->timeEdit()->setTime(VyTime(4, 30));
    EXPECT_EQ(page->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return stored<AutoRestartBlock>().enabled == 1; }));
    const AutoRestartBlock got = stored<AutoRestartBlock>();
    EXPECT_EQ(got.day, 3);
    EXPECT_EQ(got.hour, 4);
    EXPECT_EQ(got.minute, 30);

    // The configuration to the stick and back: what was set before the export returns.
    bool confirm = false;
    page->setImportConfirmation([&] { return confirm; });
    EXPECT_FALSE(page->importConfig()); // not confirmed
    confirm = true;
    EXPECT_FALSE(page->importConfig());
    EXPECT_EQ(page->statusText(), "No configuration file found on the USB device.");
    ASSERT_TRUE(page->exportConfig());
    EXPECT_EQ(page->statusText(), "The configuration was saved to the USB device.");
    recorder->store().setByte(AutoRestartBlock::kBlockNumber, 2, 23);
    ASSERT_TRUE(page->importConfig());
    EXPECT_EQ(page->statusText(), "The configuration was loaded from the USB device.");
    EXPECT_EQ(stored<AutoRestartBlock>().hour, 4);
    playback->setUsbPresent(false);
    EXPECT_FALSE(page->exportConfig());
    EXPECT_EQ(page->statusText(), "No USB device found.");
}

TEST_F(MaintenanceE2e, FactoryDefaultsForgetAllButTheGroupsKept) {
    // Settings of three groups as a user left them.
    auto set = [&](uint32_t block, uint8_t channel, uint32_t offset, uint8_t value) {
        recorder->store().setByte(SimSettingsBlocks::storeKey(block, channel), offset, value);
    };
    set(NetworkBlock::kBlockNumber, 0, offsetof(NetworkBlock, httpPort), 81);
    set(RecordParamBlock::kBlockNumber, 2, offsetof(RecordParamBlock, postRecordSec), 99);
    set(GeneralSettingsBlock::kBlockNumber, 0, offsetof(GeneralSettingsBlock, hour12), 1);

    FactoryDefaultsDialog d;
    d.show();
    EXPECT_EQ(d.keepMask(), FactoryDefaultsRequest::kKeepNetwork); // the network by default
    d.keepBox(2)->setChecked(true);                                // and the general settings
    shot("factory-defaults.png");
    ASSERT_TRUE(d.load());
    EXPECT_EQ(d.statusText(), "Factory defaults loaded. Kept: Network, General.");
    EXPECT_EQ(stored<NetworkBlock>().httpPort, 81);
    EXPECT_EQ(stored<GeneralSettingsBlock>().hour12, 1);
    EXPECT_FALSE(
        recorder->store().contains(SimSettingsBlocks::storeKey(RecordParamBlock::kBlockNumber, 2)));
    EXPECT_FALSE(d.load()); // once
}

} // namespace
