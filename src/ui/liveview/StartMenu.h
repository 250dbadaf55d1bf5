#pragma once
// The task bar's start menu: the logged-in user, search, backup, settings, lock screen and
// shut down, drawn in the start menu's own colours of "style/mainview.ini" (StartMenu/...:
// background, border, splitter, and per item state Normal, Focus, Hover, Disabled). A chosen
// entry is announced by `chosen` with chosenEntry(); the screens it opens belong to others.
#include "runtime/VyGlobal.h"
#include "toolkit/widgets/VyMenu.h"

class UserAccess;

class StartMenu : public VyMenu {
    VY_OBJECT(StartMenu, VyMenu)
public:
    enum Entry { User, Search, Backup, Settings, Lock, Shutdown };

    struct Look {
        vyargb background = 0xFF1C1E22;
        vyargb border = 0xFF464A52;
        int borderWidth = 1;
        vyargb splitter = 0xFF3C3F45;
        int splitterWidth = 1;
        // Per state: Normal, Focus, Hover, Disabled.
        vyargb itemBackground[4] = {0x00000000, 0xFF0078BE, 0xFF3A3E46, 0x00000000};
        vyargb itemForeground[4] = {0xFFE6E8EB, 0xFFFFFFFF, 0xFFFFFFFF, 0xFF6E7278};
        vyargb itemBorder[4] = {0x00000000, 0xFF0096DC, 0xFF5A606A, 0x00000000};
        int itemBorderWidth = 1;
    };
    // Read once from "style/mainview.ini".
    static const Look& look();

    StartMenu(const VyString& userName, bool administrator, VyWidget* parent = nullptr);

    void setLocked(bool locked);
    // Shows who is logged in ("Log in" when nobody is), the lock state, and greys the
    // entries the user may not open.
    void followAccess(const UserAccess& access);
    bool isEntryEnabled(Entry entry) const;
    bool isLocked() const { return m_locked; }
    Entry chosenEntry() const { return m_chosen; }
    // The icon path of an entry as shown now.
    VyString iconPath(Entry entry) const;

    VySignal chosen;

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    static void onTriggered(VyObject* sender, VyObject* receiver);

    std::vector<int> m_rows; // item index -> Entry, -1 for a separator
    int rowOf(Entry entry) const;

    bool m_administrator;
    bool m_locked = false;
    Entry m_chosen = User;
};
