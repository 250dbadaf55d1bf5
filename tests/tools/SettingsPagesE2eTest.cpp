// The settings pages against the simulated recorder on a real socket, in one process: what
// a page fetches when it opens, what the recorder stores after Apply (the record bytes it
// received), Cancel, the recorder's range checks, and a change made elsewhere reaching an
// open page through the UiManager.
#include "SettingsPagesE2e.h"

#include "ipc/IpcClient.h"
#include "model/DeviceProfile.h"
#include "model/IpcRecorderLink.h"
#include "model/ParamAccess.h"
#include "model/UiManager.h"
#include "model/UiModels.h"
#include "protocol/AlarmInputBlock.h"
#include "protocol/CameraBlock.h"
#include "protocol/DeviceParamBlock.h"
#include "protocol/DiskGroupBlock.h"
#include "protocol/EmailBlock.h"
#include "protocol/EmailScheduleBlock.h"
#include "protocol/ExceptionBlock.h"
#include "protocol/FtpBlock.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/MainType.h"
#include "protocol/MotionBlock.h"
#include "protocol/NetworkBlock.h"
#include "protocol/RecordParamBlock.h"
#include "protocol/RecordScheduleBlock.h"
#include "protocol/SubType.h"
#include "runtime/VyFontMetrics.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/core/VyScreenCursor.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyProgressBar.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySlider.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/settings/AlarmInputPage.h"
#include "ui/settings/BitMaskChecks.h"
#include "ui/settings/CameraPage.h"
#include "ui/settings/EmailPage.h"
#include "ui/settings/EmailScheduleFrame.h"
#include "ui/settings/EmailSchedulePage.h"
#include "ui/settings/ExceptionPage.h"
#include "ui/settings/FTPScheduleFrame.h"
#include "ui/settings/FtpPage.h"
#include "ui/settings/FtpSchedulePage.h"
#include "ui/settings/GeneralPage.h"
#include "ui/settings/ImagePage.h"
#include "ui/settings/MotionAreaGrid.h"
#include "ui/settings/MotionPage.h"
#include "ui/settings/NetworkPage.h"
#include "ui/settings/QrCodeView.h"
#include "ui/settings/RecScheduleFrame.h"
#include "ui/settings/RecordParamPage.h"
#include "ui/settings/RecordSchedulePage.h"
#include "ui/settings/RemoteAccessPage.h"
#include "ui/settings/SettingsManager.h"
#include "ui/settings/StoragePage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

TEST_F(SettingsPagesE2e, RecordScheduleEditedWithMouseKeysAndCopyReachesTheRecorder) {
    auto* page = openPage<RecordSchedulePage>();
    // Block 16 of each channel and nothing else.
    EXPECT_EQ(settledParamMessages() - beforeOpen, kChannels);
    EXPECT_EQ(page->blocks().fetchCount(), kChannels);
    ASSERT_EQ(page->typeButton(3), nullptr); // no PIR recording on this model

    ScheduleBoard* board = page->frame()->board();
    const float cw = board->cellWidth(), ch = board->cellHeight();
    auto at = [&](int c, int r) {
        return VyPoint(int((float(c) + 0.5f) * cw), int((float(r) + 0.5f) * ch));
    };
    // Motion on Tuesday 00:00-01:00 with the keys alone: focus down to (0, 2), OK, right, OK.
    click(page->typeButton(1), 2, 2);
    EXPECT_EQ(board->currentType(), 1);
    key(board, VyKeyEvent::KeyDown);
    key(board, VyKeyEvent::KeyDown);
    key(board, VyKeyEvent::KeyOk);
    key(board, VyKeyEvent::KeyRight);
    key(board, VyKeyEvent::KeyOk);
    // The factory schedule records normally all week; the mouse takes normal out of Monday
    // 08:00-10:00.
    click(page->typeButton(0), 2, 2);
    drag(board, at(16, 1), at(19, 1));
    click(page->copyButton(), 2, 2); // this week onto every channel
    EXPECT_TRUE(page->hasUnsavedChanges());

    const int before = settledParamMessages();
    EXPECT_EQ(page->apply(), kChannels);
    ASSERT_TRUE(runUntil([&] { return paramMessages() >= before + kChannels; }));
    RecordScheduleBlock expected{};
    expected.enabled = 1;
    std::memset(expected.schedule, ScheduleGrid::kRecordNormal, sizeof expected.schedule);
    for (int c = 16; c <= 19; ++c)
        expected.schedule[48 + c] = 0;
    expected.schedule[2 * 48 + 0] |= ScheduleGrid::kRecordMotion;
    expected.schedule[2 * 48 + 1] |= ScheduleGrid::kRecordMotion;
    for (uint8_t channel = 0; channel < kChannels; ++channel) {
        expected.channel = channel;
        const RecordScheduleBlock got = stored<RecordScheduleBlock>(channel);
        EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0) << "channel " << int(channel);
    }
    EXPECT_FALSE(page->hasUnsavedChanges());
}

