#include "WidgetProbe.h"

#include <algorithm>

using WidgetInput = CoreAppTest;

TEST_F(WidgetInput, PressGoesToTheDeepestChildAndClimbsUntilAccepted) {
    std::vector<std::string> log;
    Probe win("win", &log, VyRect(10, 10, 200, 100));
    auto* panel = childProbe("panel", &log, &win, VyRect(20, 20, 100, 50));
    auto* label = childProbe("label", &log, panel, VyRect(5, 5, 30, 10));
    label->acceptMouse = false;
    for (Probe* p : {&win, panel, label})
        p->show();
    pointer(app(), 40, 40);
    log.clear();
    pointer(app(), 40, 40, VyMouseEvent::LeftButton);
    // Screen (40, 40) is (30, 30) in the window, (10, 10) in the panel, (5, 5) in the label.
    EXPECT_EQ(log, (std::vector<std::string>{"label:press@5,5", "panel:press@10,10"}));

    // While the button is held, moves go to the widget that took the press, even outside.
    log.clear();
    pointer(app(), 300, 200, VyMouseEvent::LeftButton);
    pointer(app(), 300, 200, 0);
    EXPECT_EQ(log.front(), "label:move@265,165");
    EXPECT_NE(std::find(log.begin(), log.end(), "label:release@265,165"), log.end());
}

TEST_F(WidgetInput, HiddenAndMouseTransparentWindowsAreNeverHit) {
    std::vector<std::string> log;
    Probe bottom("bottom", &log, VyRect(0, 0, 100, 100));
    bottom.show();
    Probe hiddenTop("hidden", &log, VyRect(0, 0, 100, 100));
    hiddenTop.show();
    hiddenTop.setAttribute(VyWidget::Hidden);
    Probe ghostTop("ghost", &log, VyRect(0, 0, 100, 100));
    ghostTop.show();
    ghostTop.setAttribute(VyWidget::TransparentForMouse);

    EXPECT_EQ(app()->topLevelAt(VyPoint(50, 50)), &bottom);
    log.clear();
    click(app(), 50, 50);
    for (const std::string& line : log)
        EXPECT_EQ(line.rfind("bottom:", 0), 0u) << line;
    EXPECT_NE(std::find(log.begin(), log.end(), "bottom:press@50,50"), log.end());
    EXPECT_EQ(app()->topLevelAt(VyPoint(150, 50)), nullptr);
}

TEST_F(WidgetInput, ModalDialogTakesMouseEventsAimedElsewhereInItsOwnCoordinates) {
    std::vector<std::string> log;
    Probe main("main", &log, VyRect(0, 0, 320, 240));
    main.show();
    Probe dialog("dialog", &log, nullptr, VyWidget::Dialog);
    dialog.setGeometry(100, 50, 100, 80);
    dialog.setAttribute(VyWidget::Modal);
    dialog.show();
    pointer(app(), 10, 20);
    log.clear();
    pointer(app(), 10, 20, VyMouseEvent::LeftButton);
    EXPECT_EQ(log, (std::vector<std::string>{"dialog:press@-90,-30"}));
    EXPECT_EQ(app()->lastMousePos(), VyPoint(10, 20));
}

TEST_F(WidgetInput, ClickOnAnotherWindowsPopupReachesItWhileAModalDialogIsOpen) {
    std::vector<std::string> log;
    Probe main("main", &log, VyRect(0, 0, 320, 240));
    main.show();
    Probe popup("popup", &log, &main, VyWidget::Popup);
    popup.setGeometry(0, 200, 80, 40);
    popup.show();
    Probe dialog("dialog", &log, nullptr, VyWidget::Dialog);
    dialog.setGeometry(100, 50, 100, 80);
    dialog.setAttribute(VyWidget::Modal);
    dialog.show();
    ASSERT_EQ(app()->activeModalWidget(), &dialog);
    EXPECT_EQ(app()->activePopupWidget(), nullptr);
    EXPECT_FALSE(popup.isBlockedByModal());
    EXPECT_TRUE(main.isBlockedByModal());

    pointer(app(), 10, 210);
    log.clear();
    pointer(app(), 10, 210, VyMouseEvent::LeftButton);
    EXPECT_EQ(log, (std::vector<std::string>{"popup:press@10,10"}));
}

TEST_F(WidgetInput, LeaveReachesTheWidgetsLeftBeforeEnterReachesThoseEntered) {
    std::vector<std::string> log;
    Probe win("win", &log, VyRect(0, 0, 300, 100));
    auto* left = childProbe("left", &log, &win, VyRect(0, 0, 100, 100));
    auto* leftInner = childProbe("leftInner", &log, left, VyRect(10, 10, 50, 50));
    auto* right = childProbe("right", &log, &win, VyRect(150, 0, 100, 100));
    auto* rightInner = childProbe("rightInner", &log, right, VyRect(10, 10, 50, 50));
    for (Probe* p : {&win, left, leftInner, right, rightInner})
        p->show();
    pointer(app(), 20, 20);
    EXPECT_EQ(app()->hoverWidget(), leftInner);
    log.clear();
    pointer(app(), 170, 20);
    std::vector<std::string> expected = {"leftInner:leave",      "left:leave",
                                         "leftInner:hoverLeave", "right:enter",
                                         "rightInner:enter",     "rightInner:hoverEnter"};
    EXPECT_EQ(log, expected);
}

TEST_F(WidgetInput, WidgetDeletedInsideItsOwnPressHandlerIsSurvived) {
    std::vector<std::string> log;
    Probe win("win", &log, VyRect(0, 0, 100, 100));
    auto* doomed = childProbe("doomed", &log, &win, VyRect(0, 0, 50, 50));
    doomed->acceptMouse = false; // would climb to the window after the handler
    doomed->deleteOnPress = true;
    doomed->setFocusPolicy(VyWidget::StrongFocus);
    win.show();
    doomed->show();
    click(app(), 10, 10); // ASan reports any use of the freed widget
    EXPECT_TRUE(win.children().isEmpty());
    EXPECT_EQ(app()->hoverWidget(), &win);
    EXPECT_EQ(app()->focusWidget(), nullptr);
    EXPECT_EQ(win.focusChild(), nullptr);

    // The same through deleteLater from a handler: the dispatcher deletes it later.
    auto* later = childProbe("later", &log, &win, VyRect(0, 0, 50, 50));
    later->show();
    later->deleteLater();
    app()->processPostedEvents();
    EXPECT_TRUE(win.children().isEmpty());
}

TEST_F(WidgetInput, MovesWithoutButtonReachOnlyTrackingWidgets) {
    std::vector<std::string> log;
    Probe win("win", &log, VyRect(0, 0, 100, 100));
    win.show();
    pointer(app(), 10, 10);
    EXPECT_EQ(std::count(log.begin(), log.end(), "win:move@10,10"), 0);
    win.setAttribute(VyWidget::MouseTracking);
    pointer(app(), 12, 10);
    EXPECT_EQ(std::count(log.begin(), log.end(), "win:move@12,10"), 1);
}
