// The encoding, clock, output, DDNS, privacy-mask and network-camera pages against the
// simulated recorder: the bytes it stored after Apply, what it refuses, and what comes
// back (a new time zone, a sync result, a DDNS status, a resolution to confirm).
#include "SettingsPagesE2e.h"

#include "model/UiShell.h"
#include "protocol/CameraSearchBlock.h"
#include "protocol/DateTimeBlock.h"
#include "protocol/DdnsBlock.h"
#include "protocol/GeneralSettingsBlock.h"
#include "protocol/NetworkCameraBlock.h"
#include "protocol/NtpBlock.h"
#include "protocol/OutputSettingsBlock.h"
#include "protocol/PrivacyMaskBlock.h"
#include "protocol/StreamBlock.h"
#include "runtime/VyDate.h"
#include "toolkit/widgets/VyCalendarWidget.h"
#include "toolkit/widgets/VyCheckBox.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VyDateEdit.h"
#include "toolkit/widgets/VyLabel.h"
#include "toolkit/widgets/VyLineEdit.h"
#include "toolkit/widgets/VyListWidget.h"
#include "toolkit/widgets/VyPushButton.h"
#include "toolkit/widgets/VySpinBox.h"
#include "ui/settings/BitMaskChecks.h"
#include "ui/settings/DateTimePage.h"
#include "ui/settings/DdnsPage.h"
#include "ui/settings/DstPage.h"
#include "ui/settings/DstRuleEdit.h"
#include "ui/settings/NetworkCameraPage.h"
#include "ui/settings/OutputPage.h"
#include "ui/settings/PrivacyMaskArea.h"
#include "ui/settings/PrivacyMaskPage.h"
#include "ui/settings/StreamPage.h"

#include <cstdlib>
#include <ctime>
#include <functional>
#include <utility>

namespace {

class ResolutionShell : public UiShell {
public:
    void showMessage(uint32_t) override {}
    void showMainView() override {}
    int confirmResolution(bool noticeOnly, int) override {
        ++asked;
        return noticeOnly ? 0 : answer;
    }
    void applyOutputMode(const OutputSettingsBlock&, bool) override {}
    void openStartupWizard() override {}
    int answer = 1;
    int asked = 0;
};

class SystemPagesE2e : public SettingsPagesE2e {
protected:
    void configure(SimRecorderConfig& recorderConfig) override {
        // App answers the time server's block short: 8 of its 256 bytes.
        recorderConfig.blockSizes[NtpBlock::kBlockNumber] = 8;
        recorderConfig.blockBytes[{NtpBlock::kBlockNumber, 0}] = 1;
    }
    void TearDown() override {
        manager->setShell(nullptr);
        SettingsPagesE2e::TearDown();
    }
    // Apply, then a round trip behind it: the recorder handles one message after the
    // other, so every set Apply caused is stored when the answer arrives.
    template <typename Page>
    int applyAndWait(Page* page) {
        const int sent = page->apply();
        ParamAccess::requestPair(0);
        return sent;
    }
    template <typename Page>
    void close(Page* page) {
        settings->setCurrentPage(nullptr);
        delete page;
    }
};

TEST_F(SystemPagesE2e, EncodingStaysWithinTheEncoderAndIsCopiedToEveryChannel) {
    auto* page = openPage<StreamPage>();
    EXPECT_EQ(settledParamMessages() - beforeOpen, kChannels); // block 5 of each channel
    StreamBlock expected = stored<StreamBlock>(0);             // the recorder's factory encoding
    // The main stream offers nothing larger than the encoder's 2560x1440.
    EXPECT_EQ(page->resolutionBox()->count(), StreamBlock::kResolutionCount - 1);
    page->selector()->setValue(2);
    page->resolutionBox()->setCurrentIndex(page->resolutionBox()->findData(3)); // 1280x720
    for (int i = 0; i < 10; ++i) // from 25: the encoder's 30 is the end
        key(page->frameRateBox(), VyKeyEvent::KeyUp);
    page->bitrateModeBox()->setCurrentIndex(StreamBlock::Variable);
    key(page->qualityBox(), VyKeyEvent::KeyUp);
    page->streamBox()->setCurrentIndex(1); // the sub-stream of the same channel
    EXPECT_EQ(page->bitrateBox()->maximum(), 2048);
    page->bitrateBox()->setValue(1024);
    page->codecBox()->setCurrentIndex(StreamBlock::H265);
    click(page->audioBox(), 2, 2);
    click(page->copyButton(), 2, 2);
    EXPECT_EQ(applyAndWait(page), kChannels);

    expected.streams[0].resolution = 3;
    expected.streams[0].frameRate = 30;
    expected.streams[0].bitrateMode = StreamBlock::Variable;
    expected.streams[0].quality = 5;
    expected.streams[1].bitrateKbps = 1024;
    expected.streams[1].codec = StreamBlock::H265;
    expected.streams[1].audio = 1;
    for (uint8_t channel = 0; channel < kChannels; ++channel) {
        expected.channel = channel;
        const StreamBlock got = stored<StreamBlock>(channel);
        EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0) << "channel " << int(channel);
    }

