#include "WidgetProbe.h"

#include "toolkit/core/VyTimer.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/widgets/WindowBlocker.h"
#include "toolkit/widgets/WndTimeoutManager.h"

using WindowHelpers = CoreAppTest;

TEST_F(WindowHelpers, TimeoutClosesPopupsAndModalWindowsOneByOne) {
    WndTimeoutManager manager;
    EXPECT_EQ(manager.timeoutSeconds(), 60);
    EXPECT_FALSE(manager.isTimerActive());
    manager.setEnabled(true);
    EXPECT_EQ(manager.currentIntervalMs(), 60000);
    manager.setTimeoutSeconds(0);
    EXPECT_EQ(manager.currentIntervalMs(), 6000);

    Probe main("main", nullptr, VyRect(0, 0, 320, 240));
    main.show();
    Probe dialog("dialog", nullptr, nullptr, VyWidget::Dialog);
    dialog.setAttribute(VyWidget::Modal);
    dialog.setGeometry(10, 10, 100, 100);
    dialog.show();
    Probe menu("menu", nullptr, &dialog, VyWidget::Popup);
    menu.setGeometry(20, 20, 50, 50);
    menu.show();

    manager.onTimeout();
    EXPECT_FALSE(menu.isVisible());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(manager.isTimerActive()); // another one is still open
    manager.onTimeout();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(main.isVisible()); // neither modal nor popup
    manager.onTimeout();
    EXPECT_TRUE(main.isVisible());
}

TEST_F(WindowHelpers, InputRestartsTheTimeoutAndFlagsGateWhatCloses) {
    WndTimeoutManager manager;
    manager.setEnabled(true);
    manager.setTimeoutSeconds(5);
    Probe popup("popup", nullptr, nullptr, VyWidget::Popup);
    popup.setGeometry(0, 0, 50, 50);
    popup.show();
    manager.setFlags(WndTimeoutManager::CloseModalWindows);
    manager.onTimeout();
    EXPECT_TRUE(popup.isVisible());

    VyTimer* timer = nullptr;
    for (VyObject* child : manager.children())
        if (child->inherits("VyTimer"))
            timer = static_cast<VyTimer*>(child);
    ASSERT_NE(timer, nullptr);
    timer->stop();
    VyKeyEvent key(VyEvent::KeyPress, 1);
    VyApplication::sendEvent(&popup, &key);
    EXPECT_TRUE(manager.isTimerActive());
    EXPECT_EQ(manager.currentIntervalMs(), 5000);

    manager.setEnabled(false);
    VyApplication::sendEvent(&popup, &key);
    EXPECT_FALSE(manager.isTimerActive());
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
