// UiManager routing of App's notifications: forwarding to registered receivers, the
// notifications it handles itself, the parameter switch and malformed bodies.
#include "UiManagerTestSupport.h"
#include "protocol/UiEventType.h"

#include "model/DeviceParamModel.h"
#include "model/FrontPanelModel.h"
#include "model/MainViewManager.h"
#include "model/UiRouteTable.h"
#include "protocol/TimeZoneNotice.h"
#include "runtime/VyResources.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"

#include <algorithm>
#include <cstdlib>

namespace {

class Playback : public PlaybackReceiver {
public:
    bool readyForRecorderMessages() const override { return ready; }
    void customEvent(VyEvent* e) override { types.push_back(e->type()); }
    bool ready = false;
    std::vector<int> types;
};

std::string captured() {
    std::fflush(stdout);
    return ::testing::internal::GetCapturedStdout();
}

} // namespace

TEST_F(UiManagerTest, EveryForwardedSubTypeReachesItsReceiverWithItsEventType) {
    build();
    ForwardRecorder recorder;
    int count = 0;
    const int* types = UiRouteTable::forwardedEventTypes(&count);
    for (int i = 0; i < count; ++i)
        manager->setReceiver(types[i], &recorder);

    std::vector<std::pair<int, int>> expected; // (SubType, event type)
    for (int sub = 8; sub <= 308; ++sub) {
        const UiRoute r = UiRouteTable::route(1000, uint16_t(sub));
        if (r.kind != UiRouteKind::Forward)
            continue;
        expected.emplace_back(sub, r.uiEventType);
        deliver(1000, uint16_t(sub), 77);
    }
    ASSERT_EQ(recorder.received.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        const ForwardRecorder::Received& got = recorder.received[i];
        EXPECT_EQ(got.type, expected[i].second) << "SubType " << expected[i].first;
        // The very message travels on: same types, same block.
        EXPECT_EQ(got.mainType, 1000);
        EXPECT_EQ(got.subType, expected[i].first);
        // Only SubType 11 carries App's value into the event.
        EXPECT_EQ(got.param, expected[i].first == 11 ? 77 : 0) << "SubType " << expected[i].first;
    }
    EXPECT_EQ(manager->droppedCount(), 0);
}

TEST_F(UiManagerTest, UnregisteredOrDeadReceiversDropTheMessage) {
    build();
    deliver(1000, 9, 0); // 1020, nobody registered
    EXPECT_EQ(manager->droppedCount(), 1);
    {
        ForwardRecorder window;
        manager->setReceiver(1020, &window);
        deliver(1000, 9, 0);
        EXPECT_EQ(window.received.size(), 1u);
        // It dies without clearing its slot and without a destroyed signal.
        window.blockSignals(true);
    }
    EXPECT_EQ(manager->receiver(1020), nullptr);
    deliver(1000, 9, 0);
    EXPECT_EQ(manager->droppedCount(), 2);
    deliver(1000, 400, 0); // beyond the routed range
    deliver(1234, 8, 0);   // unknown family
    EXPECT_EQ(manager->droppedCount(), 4);
}

TEST_F(UiManagerTest, SecondAndPlaybackReceiversThatDieSilentlyAreNotPostedTo) {
    build();
    {
        ForwardRecorder second;
        Playback playback;
        playback.ready = true;
        manager->setSecondReceiver1032(&second);
        manager->setPlaybackReceivers(&playback, nullptr);
        second.blockSignals(true);
        playback.blockSignals(true);
    }
    deliver(1000, 13, 0);
    deliver(300, 2, 0);
    EXPECT_EQ(manager->droppedCount(), 2);
}

TEST_F(UiManagerTest, SubType13TakesTheSecondReceiverOnlyWithoutTheFirst) {
    build();
    ForwardRecorder first, second;
    manager->setSecondReceiver1032(&second);
    deliver(1000, 13, 0);
    manager->setReceiver(1032, &first);
    deliver(1000, 13, 0);
    EXPECT_EQ(second.received.size(), 1u);
    ASSERT_EQ(first.received.size(), 1u);
    EXPECT_EQ(first.received[0].type, 1032);
}

TEST_F(UiManagerTest, MainViewAndPlaybackFamiliesReachTheirManagers) {
    build();
    const int before = MainViewManager::instance()->previewMessageCount();
    deliver(100, 3, 9);
    EXPECT_EQ(MainViewManager::instance()->previewMessageCount(), before + 1);
    EXPECT_EQ(MainViewManager::instance()->lastPreviewSubType(), 3);
    EXPECT_EQ(MainViewManager::instance()->lastPreviewValue(), 9u);

    Playback first, second;
    second.ready = true;
    manager->setPlaybackReceivers(nullptr, &second);
    deliver(300, 2, 0);
    manager->setPlaybackReceivers(&first, &second);
    deliver(300, 3, 0); // the first is present but not ready: dropped, not passed on
    first.ready = true;
    deliver(300, 14, 0);
    EXPECT_EQ(second.types, std::vector<int>{UiEventType::IpcMessage});
    EXPECT_EQ(first.types, std::vector<int>{UiEventType::IpcMessage});
    EXPECT_EQ(manager->droppedCount(), 1);
}