    // Beyond the encoder's rate the recorder refuses the block and keeps what it had.
    StreamBlock tooFast = expected;
    tooFast.streams[0].bitrateKbps = 9000;
    ParamAccess::setParam(StreamBlock::kBlockNumber, &tooFast, sizeof tooFast);
    ParamAccess::get<StreamBlock>(3);
    EXPECT_EQ(stored<StreamBlock>(3).streams[0].bitrateKbps, expected.streams[0].bitrateKbps);
}

TEST_F(SystemPagesE2e, ClockZoneAndTimeServerReachTheRecorderAndTheGuiFollowsTheZone) {
    // The zone this test makes the process take is given back at its end.
    struct TzGuard {
        std::string saved;
        bool had;
        TzGuard()
            : had(std::getenv("TZ") != nullptr) {
            if (had)
                saved = std::getenv("TZ");
        }
        ~TzGuard() {
            if (had)
                setenv("TZ", saved.c_str(), 1);
            else
                unsetenv("TZ");
            tzset();
        }
    } tzGuard;
    auto* page = openPage<DateTimePage>();
    EXPECT_EQ(settledParamMessages() - beforeOpen, 3); // blocks 93, 55 and 21
    // The short time-server block: zeros behind its 8 bytes, port and interval shown
    // clamped, nothing to send while the user leaves them alone.
    EXPECT_EQ(page->ntpPortBox()->value(), 1);
    EXPECT_EQ(page->ntpIntervalBox()->value(), NtpBlock::kMinIntervalMin);
    EXPECT_TRUE(page->ntpServerEdit()->text().isEmpty());
    EXPECT_FALSE(page->hasUnsavedChanges());

    page->timeZoneBox()->setCurrentIndex(26); // UTC+08:00
    page->dateFormatBox()->setCurrentIndex(2);
    click(page->hour12Box(), 2, 2);
    page->dateEdit()->setDate(VyDate(2030, 1, 2));
    page->ntpServerEdit()->setText("time.example.org");
    page->ntpPortBox()->setValue(NtpBlock::kDefaultPort);
    page->ntpIntervalBox()->setValue(30);
    click(page->syncButton(), 2, 2);
    ParamAccess::requestPair(0); // every block of that Apply is stored behind this
    ASSERT_TRUE(
        runUntil([&] { return page->syncResultLabel()->text() == "The clock was synchronised."; }));
    ASSERT_TRUE(runUntil([] {
        const char* tz = std::getenv("TZ");
        return tz != nullptr && std::string(tz) == "<+08>-8";
    }));

    const DateTimeBlock clock = stored<DateTimeBlock>(0);
    EXPECT_EQ(clock.timeZone, 26);
    EXPECT_EQ(clock.setClock, 0); // taken by the recorder
    EXPECT_EQ(clock.clock.year, 2030);
    EXPECT_EQ(clock.clock.month, 1);
    EXPECT_EQ(clock.clock.day, 2);
    NtpBlock ntp{};
    ntp.enabled = 1;
    ntp.syncResult = NtpBlock::SyncDone;
    ntp.port = NtpBlock::kDefaultPort;
    ntp.intervalMin = 30;
    std::strcpy(ntp.server, "time.example.org");
    const NtpBlock gotNtp = stored<NtpBlock>(0);
    EXPECT_EQ(std::memcmp(&gotNtp, &ntp, sizeof ntp), 0);
    const GeneralSettingsBlock general = stored<GeneralSettingsBlock>(0);
    EXPECT_EQ(general.dateFormat, 2);
    EXPECT_EQ(general.hour12, 1);
    EXPECT_FALSE(page->hasUnsavedChanges());
    close(page);

    // Daylight saving by date: from 14 March 02:00 to 7 November 03:00, 30 minutes.
    auto* dst = openPage<DstPage>();
    click(dst->enabledBox(), 2, 2);
    dst->modeBox()->setCurrentIndex(DateTimeBlock::ByDate);
    dst->startEdit()->weekOrDayBox()->setValue(14);
    dst->endEdit()->monthBox()->setValue(11);
    dst->endEdit()->weekOrDayBox()->setValue(7);
    dst->offsetBox()->setCurrentIndex(0);
    EXPECT_EQ(applyAndWait(dst), 1);
    DateTimeBlock expected = clock;
    expected.dstEnabled = 1;
    expected.dstMode = DateTimeBlock::ByDate;
    expected.dstOffsetMin = 30;
    expected.dstStart.day = 14;
    expected.dstEnd.month = 11;
    expected.dstEnd.day = 7;
    const DateTimeBlock got = stored<DateTimeBlock>(0);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
}

