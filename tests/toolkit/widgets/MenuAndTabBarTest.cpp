#include "ControlTestApp.h"

#include "toolkit/widgets/VyMenu.h"
#include "toolkit/widgets/VyTabBar.h"
#include "toolkit/widgets/WndTimeoutManager.h"

using Menu = ControlTest;
using TabBar = ControlTest;

namespace {

// Record 1, Playback 2, ---, Layout > (Single 10, Quad 11, [disabled Nine 12]), Exit 3
struct StartMenu {
    VyMenu menu;
    VyMenu* layouts = nullptr;
    StartMenu() {
        menu.addAction("Record", 1);
        menu.addAction("Playback", 2);
        menu.addSeparator();
        layouts = menu.addMenu("Layout");
        layouts->addAction("Single", 10);
        layouts->addAction("Quad", 11);
        layouts->addAction("Nine", 12);
        layouts->setItemEnabled(2, false);
        menu.addAction("Exit", 3);
    }
};

} // namespace

TEST_F(Menu, KeysWalkItemsSkipSeparatorsAndOpenAndCloseSubMenus) {
    StartMenu m;
    SignalCounter triggered(&m.menu, &m.menu.triggered);
    m.menu.popup(VyPoint(100, 100));
    ASSERT_TRUE(m.menu.isOpen());
    EXPECT_TRUE(key(&m.menu, VyKeyEvent::KeyDown));
    EXPECT_EQ(m.menu.highlighted(), 0);
    key(&m.menu, VyKeyEvent::KeyDown);
    key(&m.menu, VyKeyEvent::KeyDown); // over the separator
    EXPECT_EQ(m.menu.highlighted(), 3);
    key(&m.menu, VyKeyEvent::KeyRight);
    ASSERT_TRUE(m.layouts->isOpen());
    EXPECT_EQ(app()->activePopupWidget(), m.layouts);
    EXPECT_EQ(m.layouts->highlighted(), 0);
    EXPECT_GT(m.layouts->geometry().left, m.menu.geometry().left); // opens at the right
    key(m.layouts, VyKeyEvent::KeyUp); // wraps to the last enabled item, not the disabled one
    EXPECT_EQ(m.layouts->highlighted(), 1);
    key(m.layouts, VyKeyEvent::KeyLeft); // one level back
    EXPECT_FALSE(m.layouts->isOpen());
    EXPECT_TRUE(m.menu.isOpen());
    key(&m.menu, VyKeyEvent::KeyOk); // OK opens the sub-menu too
    key(m.layouts, VyKeyEvent::KeyDown);
    key(m.layouts, VyKeyEvent::KeyOk);
    EXPECT_FALSE(m.menu.isOpen());
    EXPECT_FALSE(m.layouts->isOpen());
    EXPECT_EQ(triggered.count, 1);
    EXPECT_EQ(m.menu.triggeredId(), 11);
    // Escape closes one level at a time and triggers nothing.
    m.menu.popup(VyPoint(100, 100));
    m.menu.setHighlighted(3);
    key(&m.menu, VyKeyEvent::KeyRight);
    key(m.layouts, VyKeyEvent::KeyEscape);
    EXPECT_TRUE(m.menu.isOpen());
    key(&m.menu, VyKeyEvent::KeyEscape);
    EXPECT_FALSE(m.menu.isOpen());
    EXPECT_EQ(triggered.count, 1);
    EXPECT_EQ(m.menu.triggeredId(), -1);
    EXPECT_EQ(app()->activePopupWidget(), nullptr);
}

TEST_F(Menu, PointerOpensSubMenusClicksTriggerAndAPressOutsideClosesAll) {
    VyWidget liveView; // the screen below the menu
    liveView.setGeometry(0, 0, 640, 480);
    liveView.show();
    StartMenu m;
    m.menu.popup(VyPoint(600, 400)); // kept on the 640x480 screen
    EXPECT_LE(m.menu.geometry().right, 639);
    EXPECT_LE(m.menu.geometry().bottom, 479);
    const VyRect layoutItem = m.menu.itemRect(3);
    const VyPoint at = m.menu.mapToGlobal(VyPoint(layoutItem.left + 20, layoutItem.top + 5));
    pointer(at.x, at.y);
    ASSERT_TRUE(m.layouts->isOpen());
    EXPECT_LT(m.layouts->geometry().left, m.menu.geometry().left); // no room at the right
    const VyRect nine = m.layouts->itemRect(2);
    const VyPoint p9 = m.layouts->mapToGlobal(VyPoint(nine.left + 10, nine.top + 5));
    click(p9.x, p9.y); // disabled: nothing happens
    EXPECT_TRUE(m.layouts->isOpen());
    // A press on the menu below the sub-menu goes to that menu and closes the sub-menu.
    const VyRect record = m.menu.itemRect(0);
    const VyPoint pr = m.menu.mapToGlobal(VyPoint(record.left + 20, record.top + 5));
    click(pr.x, pr.y);
    EXPECT_FALSE(m.layouts->isOpen());
    EXPECT_EQ(m.menu.triggeredId(), 1);
    EXPECT_FALSE(m.menu.isOpen());
    m.menu.popup(VyPoint(10, 10));
    m.menu.setHighlighted(3);
    key(&m.menu, VyKeyEvent::KeyRight);
    click(630, 470);
    EXPECT_FALSE(m.menu.isOpen());
    EXPECT_FALSE(m.layouts->isOpen());
    EXPECT_EQ(m.menu.triggeredId(), -1);
}