TEST_F(SettingsPagesE2e, RecordParametersApplyCancelAndTheRecordersRangeCheck) {
    auto* page = openPage<RecordParamPage>();
    EXPECT_EQ(settledParamMessages() - beforeOpen, kChannels);
    EXPECT_EQ(page->preRecordBox()->value(), 5);
    // Channel 3: pre-record up three steps with the keys, post-record typed, audio on.
    page->channelBox()->setValue(3);
    key(page->preRecordBox(), VyKeyEvent::KeyUp);
    key(page->preRecordBox(), VyKeyEvent::KeyUp);
    key(page->preRecordBox(), VyKeyEvent::KeyUp);
    page->postRecordBox()->setValue(120);
    click(page->audioBox(), 2, 2);
    const int before = settledParamMessages();
    EXPECT_EQ(page->apply(), 1); // one channel changed, one block sent
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    RecordParamBlock expected{};
    expected.channel = 2;
    expected.audioEnabled = 1;
    expected.preRecordSec = 8;
    expected.postRecordSec = 120;
    RecordParamBlock got = stored<RecordParamBlock>(2);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);

    // Cancel puts back what the recorder holds.
    page->postRecordBox()->setValue(300);
    page->cancel();
    EXPECT_EQ(page->postRecordBox()->value(), 120);
    EXPECT_FALSE(page->hasUnsavedChanges());

    // A record out of range is refused and not stored.
    RecordParamBlock bad = expected;
    bad.postRecordSec = 2;
    ParamAccess::setParam(RecordParamBlock::kBlockNumber, &bad, sizeof bad);
    ParamAccess::get<RecordParamBlock>(2); // answered after the set was handled
    got = stored<RecordParamBlock>(2);
    EXPECT_EQ(got.postRecordSec, 120);
}

TEST_F(SettingsPagesE2e, AChangeMadeElsewhereRefreshesTheOpenPageAndKeepsTheUsersEdit) {
    auto* page = openPage<RecordParamPage>();
    page->postRecordBox()->setValue(60); // the user's edit on channel 1
    // Another client changes channel 1's pre-record time.
    RecordParamBlock other = stored<RecordParamBlock>(0);
    other.preRecordSec = 20;
    recorder->store().set(SimSettingsBlocks::storeKey(RecordParamBlock::kBlockNumber, 0),
                          reinterpret_cast<const uint8_t*>(&other), sizeof other);
    recorder->parameterChanged(RecordParamBlock::kBlockNumber);
    ASSERT_TRUE(runUntil([&] { return settings->refreshCount() == 1; }));
    EXPECT_EQ(page->preRecordBox()->value(), 20);
    EXPECT_EQ(page->postRecordBox()->value(), 60);
    EXPECT_TRUE(page->hasUnsavedChanges());
}