TEST_F(SystemPagesE2e, ANewResolutionIsKeptOnlyWhenTheUserConfirmsIt) {
    ResolutionShell shell;
    manager->setShell(&shell);
    auto* page = openPage<OutputPage>();
    page->sequenceDwellBox()->setValue(2); // between off and the shortest dwell
    EXPECT_EQ(page->apply(), -1);
    page->sequenceDwellBox()->setValue(10);
    click(page->spotBox(), 2, 2);
    page->spotStandardBox()->setCurrentIndex(OutputSettingsBlock::SpotNtsc);
    click(page->spotChannels()->box(2), 2, 2); // channel 3 leaves the spot sequence
    page->resolutionBox()->setCurrentIndex(OutputSettingsBlock::R720p);
    shell.answer = 1;
    EXPECT_EQ(applyAndWait(page), 1); // the page's set, then the confirmation's
    EXPECT_EQ(shell.asked, 1);
    OutputSettingsBlock got = stored<OutputSettingsBlock>(0);
    EXPECT_EQ(got.resolution, OutputSettingsBlock::R720p);
    EXPECT_EQ(got.confirmedResolution, OutputSettingsBlock::R720p);
    EXPECT_EQ(got.sequenceDwellSec, 10u);
    EXPECT_EQ(got.spotEnabled, 1);
    EXPECT_EQ(got.spotStandard, OutputSettingsBlock::SpotNtsc);
    EXPECT_EQ(got.spotChannels, 0x0Bu);

    // Not confirmed: the recorder goes back to 720p and is told to say so once more.
    ASSERT_TRUE(runUntil([&] { return page->resolutionBox()->currentIndex() == 1; }));
    page->resolutionBox()->setCurrentIndex(OutputSettingsBlock::R1024p);
    shell.answer = 0;
    EXPECT_EQ(applyAndWait(page), 1);
    got = stored<OutputSettingsBlock>(0);
    EXPECT_EQ(got.resolution, OutputSettingsBlock::R720p);
    EXPECT_EQ(got.checkState, OutputSettingsBlock::kCheckNotice);
    ASSERT_TRUE(runUntil([&] { return page->resolutionBox()->currentIndex() == 1; }));
}

TEST_F(SystemPagesE2e, DdnsAccountReachesTheRecorderAndItsStatusComesBack) {
    auto* page = openPage<DdnsPage>();
    EXPECT_EQ(page->statusLabel()->text(), "Not enabled");
    click(page->enabledBox(), 2, 2);
    page->providerBox()->setCurrentIndex(DdnsBlock::Custom); // without a server: fails
    page->hostEdit()->setText("gate.example.net");
    page->userEdit()->setText("guard");
    page->passwordEdit()->setText("s3cret");
    EXPECT_EQ(applyAndWait(page), 1);
    ASSERT_TRUE(runUntil([&] { return page->statusLabel()->text() == "Registration failed"; }));
    page->serverEdit()->setText("dyn.example.org");
    EXPECT_EQ(applyAndWait(page), 1);
    ASSERT_TRUE(runUntil([&] { return page->statusLabel()->text() == "Registered"; }));
    DdnsBlock expected{};
    expected.enabled = 1;
    expected.provider = DdnsBlock::Custom;
    expected.status = DdnsBlock::StatusRegistered;
    std::strcpy(expected.host, "gate.example.net");
    std::strcpy(expected.user, "guard");
    std::strcpy(expected.password, "s3cret");
    std::strcpy(expected.server, "dyn.example.org");
    const DdnsBlock got = stored<DdnsBlock>(0);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
}