TEST_F(UiManagerTest, SelfHandledNotificationsAnswerApp) {
    build();
    link.sent.clear();
    deliver(1000, 14, 0); // nothing to say
    deliver(1000, 14, 3);
    deliver(1000, 44, 0);
    deliver(1000, 308, 0);
    deliver(1000, 45, 0);
    deliver(1000, 199, 0);
    deliver(1000, 52, 6); // remembered only
    std::vector<std::pair<int, int>> sent;
    for (const SentMessage& m : link.sent) {
        sent.emplace_back(m.mainType, m.subType);
        EXPECT_TRUE(m.body.empty());
    }
    EXPECT_EQ(sent, (std::vector<std::pair<int, int>>{
                        {1000, 14}, {1000, 14}, {1000, 14}, {1000, 45}, {1000, 201}}));
    EXPECT_EQ(shell.calls, std::vector<std::string>{
                               "message:" + std::to_string(TextId::SystemNotice::DeviceBusy)});
    EXPECT_EQ(manager->lastNotificationValue(52), 6u);
}

TEST_F(UiManagerTest, LedNetworkAndShutdownNotices) {
    build();
    SignalCounter status;
    VyObject::connect(manager.get(), &manager->networkStatusChanged, &status,
                      VY_SLOT(SignalCounter, hit));
    VyObject::connect(manager.get(), &manager->connectionStateChanged, &status,
                      VY_SLOT(SignalCounter, hit));
    ::testing::internal::CaptureStdout();
    deliver(1000, 47, 0x103);
    deliver(1000, 116, 2);
    deliver(1000, 280, 0);
    const std::string out = captured();
    EXPECT_NE(out.find("LED state: 259 ------------------\n"), std::string::npos) << out;
    EXPECT_NE(out.find("UI:NET STATUS:2\n"), std::string::npos) << out;
    EXPECT_EQ(FrontPanelModel::instance()->ledState(), 3);
    EXPECT_EQ(manager->networkStatus(), 2u);
    EXPECT_EQ(status.count, 2);
    EXPECT_EQ(shell.calls, std::vector<std::string>{
                               "message:" + std::to_string(TextId::SystemNotice::ShuttingDown)});
    EXPECT_TRUE(manager->isShuttingDown());
    // A shutdown before the first screen leaves the screen as it is.
    manager->delayedStart();
    EXPECT_EQ(shell.calls.size(), 1u);
}

TEST_F(UiManagerTest, TimeZoneNoticeSetsTzAndRejectsTextWithoutItsEnd) {
    build();
    setenv("TZ", "UTC0", 1);
    TimeZoneNotice tz{};
    std::strcpy(tz.tz, "CST-8");
    tz.value = 31;
    ::testing::internal::CaptureStdout();
    deliver(600, 7, 0, &tz, sizeof tz);
    std::string out = captured();
    EXPECT_STREQ(getenv("TZ"), "CST-8");
    EXPECT_NE(out.find("[GUI] Set TZ to CST-8\n"), std::string::npos) << out;
    EXPECT_EQ(manager->timeZoneValue(), 31u);

    // No terminating NUL anywhere in the body.
    uint8_t unterminated[24];
    std::memset(unterminated, 'A', sizeof unterminated);
    // A body too short for the value, though terminated.
    const char shortBody[] = "EST5";
    deliver(600, 7, 0, unterminated, sizeof unterminated);
    deliver(600, 7, 0, shortBody, sizeof shortBody);
    deliver(600, 7, 0);
    EXPECT_STREQ(getenv("TZ"), "CST-8");
    EXPECT_EQ(manager->droppedCount(), 3);
}