TEST_F(SettingsPagesE2e, AlarmInputActionsReachTheRecorder) {
    auto* page = openPage<AlarmInputPage>();
    EXPECT_EQ(settledParamMessages() - beforeOpen, 2); // block 11 of both inputs
    ASSERT_NE(page->alarmOutputs(), nullptr);          // one relay output in the simulator
    page->inputBox()->setValue(2);
    click(page->enabledBox(), 2, 2);
    click(page->normallyClosedBox(), 2, 2);
    click(page->recordChannels()->box(3), 2, 2);
    click(page->alarmOutputs()->box(0), 2, 2);
    click(page->buzzerBox(), 2, 2); // on by default: now off
    key(page->holdBox(), VyKeyEvent::KeyDown);
    const int before = settledParamMessages();
    EXPECT_EQ(page->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    AlarmInputBlock expected{};
    expected.input = 1;
    expected.enabled = 1;
    expected.normallyClosed = 1;
    expected.popup = 1;
    expected.alarmOutputs = 1;
    expected.recordChannels = 1 | 8;
    expected.holdSec = 9;
    const AlarmInputBlock got = stored<AlarmInputBlock>(1);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
}

TEST_F(SettingsPagesE2e, StaticAddressesAreCheckedAndReachTheRecorder) {
    auto* page = openPage<NetworkPage>();
    EXPECT_EQ(settledParamMessages() - beforeOpen, 1);
    EXPECT_EQ(page->addressEdit()->text(), "192.168.1.100");
    click(page->dhcpBox(), 2, 2); // static from now on
    page->addressEdit()->setText("10.0.0.7");
    page->gatewayEdit()->setText("10.0.0.1");
    page->netmaskEdit()->setText("255.0.255.0"); // not contiguous
    key(page->serverPortBox(), VyKeyEvent::KeyUp);
    const int before = settledParamMessages();
    EXPECT_EQ(page->apply(), -1);
    EXPECT_EQ(settledParamMessages(), before);
    page->netmaskEdit()->setText("255.0.0.0");
    EXPECT_EQ(page->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    NetworkBlock expected{};
    const uint8_t address[4] = {10, 0, 0, 7}, mask[4] = {255, 0, 0, 0}, gateway[4] = {10, 0, 0, 1},
                  dns[4] = {192, 168, 1, 1};
    std::memcpy(expected.address, address, 4);
    std::memcpy(expected.netmask, mask, 4);
    std::memcpy(expected.gateway, gateway, 4);
    std::memcpy(expected.dns1, dns, 4);
    expected.httpPort = 80;
    expected.serverPort = 6037;
    const NetworkBlock got = stored<NetworkBlock>(0);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
}

TEST_F(SettingsPagesE2e, RemoteAccessShowsTheDeviceIdAsAQrCodeAndSetsTheSwitch) {
    auto* page = openPage<RemoteAccessPage>();
    EXPECT_EQ(page->deviceIdLabel()->text(), "20261123");
    QrCodeView* qr = page->qrCode();
    ASSERT_EQ(qr->symbolWidth(), 21); // eight digits fit the smallest symbol
    for (auto [x, y] : {std::pair{0, 0}, {6, 6}, {20, 0}, {0, 20}}) // the finder patterns
        EXPECT_TRUE(qr->isDark(x, y)) << x << "," << y;
    EXPECT_FALSE(qr->isDark(7, 7)); // the separator around the top-left finder
    click(page->enabledBox(), 2, 2);
    const int before = settledParamMessages();
    EXPECT_EQ(page->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    EXPECT_EQ(stored<DeviceParamBlock>(0).remoteAccessEnabled, 1u);
}

TEST(NetworkPage, ParsesOnlyWholeAddresses) {
    uint8_t a[4] = {9, 9, 9, 9};
    for (const char* bad : {"1.2.3", "256.1.1.1", "1.2.3.4.", "1..3.4", "", "1.2.3.4x"})
        EXPECT_FALSE(NetworkPage::parseAddress(bad, a)) << bad;
    EXPECT_EQ(a[0], 9);
    ASSERT_TRUE(NetworkPage::parseAddress("172.16.0.254", a));
    EXPECT_EQ(NetworkPage::addressText(a), "172.16.0.254");
}

TEST_F(SettingsPagesE2e, FormattingAsksFirstThenFollowsTheRecordersProgress) {
    auto* page = openPage<StoragePage>();
    ASSERT_EQ(page->diskRowCount(), 2); // the simulator's two disks
    EXPECT_EQ(page->diskRow(1).state->text(), "Unformatted");
    bool answer = false;
    int asked = 0;
    page->setFormatConfirmation([&] {
        ++asked;
        return answer;
    });
    const int before = settledParamMessages();
    EXPECT_FALSE(page->formatSelected()); // nothing ticked: nothing asked
    click(page->diskRow(1).select, 2, 2);
    click(page->overwriteBox(), 2, 2);    // stop recording when full, sent with the request
    EXPECT_FALSE(page->formatSelected()); // declined
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(settledParamMessages(), before);

    answer = true; // the tick stayed
    click(page->formatButton(), 2, 2);
    EXPECT_EQ(asked, 2);
    // The recorder reports the progress a quarter at a time until the disk is ready.
    int progressSeen = 0;
    ASSERT_TRUE(runUntil([&] {
        progressSeen = std::max(progressSeen, page->diskRow(1).progress->value());
        return page->diskRow(1).state->text() == "Normal";
    }));
    EXPECT_GE(progressSeen, 25);
    EXPECT_FALSE(page->diskRow(1).progress->isVisible());
    const DiskGroupBlock got = stored<DiskGroupBlock>(0);
    EXPECT_EQ(got.overwrite, 0);
    EXPECT_EQ(got.formatRequest, 0);
    EXPECT_EQ(got.disks[1].freeMB, got.disks[1].capacityMB);
    EXPECT_EQ(got.disks[0].freeMB, got.disks[0].capacityMB / 5 * 2); // not formatted
    EXPECT_FALSE(page->hasUnsavedChanges());
}

TEST_F(SettingsPagesE2e, CameraNameOsdAndImageReachTheRecorder) {
    auto* camera = openPage<CameraPage>();
    EXPECT_EQ(settledParamMessages() - beforeOpen, kChannels);
    camera->selector()->setValue(2);
    EXPECT_EQ(camera->nameEdit()->text(), "CH2");
    camera->nameEdit()->setText("Gate östlich"); // 13 characters, 14 bytes
    click(camera->showTimeBox(), 2, 2);
    key(camera->nameXBox(), VyKeyEvent::KeyUp);
    int before = settledParamMessages();
    EXPECT_EQ(camera->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    CameraBlock expected = stored<CameraBlock>(0); // channel 1's, for the untouched fields
    expected.channel = 1;
    std::memset(expected.name, 0, sizeof expected.name);
    std::memcpy(expected.name, "Gate \xc3\xb6stlich", 14);
    expected.showTime = 0;
    expected.nameX = 6;
    CameraBlock got = stored<CameraBlock>(1);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);

    settings->setCurrentPage(nullptr);
    delete camera;
    auto* image = openPage<ImagePage>();
    key(image->slider(0), VyKeyEvent::KeyRight); // brightness of channel 1
    before = settledParamMessages();
    EXPECT_EQ(image->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    EXPECT_GT(stored<CameraBlock>(0).brightness, CameraBlock::kDefaultImageValue);
    EXPECT_EQ(stored<CameraBlock>(0).contrast, CameraBlock::kDefaultImageValue);
}

TEST_F(SettingsPagesE2e, MotionAreaDrawnOverThePictureReachesTheRecorder) {
    auto* page = openPage<MotionPage>();
    MotionAreaGrid* grid = page->grid();
    // The factory area is the whole picture: a drag from a watched cell clears the top-left
    // quarter-ish rectangle of 4 x 3 cells.
    const int cw = grid->width() / MotionBlock::kColumns, ch = grid->height() / MotionBlock::kRows;
    drag(grid, VyPoint(cw / 2, ch / 2), VyPoint(cw * 3 + cw / 2, ch * 2 + ch / 2));
    click(page->enabledBox(), 2, 2);
    key(page->sensitivityBox(), VyKeyEvent::KeyUp);
    const int before = settledParamMessages();
    EXPECT_EQ(page->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    const MotionBlock got = stored<MotionBlock>(0);
    EXPECT_EQ(got.enabled, 1);
    EXPECT_EQ(got.sensitivity, 5);
    int cleared = 0;
    for (int r = 0; r < MotionBlock::kRows; ++r)
        for (int c = 0; c < MotionBlock::kColumns; ++c) {
            const bool inside = c < 4 && r < 3;
            EXPECT_EQ(got.cell(c, r), !inside) << c << "," << r;
            cleared += !got.cell(c, r);
        }
    EXPECT_EQ(cleared, 12);
}

TEST_F(SettingsPagesE2e, EmailTestAndScheduleReachTheRecorder) {
    auto* page = openPage<EmailPage>();
    ASSERT_NE(page->testButton(), nullptr);
    page->serverEdit()->setText("smtp.example.net");
    page->receiverEdit()->setText("guard");
    EXPECT_EQ(page->apply(), -1); // not an address: nothing sent
    page->receiverEdit()->setText("guard@example.net");
    click(page->sslBox(), 2, 2);
    click(page->testButton(), 2, 2);
    ASSERT_TRUE(
        runUntil([&] { return page->testResultLabel()->text() == "The test e-mail was sent."; }));
    EmailBlock expected{};
    expected.ssl = 1;
    expected.port = EmailBlock::kDefaultPort;
    expected.testResult = EmailBlock::TestSent;
    std::strcpy(expected.server, "smtp.example.net");
    std::strcpy(expected.receiver, "guard@example.net");
    const EmailBlock got = stored<EmailBlock>(0);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
    EXPECT_FALSE(page->hasUnsavedChanges());

    settings->setCurrentPage(nullptr);
    delete page;
    auto* schedule = openPage<EmailSchedulePage>();
    ScheduleBoard* board = schedule->frame()->board();
    click(schedule->typeButton(2), 2, 2); // exception, with the keys: Sunday 00:00-01:30
    key(board, VyKeyEvent::KeyOk);
    key(board, VyKeyEvent::KeyRight);
    key(board, VyKeyEvent::KeyRight);
    key(board, VyKeyEvent::KeyOk);
    const int before = settledParamMessages();
    EXPECT_EQ(schedule->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    EmailScheduleBlock week{};
    std::memset(week.schedule, ScheduleGrid::kEmailMotion | ScheduleGrid::kEmailAlarm,
                sizeof week.schedule);
    for (int c = 0; c < 3; ++c)
        week.schedule[c] |= ScheduleGrid::kEmailException;
    const EmailScheduleBlock gotWeek = stored<EmailScheduleBlock>(0);
    EXPECT_EQ(std::memcmp(&gotWeek, &week, sizeof week), 0);
}

TEST_F(SettingsPagesE2e, FtpAccountAndUploadScheduleReachTheRecorder) {
    auto* page = openPage<FtpPage>();
    click(page->enabledBox(), 2, 2);
    page->serverEdit()->setText("ftp.example.net");
    page->folderEdit()->setText("/cams");
    key(page->portBox(), VyKeyEvent::KeyUp);
    int before = settledParamMessages();
    EXPECT_EQ(page->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    FtpBlock expected = stored<FtpBlock>(0);
    EXPECT_EQ(expected.enabled, 1);
    EXPECT_EQ(expected.port, 22);
    EXPECT_STREQ(expected.server, "ftp.example.net");
    EXPECT_STREQ(expected.folder, "/cams");

    settings->setCurrentPage(nullptr);
    delete page;
    auto* schedule = openPage<FtpSchedulePage>();
    ScheduleBoard* board = schedule->frame()->board();
    click(schedule->typeButton(4), 2, 2); // intelligent, bit 4, all Saturday by its label
    const int dayY = schedule->frame()->hourLabelHeight() + int(board->cellHeight() * 6.5f);
    click(schedule->frame(), 2, dayY);
    before = settledParamMessages();
    EXPECT_EQ(schedule->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    for (int c = 0; c < 48; ++c)
        expected.schedule[6 * 48 + c] |= ScheduleGrid::kFtpIntelligent;
    const FtpBlock got = stored<FtpBlock>(0);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
}

TEST_F(SettingsPagesE2e, ExceptionActionsReachTheRecorder) {
    auto* page = openPage<ExceptionPage>();
    ASSERT_NE(page->row(ExceptionBlock::VideoLoss).outputs, nullptr);
    click(page->row(ExceptionBlock::DiskFull).email, 2, 2);
    click(page->row(ExceptionBlock::VideoLoss).popup, 2, 2); // on by default: now off
    click(page->row(ExceptionBlock::VideoLoss).outputs->box(0), 2, 2);
    const int before = settledParamMessages();
    EXPECT_EQ(page->apply(), 1);
    ASSERT_TRUE(runUntil([&] { return paramMessages() > before; }));
    ExceptionBlock expected{};
    for (ExceptionBlock::Actions& a : expected.actions)
        a.buzzer = a.popup = 1;
    expected.actions[ExceptionBlock::DiskFull].email = 1;
    expected.actions[ExceptionBlock::VideoLoss].popup = 0;
    expected.actions[ExceptionBlock::VideoLoss].alarmOutputs = 1;
    const ExceptionBlock got = stored<ExceptionBlock>(0);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
}

TEST_F(SettingsPagesE2e, GeneralSettingsChangeTheLanguageOfTheWholeInterface) {
    auto* page = openPage<GeneralPage>();
    VyComboBox* language = page->languageBox();
    EXPECT_EQ(language->count(), GeneralSettingsBlock::kLanguageCount); // every file is here
    EXPECT_EQ(language->currentText(), "English");
    language->setCurrentIndex(language->findData(7)); // Deutsch
    key(page->menuTimeoutBox(), VyKeyEvent::KeyUp);
    GeneralSettingsBlock expected = stored<GeneralSettingsBlock>(0);
    expected.languageIndex = 7;
    expected.menuTimeout = uint8_t(expected.menuTimeout + 1);
    EXPECT_EQ(page->apply(), 1);
    // App's "parameter changed" for block 21 switches the interface to German.
    ASSERT_TRUE(runUntil([&] { return VyTranslation::instance()->language() == 7; }));
    const GeneralSettingsBlock got = stored<GeneralSettingsBlock>(0);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
    EXPECT_EQ(VyTranslation::tr(TextId::Settings::Apply), "Übernehmen");
}

} // namespace