TEST_F(SystemPagesE2e, PrivacyMasksDrawnOverThePictureReachTheRecorder) {
    auto* page = openPage<PrivacyMaskPage>();
    PrivacyMaskArea* area = page->area();
    const int w = area->width(), h = area->height();
    ASSERT_GT(w, 100);
    page->selector()->setValue(2);
    click(page->enabledBox(), 2, 2);
    drag(area, VyPoint(w / 10, h / 10), VyPoint(w / 2, h / 2));
    drag(area, VyPoint(w * 3 / 4, h * 3 / 4), VyPoint(w + 50, h + 50)); // past the corner
    drag(area, VyPoint(w / 5, h / 5), VyPoint(w / 5, h / 5));           // a click: removed
    drag(area, VyPoint(w / 4, 0), VyPoint(w / 2, h / 4));
    EXPECT_EQ(area->usedCount(), 2);
    EXPECT_EQ(applyAndWait(page), 1);
    const PrivacyMaskBlock got = stored<PrivacyMaskBlock>(1);
    EXPECT_EQ(got.channel, 1);
    EXPECT_EQ(got.enabled, 1);
    // The click freed the first slot and the last drag took it.
    EXPECT_NEAR(got.masks[0].x, 250, 5);
    EXPECT_EQ(got.masks[0].y, 0);
    EXPECT_EQ(got.masks[1].x + got.masks[1].width, PrivacyMaskBlock::kSpan);
    EXPECT_EQ(got.masks[1].y + got.masks[1].height, PrivacyMaskBlock::kSpan);
    EXPECT_FALSE(got.masks[2].used());

    click(page->clearButton(), 2, 2);
    EXPECT_EQ(area->usedCount(), 0);
    EXPECT_TRUE(page->hasUnsavedChanges());
}

TEST(PrivacyMaskArea, MasksAreClampedIntoThePictureAndThinOnesDropped) {
    struct Case {
        VyPoint a, b;
        PrivacyMaskBlock::Mask want;
    };
    const Case cases[] = {
        {{50, 40}, {150, 120}, {250, 200, 500, 400}},   // inside, 200 x 200 pixels
        {{150, 120}, {50, 40}, {250, 200, 500, 400}},   // drawn towards the top-left
        {{-30, -10}, {100, 100}, {0, 0, 500, 500}},     // negative ends start at 0
        {{100, 100}, {900, 500}, {500, 500, 500, 500}}, // past the edges stops there
        {{10, 10}, {11, 190}, {0, 0, 0, 0}},            // thinner than the least side
        {{300, 10}, {400, 190}, {0, 0, 0, 0}},          // wholly outside: nothing left
    };
    for (const Case& c : cases) {
        const PrivacyMaskBlock::Mask m = PrivacyMaskArea::maskFrom(c.a, c.b, 200, 200);
        EXPECT_EQ(m.x, c.want.x) << c.a.x << "," << c.a.y;
        EXPECT_EQ(m.y, c.want.y) << c.a.x << "," << c.a.y;
        EXPECT_EQ(m.width, c.want.width) << c.a.x << "," << c.a.y;
        EXPECT_EQ(m.height, c.want.height) << c.a.x << "," << c.a.y;
    }
}

TEST_F(SystemPagesE2e, CamerasFoundBySearchAreAddedToFreeChannels) {
    auto* page = openPage<NetworkCameraPage>();
    EXPECT_EQ(page->blocks().fetchCount(), kChannels); // no search before it is asked for
    page->search();
    ASSERT_EQ(page->foundList()->count(), 6);
    page->foundList()->setCurrentRow(1);
    EXPECT_EQ(page->addChosen(), 0); // the shown channel has none
    page->foundList()->setCurrentRow(4);
    EXPECT_EQ(page->addChosen(), 1); // channel 1 has one now: the next free
    EXPECT_EQ(page->selector()->value(), 2);
    EXPECT_EQ(page->addressEdit()->text(), "192.168.1.205");
    EXPECT_EQ(page->messageLabel()->text(), "Added to channel 2.");
    EXPECT_EQ(applyAndWait(page), 2);
    NetworkCameraBlock expected{};
    expected.channel = 1;
    expected.enabled = 1;
    expected.port = 80;
    const uint8_t address[4] = {192, 168, 1, 205};
    std::memcpy(expected.address, address, 4);
    std::strcpy(expected.model, "SIM-IPC-104");
    const NetworkCameraBlock got = stored<NetworkCameraBlock>(1);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0);
    EXPECT_EQ(stored<NetworkCameraBlock>(0).port, 8080);

    // A typed address that is not one stops Apply.
    page->addressEdit()->setText("192.168.1");
    EXPECT_EQ(page->apply(), -1);
}

