#include "ui/liveview/StartMenu.h"

#include "model/UserAccess.h"
#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/style/VyStyle.h"
#include "ui/UiLook.h"

namespace {

constexpr int kIconPx = 24;
constexpr int kPaddingPx = 10;

VyBitmap icon(const VyString& path) {
    VyApplication* app = VyApplication::instance();
    const float scale = app && app->screen() ? app->screen()->horizontalScale() : 1.0f;
    return VyStyle::instance()->imageForScale(path, scale);
}

} // namespace

const StartMenu::Look& StartMenu::look() {
    static const Look l = [] {
        Look out;
        const VyIniSettings ini(VyResources::path("style/mainview.ini"));
        out.background = UiLook::colourOr(ini, "StartMenu/Background", out.background);
        out.border = UiLook::colourOr(ini, "StartMenu/Border/Color", out.border);
        if (ini.intValue("StartMenu/Border/Width") > 0)
            out.borderWidth = ini.intValue("StartMenu/Border/Width");
        out.splitter = UiLook::colourOr(ini, "StartMenu/Spliter/Color", out.splitter);
        if (ini.intValue("StartMenu/Spliter/Width") > 0)
            out.splitterWidth = ini.intValue("StartMenu/Spliter/Width");
        const char* const states[4] = {"Normal", "Focus", "Hover", "Disabled"};
        for (int s = 0; s < 4; ++s) {
            const VyString item = VyString("StartMenu/Item/") + states[s];
            out.itemBackground[s] =
                UiLook::colourOr(ini, item + "Background", out.itemBackground[s]);
            out.itemForeground[s] =
                UiLook::colourOr(ini, item + "Foreground", out.itemForeground[s]);
            out.itemBorder[s] = UiLook::colourOr(ini, item + "BorderColor", out.itemBorder[s]);
        }
        if (ini.intValue("StartMenu/Item/BorderWidth") > 0)
            out.itemBorderWidth = ini.intValue("StartMenu/Item/BorderWidth");
        return out;
    }();
    return l;
}

StartMenu::StartMenu(const VyString& userName, bool administrator, VyWidget* parent)
    : VyMenu(parent)
    , m_administrator(administrator) {
    auto add = [&](const VyString& text, Entry e) {
        addAction(text, int(e), icon(iconPath(e)));
        m_rows.push_back(int(e));
    };
    add(userName, User);
    addSeparator();
    m_rows.push_back(-1);
    add(VyTranslation::tr(TextId::LiveView::MenuSearch), Search);
    add(VyTranslation::tr(TextId::LiveView::MenuBackup), Backup);
    add(VyTranslation::tr(TextId::LiveView::MenuSettings), Settings);
    addSeparator();
    m_rows.push_back(-1);
    add(VyTranslation::tr(TextId::LiveView::MenuLock), Lock);
    add(VyTranslation::tr(TextId::LiveView::MenuShutdown), Shutdown);
    connect(this, &triggered, this, &StartMenu::onTriggered);
}

VyString StartMenu::iconPath(Entry entry) const {
    switch (entry) {
    case User:
        return m_administrator ? "images/admin.png" : "images/user.png";
    case Search:
        return "images/search.png";
    case Backup:
        return "images/backup.png";
    case Settings:
        return "images/settings.png";
    case Lock:
        return m_locked ? "images/locked.png" : "images/unlocked.png";
    case Shutdown:
        return "images/shutdown.png";
    }
    return VyString();
}

void StartMenu::setLocked(bool locked) {
    m_locked = locked;
    update();
}

int StartMenu::rowOf(Entry entry) const {
    for (size_t i = 0; i < m_rows.size(); ++i)
        if (m_rows[i] == int(entry))
            return int(i);
    return -1;
}

void StartMenu::followAccess(const UserAccess& access) {
    const UserAccess::User* user = access.currentUser();
    m_administrator = user != nullptr && user->admin;
    setItemText(rowOf(User), user != nullptr ? user->name : VyTranslation::tr(TextId::User::LogIn));
    setLocked(access.isScreenLocked());
    bool anySettings = false;
    for (int c = 0; c < UserRights::kSettingsCategories; ++c)
        anySettings = anySettings || access.offers(UserRights::settingsBit(c));
    setItemEnabled(rowOf(Search), access.offers(UserRights::kPlayback));
    setItemEnabled(rowOf(Backup), access.offers(UserRights::kBackup));
    setItemEnabled(rowOf(Settings), anySettings);
    setItemEnabled(rowOf(Shutdown), access.offers(UserRights::kShutdown));
}

bool StartMenu::isEntryEnabled(Entry entry) const {
    const int row = rowOf(entry);
    return isItemEnabled(row);
}

void StartMenu::onTriggered(VyObject*, VyObject* receiver) {
    auto* menu = static_cast<StartMenu*>(receiver);
    const int id = menu->triggeredId();
    if (id < User || id > Shutdown)
        return;
    menu->m_chosen = Entry(id);
    emitSignal(menu, &menu->chosen);
}

void StartMenu::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    const Look& l = look();
    c->fillRect(rect(), l.background | 0xFF000000u);
    c->setPenWidth(l.borderWidth);
    c->drawRect(rect(), l.border);
    const int pad = UiLook::scaledX(kPaddingPx);
    const int iconSize = UiLook::scaledY(kIconPx);
    for (int i = 0; i < itemCount() && i < int(m_rows.size()); ++i) {
        const VyRect r = itemRect(i).intersected(rect());
        if (r.isEmpty())
            continue;
        if (m_rows[size_t(i)] < 0) {
            const int y = r.top + r.height() / 2;
            c->fillRect(VyRect(r.left + pad, y, r.width() - 2 * pad, l.splitterWidth), l.splitter);
            continue;
        }
        // Disabled over focus (the key highlight) over hover; the menu's highlight serves both.
        const int state = !isEnabled() || !isItemEnabled(i) ? 3
                          : i == highlighted()              ? (hasFocus() ? 1 : 2)
                                                            : 0;
        c->fillRect(r, l.itemBackground[state]);
        if ((l.itemBorder[state] >> 24) != 0) {
            c->setPenWidth(l.itemBorderWidth);
            c->drawRect(r, l.itemBorder[state]);
        }
        const VyBitmap image = icon(iconPath(Entry(m_rows[size_t(i)])));
        if (!image.isNull())
            c->drawImage(
                VyRect(r.left + pad, r.top + (r.height() - iconSize) / 2, iconSize, iconSize),
                image);
        const int textLeft = r.left + 2 * pad + iconSize;
        c->drawText(VyRect(textLeft, r.top, r.right - textLeft, r.height()),
                    VyCanvas::AlignLeft | VyCanvas::AlignVCenter, itemText(i),
                    UiLook::instance().fontPixelSize(), l.itemForeground[state]);
    }
    c->setPenWidth(1);
}
