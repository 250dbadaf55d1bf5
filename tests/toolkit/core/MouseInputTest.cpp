// From raw samples to what the user sees: double clicks, the idle count and its triggers,
// the cursor hiding when idle and taking the shape of the widget under it.
#include "toolkit/widgets/WidgetProbe.h"

#include "toolkit/core/VyMouseTrigger.h"
#include "toolkit/core/VyScreenCursor.h"

namespace {

class MouseInput : public CoreAppTest {
protected:
    void SetUp() override {
        CoreAppTest::SetUp();
        app()->setInputClocks([this] { return nowMs; }, [this] { return wallSecond; });
    }
    VyScreenCursor* cursor() const { return app()->screen()->cursor(); }
    void clickAt(int x, int y, uint8_t button = VyMouseEvent::LeftButton) {
        pointer(app(), x, y, button);
        pointer(app(), x, y, 0);
    }

    int64_t nowMs = 1000;
    int64_t wallSecond = 100;
};

// Counts its calls in order.
class CountingTrigger : public VyMouseTrigger {
public:
    explicit CountingTrigger(int threshold)
        : VyMouseTrigger(threshold) {}
    void onActivity() override { calls.push_back('a'); }
    void onIdleTimeout() override { calls.push_back('t'); }
    std::string calls;
};

} // namespace

TEST_F(MouseInput, ASecondPressSoonAndNearIsADoubleClickOnce) {
    std::vector<std::string> log;
    Probe win("win", &log, VyRect(0, 0, 200, 100));
    win.show();
    pointer(app(), 50, 50);
    log.clear();
    clickAt(50, 50);
    nowMs += VyApplication::kDoubleClickIntervalMs;
    clickAt(50 + VyApplication::kDoubleClickDistance, 50 - VyApplication::kDoubleClickDistance);
    nowMs += 10;
    clickAt(54, 46); // a third press starts over
    EXPECT_EQ(log, (std::vector<std::string>{"win:press@50,50", "win:release@50,50",
                                             "win:double@54,46", "win:release@54,46",
                                             "win:press@54,46", "win:release@54,46"}));
    // Too late, too far, or another button: presses.
    log.clear();
    nowMs += VyApplication::kDoubleClickIntervalMs + 1;
    clickAt(54, 46);
    nowMs += 10;
    clickAt(54 + VyApplication::kDoubleClickDistance + 1, 46);
    nowMs += 10;
    clickAt(59, 46, VyMouseEvent::RightButton);
    int presses = 0;
    for (const std::string& line : log)
        presses += line.rfind("win:press@", 0) == 0;
    EXPECT_EQ(presses, 3);
}

TEST_F(MouseInput, TriggersFirePastTheThresholdAndRecoverOnInput) {
    CountingTrigger trigger(60);
    EXPECT_TRUE(trigger.isTimedOut());
    VyMouseTrigger::idleCountChanged(0);
    EXPECT_EQ(trigger.calls, "a");
    VyMouseTrigger::idleCountChanged(60);
    EXPECT_EQ(trigger.calls, "a");
    VyMouseTrigger::idleCountChanged(61);
    VyMouseTrigger::idleCountChanged(62);
    EXPECT_EQ(trigger.calls, "at");
    VyMouseTrigger::idleCountChanged(0);
    EXPECT_EQ(trigger.calls, "ata");
    trigger.setEnabled(false);
    VyMouseTrigger::idleCountChanged(100);
    EXPECT_EQ(trigger.calls, "ata");
    {
        CountingTrigger gone(1);
        EXPECT_EQ(VyMouseTrigger::triggerCount(), 3); // this pair and the screen's cursor
    }
    EXPECT_EQ(VyMouseTrigger::triggerCount(), 2);
}

TEST_F(MouseInput, IdleTicksCountUntilInputInANewSecond) {
    CountingTrigger trigger(3);
    pointer(app(), 10, 10);
    for (int i = 0; i < 4; ++i)
        app()->idleTick();
    EXPECT_EQ(app()->idleCount(), 4);
    EXPECT_EQ(trigger.calls, "at");
    // Still the second of the last reset: a burst of input walks the triggers once.
    pointer(app(), 11, 10);
    EXPECT_EQ(app()->idleCount(), 4);
    ++wallSecond;
    pointer(app(), 12, 10);
    EXPECT_EQ(app()->idleCount(), 0);
    EXPECT_EQ(trigger.calls, "ata");
}

TEST_F(MouseInput, TheCursorHidesWhenIdleAndShowsOnTheNextMove) {
    pointer(app(), 10, 10);
    EXPECT_TRUE(cursor()->isShown());
    for (int i = 0; i < VyScreenCursor::kHideAfterIdleTicks; ++i)
        app()->idleTick();
    EXPECT_TRUE(cursor()->isShown());
    app()->idleTick();
    EXPECT_FALSE(cursor()->isShown());
    wallSecond += VyScreenCursor::kHideAfterIdleTicks + 1;
    pointer(app(), 20, 10);
    EXPECT_TRUE(cursor()->isShown());
}

TEST_F(MouseInput, TheCursorTakesTheShapeOfTheWidgetUnderIt) {
    Probe win("win", nullptr, VyRect(0, 0, 200, 100));
    win.setCursorShape(VyScreenCursor::Hand);
    auto* edit = childProbe("edit", nullptr, &win, VyRect(10, 10, 50, 20));
    edit->setCursorShape(VyScreenCursor::IBeam);
    auto* inner = childProbe("inner", nullptr, edit, VyRect(0, 0, 10, 10));
    auto* plain = childProbe("plain", nullptr, &win, VyRect(100, 10, 50, 20));
    for (Probe* w : {&win, edit, inner, plain})
        w->show();

    pointer(app(), 20, 25);
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::IBeam);
    pointer(app(), 12, 12); // inner has none of its own: its parent's
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::IBeam);
    pointer(app(), 110, 20);
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::Hand);
    pointer(app(), 300, 200); // over no window
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::Arrow);
    pointer(app(), 20, 25);
    edit->unsetCursorShape(); // under the pointer: follows at once
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::Hand);

    // A request waiting in a nested loop shows busy wherever the pointer goes.
    app()->setOverrideCursor(VyScreenCursor::Busy);
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::Busy);
    pointer(app(), 300, 200);
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::Busy);
    app()->restoreOverrideCursor();
    EXPECT_EQ(cursor()->shape(), VyScreenCursor::Arrow);
}
