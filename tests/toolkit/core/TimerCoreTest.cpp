#include "CoreTestApp.h"

#include "toolkit/core/VyTimer.h"
#include "toolkit/core/VyTimerCore.h"
#include "toolkit/events/VyTimerEvent.h"

#include <cstdio>
#include <vector>

namespace {

constexpr int64_t kMs = 1000000; // ns

// Records the ids of the Timer events it receives, in order.
class TimerLog : public VyObject {
    VY_OBJECT(TimerLog, VyObject)
public:
    void timerEvent(VyTimerEvent* e) override {
        ids.push_back(static_cast<uint32_t>(e->timerId()));
    }
    std::vector<uint32_t> ids;
};

// A timer core that is never started: the test moves the clock and fires by hand.
struct ManualTimers {
    int64_t now = 5000 * kMs;
    VyTimerCore core{[this] { return now; }};
};

} // namespace

using TimerCore = CoreAppTest;

TEST_F(TimerCore, EqualDeadlinesFireInRegistrationOrder) {
    ManualTimers t;
    TimerLog log;
    uint32_t a = t.core.registerTimer(10, &log, -1);
    uint32_t b = t.core.registerTimer(5, &log, -1);
    uint32_t c = t.core.registerTimer(10, &log, -1);
    uint32_t d = t.core.registerTimer(10, &log, -1);
    EXPECT_EQ(t.core.fireExpired(), t.now + 5 * kMs);
    t.now += 10 * kMs;
    t.core.fireExpired();
    app()->processPostedEvents();
    EXPECT_EQ(log.ids, (std::vector<uint32_t>{b, a, c, d}));
}

TEST_F(TimerCore, LateFiringRestartsThePeriodWithoutCatchingUp) {
    ManualTimers t;
    TimerLog log;
    uint32_t id = t.core.registerTimer(1000, &log, -1);
    t.now += 3500 * kMs; // three and a half periods late
    EXPECT_EQ(t.core.fireExpired(), t.now + 1000 * kMs);
    app()->processPostedEvents();
    EXPECT_EQ(log.ids, (std::vector<uint32_t>{id}));
}

TEST_F(TimerCore, RepeatCountAndZeroIntervalAreHonoured) {
    ManualTimers t;
    TimerLog log;
    uint32_t twice = t.core.registerTimer(1, &log, 1); // this expiry and one more
    uint32_t fast = t.core.registerTimer(0, &log, 0);  // 0 ms counts as 1 ms
    for (int i = 0; i < 4; ++i) {
        t.now += kMs;
        t.core.fireExpired();
    }
    app()->processPostedEvents();
    EXPECT_EQ(log.ids, (std::vector<uint32_t>{twice, fast, twice}));
    EXPECT_EQ(t.core.timerCount(), 0);
    EXPECT_EQ(t.core.fireExpired(), -1);
}

TEST_F(TimerCore, UnknownIdIsReportedAndRefused) {
    ManualTimers t;
    TimerLog log;
    uint32_t id = t.core.registerTimer(10, &log, -1);
    testing::internal::CaptureStdout();
    EXPECT_FALSE(t.core.unregisterTimer(id + 100));
    std::string out = testing::internal::GetCapturedStdout();
    EXPECT_EQ(out, "[GUI-FRAMEWORK]: unregisterTimer(timer_id=" + std::to_string(id + 100) +
                       "), invalid timer id !!!\n");
    EXPECT_EQ(t.core.timerCount(), 1);
    EXPECT_TRUE(t.core.unregisterTimer(id));
    EXPECT_EQ(t.core.timerCount(), 0);
}

TEST_F(TimerCore, UnregisteringAReceiverLeavesOthersAndIdsAreNeverZeroOrReused) {
    ManualTimers t;
    TimerLog gone, kept;
    std::vector<uint32_t> ids;
    ids.reserve(3);
    for (int i = 0; i < 3; ++i)
        ids.push_back(t.core.registerTimer(10, &gone, -1));
    uint32_t keptId = t.core.registerTimer(10, &kept, -1);
    EXPECT_EQ(t.core.unregisterTimers(&gone), 3);
    t.now += 10 * kMs;
    t.core.fireExpired();
    app()->processPostedEvents();
    EXPECT_TRUE(gone.ids.empty());
    EXPECT_EQ(kept.ids, (std::vector<uint32_t>{keptId}));
    for (uint32_t id : ids)
        EXPECT_NE(id, 0u);
}

TEST_F(TimerCore, TimerIgnoresAnExpiryQueuedBeforeItWasStopped) {
    VyTimer timer;
    int fired = 0;
    struct Count : VyObject {
        int* n;
        void hit() { ++*n; }
    } sink;
    sink.n = &fired;
    VyObject::connect(&timer, &timer.timeout, &sink, VY_SLOT(Count, hit));
    timer.start(60000);
    int oldId = timer.timerId();
    ASSERT_NE(oldId, 0);
    // The timer thread posted this expiry just before the stop.
    VyApplication::postEvent(&timer, std::make_unique<VyTimerEvent>(oldId));
    timer.stop();
    app()->processPostedEvents();
    EXPECT_EQ(fired, 0);

    // A restart gets a new id; the old expiry still does not count.
    timer.start();
    VyApplication::postEvent(&timer, std::make_unique<VyTimerEvent>(oldId));
    VyApplication::postEvent(&timer, std::make_unique<VyTimerEvent>(timer.timerId()));
    app()->processPostedEvents();
    EXPECT_EQ(fired, 1);
    EXPECT_TRUE(timer.isActive());

    timer.setSingleShot(true);
    VyApplication::postEvent(&timer, std::make_unique<VyTimerEvent>(timer.timerId()));
    VyApplication::postEvent(&timer, std::make_unique<VyTimerEvent>(timer.timerId()));
    app()->processPostedEvents();
    EXPECT_EQ(fired, 2);
    EXPECT_FALSE(timer.isActive());
    EXPECT_EQ(timer.timerCount(), 0);
}
