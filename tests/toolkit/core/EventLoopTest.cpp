#include "CoreTestApp.h"

#include "toolkit/core/EventLoop.h"
#include "toolkit/core/VySingleShotTimer.h"
#include "toolkit/core/VyTimer.h"

#include <vector>

namespace {

// Quits the loop it is given after a number of events or when a slot says so.
class LoopDriver : public VyObject {
    VY_OBJECT(LoopDriver, VyObject)
public:
    bool event(VyEvent* e) override {
        if (e->type() == VyEvent::Show)
            ++shows;
        if (e->type() == VyEvent::Hide && nestedExecResult == -2)
            nestedExecResult = VyApplication::instance()->exec();
        return VyObject::event(e);
    }
    void onTimeout() {
        ++timeouts;
        if (timeouts == wantedTimeouts)
            loop->quit();
    }
    void quitApp() { VyApplication::instance()->quit(); }
    void runNested() {
        loop->exec();
        nestedReturned = true;
    }
    void quitLoop() { loop->quit(); }

    EventLoop* loop = nullptr;
    int shows = 0;
    int timeouts = 0;
    int wantedTimeouts = 3;
    int nestedExecResult = -2;
    bool nestedReturned = false;
};

} // namespace

using EventLoops = CoreAppTest;

TEST_F(EventLoops, ExecRefusesToNestAndQuitEndsIt) {
    LoopDriver driver;
    VyApplication::postEvent(&driver, std::make_unique<VyEvent>(VyEvent::Hide));
    VySingleShotTimer::singleShot(0, &driver, VY_SLOT(LoopDriver, quitApp));
    EXPECT_EQ(app()->exec(), 0);
    EXPECT_EQ(driver.nestedExecResult, 1);
    EXPECT_FALSE(app()->isRunning());
}

TEST_F(EventLoops, QuitEndsTheNestedLoopRunningInsideTheMainLoop) {
    // A dialog waiting for its answer when the process is told to stop.
    EventLoop nested;
    LoopDriver driver;
    driver.loop = &nested;
    VySingleShotTimer::singleShot(0, &driver, VY_SLOT(LoopDriver, runNested));
    VySingleShotTimer::singleShot(1, &driver, VY_SLOT(LoopDriver, quitApp));
    EXPECT_EQ(app()->exec(), 0);
    EXPECT_TRUE(driver.nestedReturned);
    // Until the main loop starts again, a nested loop leaves at once.
    EXPECT_TRUE(app()->isQuitting());
}

TEST_F(EventLoops, NestedLoopDispatchesPostedEventsAndTimers) {
    EventLoop loop;
    LoopDriver driver;
    driver.loop = &loop;
    VyTimer timer;
    VyObject::connect(&timer, &timer.timeout, &driver, VY_SLOT(LoopDriver, onTimeout));
    for (int i = 0; i < 5; ++i)
        VyApplication::postEvent(&driver, std::make_unique<VyEvent>(VyEvent::Show));
    timer.start(1);
    EXPECT_EQ(loop.exec(), 0);
    EXPECT_EQ(driver.shows, 5);
    EXPECT_EQ(driver.timeouts, 3);
    EXPECT_FALSE(loop.isRunning());
}

TEST_F(EventLoops, SingleShotCallIsDroppedWhenItsReceiverDies) {
    EventLoop loop;
    LoopDriver survivor;
    survivor.loop = &loop;
    auto* victim = new LoopDriver;
    victim->loop = &loop;
    VySingleShotTimer::singleShot(1, victim, VY_SLOT(LoopDriver, quitLoop));
    int cancelled = VySingleShotTimer::singleShot(1, &survivor, VY_SLOT(LoopDriver, quitApp));
    EXPECT_TRUE(VySingleShotTimer::cancel(cancelled));
    EXPECT_FALSE(VySingleShotTimer::cancel(cancelled));
    delete victim;
    EXPECT_EQ(app()->singleShotTimer()->pendingCount(), 0);
    VySingleShotTimer::singleShot(5, &survivor, VY_SLOT(LoopDriver, quitLoop));
    EXPECT_EQ(loop.exec(), 0); // ASan reports if the dead receiver were called
    EXPECT_EQ(app()->singleShotTimer()->pendingCount(), 0);
}
