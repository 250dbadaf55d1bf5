// UiManager construction and the delayed start: interval, output check, first screen.
#include "UiManagerTestSupport.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"

#include "model/AlarmInfoModel.h"
#include "model/CameraModel.h"
#include "model/MainViewManager.h"
#include "model/RemoteAccessModel.h"
#include "protocol/ParamRequest.h"
#include "toolkit/widgets/WndTimeoutManager.h"

#include <cstring>
#include <memory>

#include <unistd.h>

TEST_F(UiManagerTest, ConstructionTakesOverSettingsAndAnnouncesThePid) {
    SystemInfo::record().channelCount = 12;
    general.dateFormat = 1;
    general.hour12 = 1;
    general.menuTimeout = 2;
    output.resolution = OutputSettingsBlock::R768p;
    build();

    EXPECT_EQ(link.receiver, manager.get());
    auto pid = link.sentOf(MainType::System, SystemSubType::GuiPid);
    ASSERT_EQ(pid.size(), 1u);
    ASSERT_EQ(pid[0]->body.size(), 4u);
    uint32_t sentPid = 0;
    std::memcpy(&sentPid, pid[0]->body.data(), 4);
    EXPECT_EQ(sentPid, uint32_t(getpid()));

    EXPECT_EQ(manager->dateFormat(), "yyyy-MM-dd");
    EXPECT_EQ(manager->timeFormat(), "hh:mm:ss AP");
    EXPECT_EQ(manager->outputResolution(), OutputSettingsBlock::R768p);
    EXPECT_EQ(manager->channelCount(), 12);
    ASSERT_NE(manager->windowTimeoutManager(), nullptr);
    EXPECT_TRUE(manager->windowTimeoutManager()->isEnabled());
    EXPECT_EQ(manager->windowTimeoutManager()->timeoutSeconds(), 120);
    // General settings, display switches and output, in that order, before the pid.
    ASSERT_GE(link.requests.size(), 3u);
    EXPECT_EQ(ParamRequest::decode(link.requests[0].body.data(), 12)->blockNumber, 21u);
    EXPECT_EQ(ParamRequest::decode(link.requests[1].body.data(), 12)->blockNumber, 50u);
    EXPECT_EQ(ParamRequest::decode(link.requests[2].body.data(), 12)->blockNumber, 12u);
    EXPECT_EQ(AlarmInfoModel::instance(), nullptr);
    EXPECT_FALSE(manager->delayedStartDone());
}

TEST_F(UiManagerTest, AlarmInfoModelExistsOnlyWhenTheDeviceReportsAlarms) {
    SystemInfo::record().alarmInfoPresent = 1;
    SystemInfo::record().alarmInputCount = 4;
    build();
    ASSERT_NE(AlarmInfoModel::instance(), nullptr);
    EXPECT_EQ(AlarmInfoModel::instance()->inputCount(), 4);
}

TEST_F(UiManagerTest, ASecondStartUpInOneProcessBuildsFreshModels) {
    // A first run: 16 network cameras, the late model started, the main view shown.
    SystemInfo::record().ipChannelCount = 16;
    build();
    timers.advance(6760);
    ASSERT_TRUE(manager->delayedStartDone());
    EXPECT_FALSE(models->remoteAccess()->pendingStart());
    EXPECT_TRUE(MainViewManager::instance()->isShown());
    manager.reset();
    models.reset();
    EXPECT_EQ(MainViewManager::instance(), nullptr);
    EXPECT_EQ(CameraModel::instance(), nullptr);

    // A second one sees its own device and starts from the beginning.
    SystemInfo::record().ipChannelCount = 64;
    models = std::make_unique<UiModels>();
    build();
    EXPECT_EQ(manager->delayedStartIntervalMs(), 15040);
    EXPECT_EQ(CameraModel::instance(), models->camera());
    EXPECT_TRUE(models->remoteAccess()->pendingStart());
    EXPECT_FALSE(models->mainView()->isShown());
}

TEST(UiManagerInterval, GrowsWithTheCameraCount) {
    EXPECT_EQ(UiManager::delayedStartInterval(0), 4000);
    EXPECT_EQ(UiManager::delayedStartInterval(1), 4172); // 4172.5 truncated
    EXPECT_EQ(UiManager::delayedStartInterval(16), 6760);
    EXPECT_EQ(UiManager::delayedStartInterval(64), 15040);
    EXPECT_EQ(UiManager::delayedStartInterval(255), 47987);
}

TEST_F(UiManagerTest, DelayedStartFiresExactlyAfterTheIntervalOfTheCameraCount) {
    SystemInfo::record().ipChannelCount = 16;
    build();
    ASSERT_EQ(timers.armedIntervals, std::vector<int>{6760});
    timers.advance(6759);
    EXPECT_FALSE(manager->delayedStartDone());
    EXPECT_TRUE(shell.calls.empty());
    timers.advance(1);
    EXPECT_TRUE(manager->delayedStartDone());
    EXPECT_TRUE(link.waiterMode);
}