TEST_F(SystemPagesE2e, DefaultPutsFactoryValuesOnThePageAndApplySendsOnlyWhatItChanged) {
    // What a user left behind: channel 2's encoding, daylight saving by date in another zone,
    // a DDNS account, channel 3's masks and a camera on channel 1.
    StreamBlock stream = ParamAccess::get<StreamBlock>(1);
    stream.streams[0].frameRate = 10;
    stream.streams[1].codec = StreamBlock::H265;
    DateTimeBlock clock = ParamAccess::get<DateTimeBlock>();
    clock.timeZone = 26;
    clock.dstEnabled = 1;
    clock.dstMode = DateTimeBlock::ByDate;
    DdnsBlock ddns{};
    ddns.enabled = 1;
    std::strcpy(ddns.host, "gate.example.net");
    PrivacyMaskBlock masks{2, 1, {}, {{100, 100, 200, 200}}, {}};
    NetworkCameraBlock camera = ParamAccess::get<NetworkCameraBlock>(0);
    camera.enabled = 1;
    const uint8_t address[4] = {192, 168, 1, 201};
    std::memcpy(camera.address, address, 4);
    ParamAccess::set(stream);
    ParamAccess::set(clock);
    ParamAccess::set(ddns);
    ParamAccess::set(masks);
    ParamAccess::set(camera);

    // Each page after Default and Apply: what it shows, and what the recorder stored.
    const std::pair<std::function<SettingsPage*()>, std::function<void(SettingsPage*)>> cases[] = {
        {[this] { return openPage<StreamPage>(); },
         [this](SettingsPage* p) {
             static_cast<StreamPage*>(p)->selector()->setValue(2);
             EXPECT_EQ(static_cast<StreamPage*>(p)->frameRateBox()->value(), 25);
             const StreamBlock got = stored<StreamBlock>(1);
             EXPECT_EQ(got.streams[1].codec, StreamBlock::H264);
             EXPECT_EQ(got.streams[1].maxBitrateKbps, 2048); // the encoder's, untouched
         }},
        {[this] { return openPage<DstPage>(); },
         [this](SettingsPage* p) {
             EXPECT_FALSE(static_cast<DstPage*>(p)->enabledBox()->isChecked());
             const DateTimeBlock got = stored<DateTimeBlock>(0);
             EXPECT_EQ(got.timeZone, 26); // the date and time page's
             EXPECT_EQ(got.dstMode, DateTimeBlock::ByWeek);
             EXPECT_EQ(got.dstEnd.month, 10);
         }},
        {[this] { return openPage<DdnsPage>(); },
         [this](SettingsPage* p) {
             EXPECT_TRUE(static_cast<DdnsPage*>(p)->hostEdit()->text().isEmpty());
             EXPECT_STREQ(stored<DdnsBlock>(0).host, "");
         }},
        {[this] { return openPage<PrivacyMaskPage>(); },
         [this](SettingsPage* p) {
             static_cast<PrivacyMaskPage*>(p)->selector()->setValue(3);
             EXPECT_EQ(static_cast<PrivacyMaskPage*>(p)->area()->usedCount(), 0);
             EXPECT_FALSE(stored<PrivacyMaskBlock>(2).masks[0].used());
         }},
        // Cameras stay, the one added before Default too; only the search list goes.
        {[this] {
             auto* page = openPage<NetworkCameraPage>();
             page->search();
             page->foundList()->setCurrentRow(3);
             EXPECT_EQ(page->addChosen(), 1);
             return page;
         },
         [this](SettingsPage* p) {
             EXPECT_EQ(static_cast<NetworkCameraPage*>(p)->foundList()->count(), 0);
             EXPECT_EQ(stored<NetworkCameraBlock>(0).enabled, 1);
             EXPECT_EQ(stored<NetworkCameraBlock>(1).enabled, 1);
         }},
    };
    for (const auto& [open, check] : cases) {
        SettingsPage* page = open();
        SCOPED_TRACE(page->className().c_str());
        page->restoreDefaults();          // what the window's Default button calls
        EXPECT_EQ(applyAndWait(page), 1); // the one block or channel that differed
        check(page);
        close(page);
    }
}

} // namespace
