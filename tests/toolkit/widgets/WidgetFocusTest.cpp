#include "WidgetProbe.h"

using WidgetFocus = CoreAppTest;

TEST_F(WidgetFocus, KeyOnlyPolicyIgnoresMousePressButTakesKeyMove) {
    std::vector<std::string> log;
    Probe win("win", nullptr, VyRect(0, 0, 200, 100));
    auto* keyOnly = childProbe("key", &log, &win, VyRect(10, 10, 50, 20));
    keyOnly->setFocusPolicy(VyWidget::KeyFocus);
    win.show();
    keyOnly->show();

    click(app(), 20, 20);
    EXPECT_EQ(app()->focusWidget(), nullptr);
    keyOnly->setFocus(VyFocusEvent::OtherFocusReason);
    EXPECT_EQ(app()->focusWidget(), keyOnly);
    EXPECT_EQ(win.focusChild(), keyOnly);

    // A click-focus neighbour takes it from the press, before its handler runs.
    auto* clicky = childProbe("click", &log, &win, VyRect(100, 10, 50, 20));
    clicky->setFocusPolicy(VyWidget::StrongFocus);
    clicky->show();
    pointer(app(), 110, 20);
    log.clear();
    click(app(), 110, 20);
    EXPECT_EQ(app()->focusWidget(), clicky);
    ASSERT_GE(log.size(), 3u);
    EXPECT_EQ(log[0], "key:focusOut0");
    EXPECT_EQ(log[1], "click:focusIn0");
    EXPECT_EQ(log[2], "click:press@10,10");
}

TEST_F(WidgetFocus, RefreshReasonNeverMovesFocus) {
    std::vector<std::string> log;
    Probe win("win", nullptr, VyRect(0, 0, 100, 100));
    auto* a = new Probe("a", &log, &win);
    auto* b = new Probe("b", &log, &win);
    for (Probe* p : {a, b}) {
        p->setFocusPolicy(VyWidget::StrongFocus);
        p->show();
    }
    win.show();
    a->setFocus(7);
    log.clear();
    b->setFocus(VyFocusEvent::RefreshFocusReason);
    app()->setFocusWidget(nullptr, VyFocusEvent::RefreshFocusReason);
    EXPECT_EQ(app()->focusWidget(), a);
    EXPECT_TRUE(log.empty());
}

TEST_F(WidgetFocus, RefusedOrHiddenOrNonTrackingWidgetsDoNotBecomeTheFocus) {
    std::vector<std::string> log;
    Probe win("win", nullptr);
    auto* refuses = new Probe("refuses", &log, &win);
    auto* hidden = new Probe("hidden", &log, &win);
    auto* shy = new Probe("shy", &log, &win);
    for (Probe* p : {refuses, hidden, shy})
        p->setFocusPolicy(VyWidget::StrongFocus);
    refuses->setAttribute(VyWidget::RefusesFocus);
    refuses->show();
    shy->show();
    shy->setTracksFocus(false);
    win.show();
    log.clear();
    refuses->setFocus(7);
    hidden->setFocus(7);
    EXPECT_EQ(app()->focusWidget(), nullptr);
    EXPECT_TRUE(log.empty());
    shy->setFocus(7); // told, but not remembered
    EXPECT_EQ(log, (std::vector<std::string>{"shy:focusIn7"}));
    EXPECT_EQ(app()->focusWidget(), nullptr);
    EXPECT_EQ(win.focusChild(), nullptr);
}

TEST_F(WidgetFocus, DestroyingTheFocusWidgetClearsFocusChild) {
    Probe win("win", nullptr);
    auto* first = new Probe("first", nullptr, &win);
    auto* second = new Probe("second", nullptr, &win);
    for (Probe* p : {first, second}) {
        p->setFocusPolicy(VyWidget::StrongFocus);
        p->show();
    }
    win.show();
    first->setFocus(7);
    second->setFocus(7);
    EXPECT_EQ(win.focusChild(), second);
    delete first; // no longer watched: must not clear anything
    EXPECT_EQ(win.focusChild(), second);
    second->blockSignals(true); // its destroyed signal stays silent: still cleared
    delete second;
    EXPECT_EQ(win.focusChild(), nullptr);
    EXPECT_EQ(app()->focusWidget(), nullptr);
}

TEST_F(WidgetFocus, ClosingAModalDialogGivesFocusBackToTheWindowBelow) {
    std::vector<std::string> log;
    Probe main("main", nullptr, VyRect(0, 0, 320, 240));
    auto* field = new Probe("field", &log, &main);
    field->setFocusPolicy(VyWidget::StrongFocus);
    field->show();
    main.show();
    field->setFocus(7);

    Probe dialog("dialog", nullptr, nullptr, VyWidget::Dialog);
    dialog.setGeometry(50, 50, 100, 80);
    dialog.setAttribute(VyWidget::Modal);
    auto* ok = new Probe("ok", &log, &dialog);
    ok->setFocusPolicy(VyWidget::StrongFocus);
    ok->show();
    dialog.show();
    EXPECT_EQ(app()->activeModalWidget(), &dialog);
    EXPECT_TRUE(field->isBlockedByModal());
    ok->setFocus(7);
    field->setFocus(7); // blocked
    EXPECT_EQ(app()->focusWidget(), ok);

    log.clear();
    dialog.close();
    EXPECT_EQ(app()->activeModalWidget(), nullptr);
    EXPECT_EQ(app()->focusWidget(), field);
    EXPECT_EQ(log, (std::vector<std::string>{"ok:focusOut7", "field:focusIn3"}));
}
