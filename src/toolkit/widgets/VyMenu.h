#pragma once
// A popup menu: the context menus of the screens and the start menu of the live view. Items
// have a text, an optional icon and an id; separators split them into groups; an item may open
// a sub-menu. Up and Down move the highlight (skipping separators and disabled items, wrapping
// at the ends), Right or OK opens a sub-menu, Left or Escape closes one level, OK on an item
// triggers it. The pointer highlights the item under it and opens sub-menus, a click triggers
// an item, and a press outside every open menu closes them all, as does the window time-out
// manager (one level per period). A triggered item closes the whole chain and the menu that
// was popped up emits `triggered` with triggeredId().
#include <vector>

#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/widgets/CWidget.h"

class VyMenu : public CWidget {
    VY_OBJECT(VyMenu, CWidget)
public:
    static constexpr int kMinimumWidthDesign = 220; // pixels at 1920x1080

    explicit VyMenu(VyWidget* parent = nullptr);
    ~VyMenu() override;

    VySignal triggered;   // on the menu that was popped up
    VySignal aboutToHide; // this menu closes

    // Returns the item's index. Ids are the owner's; -1 is kept for "nothing triggered".
    int addAction(const VyString& text, int id, const VyBitmap& icon = VyBitmap());
    void addSeparator();
    // The sub-menu belongs to this menu.
    VyMenu* addMenu(const VyString& text, const VyBitmap& icon = VyBitmap());
    void clear();
    int itemCount() const { return static_cast<int>(m_items.size()); }
    void setItemEnabled(int index, bool enabled);
    bool isItemEnabled(int index) const { return selectable(index); }
    void setItemText(int index, const VyString& text);
    VyString itemText(int index) const;
    VyMenu* subMenu(int index) const;

    // Opens with its top-left corner at the screen point, moved as needed to stay on screen.
    void popup(VyPoint global);
    // Closes this menu and every menu above and below it in the chain.
    void closeAll();
    bool isOpen() const { return isVisible(); }
    int highlighted() const { return m_highlighted; }
    void setHighlighted(int index);
    int triggeredId() const { return m_triggeredId; }
    VyMenu* openSubMenu() const { return m_openSub.data(); }
    VyMenu* parentMenu() const;

    bool acceptsKeyFocus() const override { return true; }
    bool keyUpDown(int key) override;
    bool keyLeftRight(int key) override;
    bool keyActivate() override;

    VySize sizeHint() const override;
    VyRect itemRect(int index) const;
    int itemAt(VyPoint pos) const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void hideEvent(VyHideEvent* e) override;

private:
    struct Item {
        VyString text;
        VyBitmap icon;
        int id = -1;
        bool separator = false;
        bool enabled = true;
        VyMenu* subMenu = nullptr; // a child
    };
    bool selectable(int index) const;
    void step(int direction);
    void openSub(int index, bool highlightFirst);
    void closeSub();
    void trigger(int index);
    VyMenu* rootMenu();

    std::vector<Item> m_items;
    VyPointer<VyMenu> m_openSub;
    int m_highlighted = -1;
    int m_triggeredId = -1;
    bool m_pressed = false;
};