TEST_F(Menu, TheWindowTimeoutManagerClosesOneLevelPerPeriod) {
    StartMenu m;
    WndTimeoutManager timeouts;
    timeouts.setTimeoutSeconds(5);
    timeouts.setEnabled(true);
    m.menu.popup(VyPoint(10, 10));
    m.menu.setHighlighted(3);
    key(&m.menu, VyKeyEvent::KeyRight);
    timeouts.onIdleTimeout();
    EXPECT_FALSE(m.layouts->isOpen());
    EXPECT_TRUE(m.menu.isOpen());
    timeouts.onIdleTimeout();
    EXPECT_FALSE(m.menu.isOpen());
    EXPECT_EQ(m.menu.triggeredId(), -1);
}

TEST_F(TabBar, LeftAndRightMoveTabsAndLeaveTheEndsToTheKeyNavigation) {
    VyWidget window;
    window.setGeometry(0, 0, 640, 480);
    window.show();
    auto* tabs = new VyTabBar(&window);
    tabs->setGeometry(0, 0, 150, 44);
    tabs->show();
    EXPECT_FALSE(tabs->acceptsKeyFocus());
    EXPECT_FALSE(key(tabs, VyKeyEvent::KeyRight)); // empty
    for (const char* t : {"Record", "Network", "Alarm", "Storage", "System", "Maintenance"})
        tabs->addTab(t);
    EXPECT_EQ(tabs->currentIndex(), 0);
    SignalCounter changed(tabs, &tabs->currentChanged);
    EXPECT_FALSE(key(tabs, VyKeyEvent::KeyLeft));
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(key(tabs, VyKeyEvent::KeyRight));
    EXPECT_FALSE(key(tabs, VyKeyEvent::KeyRight));
    EXPECT_EQ(tabs->currentIndex(), 5);
    EXPECT_EQ(changed.count, 5);
    // Six tabs do not fit in 150 pixels: the bar scrolled to keep the current one whole.
    EXPECT_GT(tabs->firstVisibleTab(), 0);
    EXPECT_LE(tabs->tabRect(5).right, 149);
    const VyRect r = tabs->tabRect(tabs->firstVisibleTab());
    click(r.left + 5, r.top + 5);
    EXPECT_EQ(tabs->currentIndex(), tabs->firstVisibleTab());
    EXPECT_FALSE(tabs->setCurrentIndex(6));
    tabs->removeTab(tabs->currentIndex());
    EXPECT_EQ(tabs->count(), 5);
    EXPECT_GE(tabs->currentIndex(), 0);
}

TEST_F(Menu, AMenuWithNothingToChooseIgnoresTheKeysAndStaysOpenUntilEscape) {
    VyMenu menu;
    EXPECT_FALSE(menu.isOpen());
    menu.popup(VyPoint(10, 10)); // empty: not opened
    EXPECT_FALSE(menu.isOpen());
    menu.addAction("Format", 1);
    menu.addSeparator();
    menu.addAction("Upgrade", 2);
    menu.setItemEnabled(0, false);
    menu.setItemEnabled(2, false);
    menu.popup(VyPoint(10, 10));
    for (int k : {VyKeyEvent::KeyDown, VyKeyEvent::KeyUp, VyKeyEvent::KeyRight, VyKeyEvent::KeyOk})
        EXPECT_TRUE(key(&menu, k)); // an open menu keeps every key
    EXPECT_EQ(menu.highlighted(), -1);
    EXPECT_TRUE(menu.isOpen());
    EXPECT_EQ(menu.triggeredId(), -1);
    key(&menu, VyKeyEvent::KeyEscape);
    EXPECT_FALSE(menu.isOpen());
}