namespace {
// The block 12 record the GUI wrote back, if any; copied out, since it follows the 12-byte
// request in the message and the record needs its own alignment.
std::unique_ptr<OutputSettingsBlock> writtenOutput(const FakeRecorderLink& link) {
    for (const SentMessage& m : link.sent) {
        auto req = ParamRequest::decode(m.body.data(), m.body.size());
        if (m.mainType == 600 && req && req->getFlag == 0 && req->blockNumber == 12 &&
            m.body.size() == 12 + sizeof(OutputSettingsBlock)) {
            auto block = std::make_unique<OutputSettingsBlock>();
            std::memcpy(block.get(), m.body.data() + 12, sizeof(OutputSettingsBlock));
            return block;
        }
    }
    return nullptr;
}
} // namespace

TEST_F(UiManagerTest, SettledResolutionWithPendingNoticeShowsTheNoticeAndWritesNothing) {
    output.resolution = output.confirmedResolution = OutputSettingsBlock::R720p;
    output.checkState = OutputSettingsBlock::kCheckNotice;
    build();
    manager->delayedStart();
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"notice:1", "mainview"}));
    EXPECT_EQ(writtenOutput(link), nullptr);
}

TEST_F(UiManagerTest, SettledResolutionWithoutNoticeGoesStraightToTheMainView) {
    output.resolution = output.confirmedResolution = OutputSettingsBlock::R1080p;
    build();
    manager->delayedStart();
    EXPECT_EQ(shell.calls, std::vector<std::string>{"mainview"});
    EXPECT_TRUE(link.sentOf(MainType::System, SystemSubType::OutputCheckSkipped).empty());
}

TEST_F(UiManagerTest, KeptNewResolutionBecomesTheConfirmedOne) {
    output.resolution = OutputSettingsBlock::R1024p;
    output.confirmedResolution = OutputSettingsBlock::R1080p;
    output.checkState = 1;
    shell.confirmAnswer = 1;
    build();
    manager->delayedStart();
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"confirm:2", "apply:2", "mainview"}));
    const auto w = writtenOutput(link);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->resolution, OutputSettingsBlock::R1024p);
    EXPECT_EQ(w->confirmedResolution, OutputSettingsBlock::R1024p);
    EXPECT_EQ(w->checkState, OutputSettingsBlock::kCheckSettled);
}

TEST_F(UiManagerTest, RefusedNewResolutionFallsBackAndRestoresTheOutput) {
    output.resolution = OutputSettingsBlock::R600p;
    output.confirmedResolution = OutputSettingsBlock::R720p;
    shell.confirmAnswer = 0;
    build();
    manager->delayedStart();
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"confirm:4", "apply:1:restore", "mainview"}));
    const auto w = writtenOutput(link);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->resolution, OutputSettingsBlock::R720p);
    EXPECT_EQ(w->confirmedResolution, OutputSettingsBlock::R720p);
    EXPECT_EQ(w->checkState, OutputSettingsBlock::kCheckNotice);
}

TEST_F(UiManagerTest, DisabledOutputCheckTellsAppInstead) {
    SystemInfo::record().outputCheckDisabled = 1;
    output.resolution = OutputSettingsBlock::R600p; // would need confirming otherwise
    build();
    manager->delayedStart();
    EXPECT_EQ(link.sentOf(MainType::System, SystemSubType::OutputCheckSkipped).size(), 1u);
    EXPECT_EQ(shell.calls, std::vector<std::string>{"mainview"});
}

TEST_F(UiManagerTest, WizardOpensOverTheMainViewOnceWhenSwitchedOn) {
    build();
    GeneralSettingsBlock on = general;
    on.wizardEnabled = 1;
    link.store(on); // read fresh at delayed start, not at construction
    manager->delayedStart();
    EXPECT_EQ(shell.calls, (std::vector<std::string>{"mainview", "wizard"}));
    EXPECT_TRUE(manager->isWizardSuppressed());
}

TEST_F(UiManagerTest, SuppressedOrHaltedDelayedStartOpensNoWizard) {
    general.wizardEnabled = 1;
    build();
    manager->setWizardSuppressed(true);
    manager->setHalted(true);
    manager->delayedStart();
    EXPECT_TRUE(shell.calls.empty());
    EXPECT_FALSE(link.waiterMode);
    manager->setHalted(false);
    manager->delayedStart();
    EXPECT_EQ(shell.calls, std::vector<std::string>{"mainview"});
}

TEST_F(UiManagerTest, TickSignalsEverySecondAndDateChangeOncePerDay) {
    s_today = VyDate(2026, 11, 21);
    build();
    SignalCounter ticks, days;
    VyObject::connect(manager.get(), &manager->tick, &ticks, VY_SLOT(SignalCounter, hit));
    VyObject::connect(manager.get(), &manager->dateChanged, &days, VY_SLOT(SignalCounter, hit));
    manager->onTick();
    manager->onTick();
    EXPECT_EQ(ticks.count, 2);
    EXPECT_EQ(days.count, 0);
    s_today = VyDate(2026, 11, 22);
    manager->onTick();
    manager->onTick();
    EXPECT_EQ(ticks.count, 4);
    EXPECT_EQ(days.count, 1);
    EXPECT_EQ(manager->rememberedDate(), VyDate(2026, 11, 22));
}
