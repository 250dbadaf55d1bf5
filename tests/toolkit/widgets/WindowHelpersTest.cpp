#include "WidgetProbe.h"

#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/widgets/WindowBlocker.h"
#include "toolkit/widgets/WndTimeoutManager.h"

using WindowHelpers = CoreAppTest;

namespace {

void idleFor(VyApplication* app, int ticks) {
    for (int i = 0; i < ticks; ++i)
        app->idleTick();
}

} // namespace

TEST_F(WindowHelpers, TimeoutClosesPopupsAndModalWindowsOneByOne) {
    WndTimeoutManager manager;
    EXPECT_EQ(manager.timeoutSeconds(), 60);
    EXPECT_FALSE(manager.isEnabled());
    manager.setTimeoutSeconds(0);
    EXPECT_EQ(manager.periodTicks(), 6);
    manager.setTimeoutSeconds(5);
    manager.setEnabled(true);

    Probe main("main", nullptr, VyRect(0, 0, 320, 240));
    main.show();
    Probe dialog("dialog", nullptr, nullptr, VyWidget::Dialog);
    dialog.setAttribute(VyWidget::Modal);
    dialog.setGeometry(10, 10, 100, 100);
    dialog.show();
    Probe menu("menu", nullptr, &dialog, VyWidget::Popup);
    menu.setGeometry(20, 20, 50, 50);
    menu.show();

    app()->setInputClocks(nullptr, [] { return int64_t(1000); });
    app()->noteInput();
    idleFor(app(), 5);
    EXPECT_TRUE(menu.isVisible()); // 5 ticks is the period, not past it
    idleFor(app(), 1);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_TRUE(dialog.isVisible());
    idleFor(app(), 5);
    EXPECT_TRUE(dialog.isVisible());
    idleFor(app(), 1);
    EXPECT_FALSE(dialog.isVisible());
    idleFor(app(), 30);
    EXPECT_TRUE(main.isVisible()); // neither modal nor popup
}

TEST_F(WindowHelpers, InputRestartsThePeriodAndFlagsGateWhatCloses) {
    WndTimeoutManager manager;
    manager.setEnabled(true);
    manager.setTimeoutSeconds(5);
    Probe first("first", nullptr, nullptr, VyWidget::Popup);
    first.setGeometry(0, 0, 50, 50);
    first.show();
    Probe second("second", nullptr, nullptr, VyWidget::Popup);
    second.setGeometry(0, 0, 40, 40);
    second.show();
    int64_t wallSecond = 1000;
    app()->setInputClocks(nullptr, [&wallSecond] { return wallSecond; });

    app()->noteInput();
    idleFor(app(), 6);
    EXPECT_FALSE(second.isVisible());
    // A key in a new second sets the count back: the next window waits a whole period.
    ++wallSecond;
    VyKeyEvent key(VyEvent::KeyPress, 1);
    VyApplication::sendEvent(&first, &key);
    EXPECT_EQ(app()->idleCount(), 0);
    idleFor(app(), 5);
    EXPECT_TRUE(first.isVisible());
    idleFor(app(), 1);
    EXPECT_FALSE(first.isVisible());

    Probe third("third", nullptr, nullptr, VyWidget::Popup);
    third.setGeometry(0, 0, 50, 50);
    third.show();
    manager.setFlags(WndTimeoutManager::CloseModalWindows);
    ++wallSecond;
    manager.notifyActivity();
    idleFor(app(), 20);
    EXPECT_TRUE(third.isVisible());
    manager.setFlags(WndTimeoutManager::ClosePopups);
    manager.setEnabled(false);
    ++wallSecond;
    manager.notifyActivity();
    idleFor(app(), 20);
    EXPECT_TRUE(third.isVisible());
}

TEST_F(WindowHelpers, BlockerSwallowsInputToItsWindowOnlyWhileItLives) {
    std::vector<std::string> log;
    Probe busy("busy", &log, VyRect(0, 0, 100, 100));
    auto* child = childProbe("child", &log, &busy, VyRect(0, 0, 50, 50));
    Probe other("other", &log, VyRect(200, 0, 100, 100));
    for (Probe* p : {&busy, child, &other})
        p->show();
    pointer(app(), 10, 10);
    log.clear();
    {
        WindowBlocker blocker(child);
        EXPECT_TRUE(WindowBlocker::isBlocked(&busy));
        EXPECT_FALSE(WindowBlocker::isBlocked(&other));
        click(app(), 10, 10);
        click(app(), 210, 10);
        EXPECT_GE(blocker.swallowed(), 2);
        // Hover changes still flow; no mouse event reached the blocked window.
        for (const std::string& line : log) {
            if (line.find('@') != std::string::npos) {
                EXPECT_EQ(line.rfind("other:", 0), 0u) << line;
            }
        }
        EXPECT_NE(std::find(log.begin(), log.end(), "other:press@10,10"), log.end());
    }
    EXPECT_FALSE(WindowBlocker::isBlocked(&busy));
    log.clear();
    click(app(), 10, 10);
    EXPECT_NE(std::find(log.begin(), log.end(), "child:press@10,10"), log.end());
}