TEST_F(UiManagerTest, LanguageComesFromBlock21AndFollowsItsChanges) {
    VyResources::setRoot(VY_RESOURCES_DIR);
    constexpr int kRussian = 15;
    // English is configured but not offered: the first offered language is taken and
    // written back with its mask.
    general.languageIndex = VyTranslation::kEnglish;
    general.languageMask = 1u << 1 | 1u << kRussian;
    general.dateFormat = 2;
    build();
    VyTranslation* t = VyTranslation::instance();
    EXPECT_EQ(t->language(), 1);
    const auto sets = link.sentOf(600, 0);
    ASSERT_EQ(sets.size(), 1u);
    GeneralSettingsBlock written;
    ASSERT_EQ(sets[0]->body.size(), 12 + sizeof written);
    std::memcpy(&written, sets[0]->body.data() + 12, sizeof written);
    EXPECT_EQ(written.languageIndex, 1);
    EXPECT_EQ(written.languageMask, 1u << 1 | 1u << kRussian);
    EXPECT_EQ(written.dateFormat, 2) << "the rest of the block goes back as App has it";

    SignalCounter changes;
    VyObject::connect(t, &t->languageChanged, &changes, VY_SLOT(SignalCounter, hit));
    GeneralSettingsBlock changed = general;
    changed.languageIndex = kRussian;
    link.store(changed);
    const uint32_t block21 = 21;
    deliver(600, 0, 0, &block21, sizeof block21);
    EXPECT_EQ(t->language(), kRussian);
    EXPECT_EQ(manager->messageText(UiManager::MsgShutdown), "NVR выключается......");
    EXPECT_EQ(changes.count, 1);
    // Another change of block 21 that leaves the language alone loads nothing.
    changed.dateFormat = 1;
    link.store(changed);
    deliver(600, 0, 0, &block21, sizeof block21);
    EXPECT_EQ(changes.count, 1);
    VyResources::setRoot(VyString());
}

TEST_F(UiManagerTest, ParameterChangedReactsThenForwardsToSettings) {
    build();
    ForwardRecorder settings, param1, param2;
    manager->setReceiver(UiEventType::ParamChanged, &settings);
    manager->setReceiver(UiEventType::ParamNotice1, &param1);
    manager->setReceiver(UiEventType::ParamNotice2, &param2);

    GeneralSettingsBlock changed = general;
    changed.dateFormat = 2;
    link.store(changed);
    const uint32_t block21 = 21;
    deliver(600, 0, 0, &block21, sizeof block21);
    EXPECT_EQ(manager->dateFormat(), "dd/MM/yyyy");

    // A part is refetched on a change only when a screen fetched it before.
    DeviceParamModel* cache = DeviceParamModel::instance();
    const uint32_t block3 = 3;
    deliver(600, 0, 0, &block3, sizeof block3);
    EXPECT_EQ(link.paramGets(3), 0);
    cache->part(2);
    deliver(600, 0, 0, &block3, sizeof block3);
    EXPECT_EQ(link.paramGets(3), 2);
    EXPECT_EQ(cache->lastChangedPart(), 2);

    // A non-zero value: no reaction, but the settings still hear of it.
    deliver(600, 0, 5);
    deliver(600, 1, 0);
    deliver(600, 2, 0);
    EXPECT_EQ(settings.received.size(), 4u);
    EXPECT_EQ(param1.received.size(), 1u);
    EXPECT_EQ(param1.received[0].type, 1015);
    EXPECT_EQ(param2.received[0].type, 1016);
}

TEST_F(UiManagerTest, AStormOfChangeNoticesDuringAGetIsReadOnceAfterItNotNested) {
    build();
    const uint32_t block21 = 21;
    int depth = 0, deepest = 0, storms = 3;
    link.whileWaiting = [&] {
        deepest = std::max(deepest, ++depth);
        if (storms-- > 0) {
            // App changes the block again and again while the GUI waits for it.
            GeneralSettingsBlock changed = general;
            changed.dateFormat = uint8_t(storms == 0 ? 2 : 1);
            link.store(changed);
            for (int i = 0; i < 20; ++i)
                VyApplication::postEvent(manager.get(),
                                         makeIpcEvent(600, 0, 0, &block21, sizeof block21));
            app()->processPostedEvents();
        }
        --depth;
    };
    const int before = link.paramGets(21);
    deliver(600, 0, 0, &block21, sizeof block21);
    EXPECT_EQ(deepest, 1);
    // The first get, then one for each storm that came while the one before it waited.
    EXPECT_EQ(link.paramGets(21) - before, 4);
    EXPECT_EQ(manager->dateFormat(), "dd/MM/yyyy"); // the last value App stored
}

TEST_F(UiManagerTest, ParameterChangedWithoutBlockNumberIsDropped) {
    build();
    ForwardRecorder settings;
    manager->setReceiver(UiEventType::ParamChanged, &settings);
    const size_t before = link.requests.size();
    const uint8_t half[2] = {21, 0};
    deliver(600, 0, 0, half, sizeof half);
    deliver(600, 0, 0);
    EXPECT_TRUE(settings.received.empty());
    EXPECT_EQ(link.requests.size(), before);
    EXPECT_EQ(manager->droppedCount(), 2);
}

TEST_F(UiManagerTest, PageTurnNoticeBecomesATurnPageEventWithItsValue) {
    build();
    ForwardRecorder view;
    deliver(1000, 170, 0x0203); // nobody registered: dropped
    manager->setReceiver(UiEventType::TurnPage, &view);
    deliver(1000, 170, 0x0203);
    ASSERT_EQ(view.received.size(), 1u);
    EXPECT_EQ(view.received[0].type, UiEventType::TurnPage);
    EXPECT_EQ(view.received[0].param, 0x0203);
}
