#include "toolkit/widgets/VyMenu.h"

#include <algorithm>

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyFocusEvent.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"

namespace {

VyRect screenRect() {
    VyApplication* app = VyApplication::instance();
    if (app && app->screen())
        return VyRect(0, 0, app->screen()->width(), app->screen()->height());
    return VyRect(0, 0, 1920, 1080);
}

} // namespace

VyMenu::VyMenu(VyWidget* parent)
    : CWidget(parent, Popup) {
    setFocusPolicy(StrongFocus);
    setAttribute(MouseTracking);
}

VyMenu::~VyMenu() = default;

int VyMenu::addAction(const VyString& text, int id, const VyBitmap& icon) {
    Item item;
    item.text = text;
    item.icon = icon;
    item.id = id;
    m_items.push_back(item);
    return itemCount() - 1;
}

void VyMenu::addSeparator() {
    Item item;
    item.separator = true;
    m_items.push_back(item);
}

VyMenu* VyMenu::addMenu(const VyString& text, const VyBitmap& icon) {
    Item item;
    item.text = text;
    item.icon = icon;
    item.subMenu = new VyMenu(this);
    m_items.push_back(item);
    return item.subMenu;
}

void VyMenu::clear() {
    closeSub();
    for (Item& item : m_items)
        delete item.subMenu;
    m_items.clear();
    m_highlighted = -1;
    update();
}

void VyMenu::setItemEnabled(int index, bool enabled) {
    if (index < 0 || index >= itemCount())
        return;
    m_items[index].enabled = enabled;
    if (!enabled && m_highlighted == index)
        m_highlighted = -1;
    update();
}

void VyMenu::setItemText(int index, const VyString& text) {
    if (index < 0 || index >= itemCount())
        return;
    m_items[index].text = text;
    update();
}

VyString VyMenu::itemText(int index) const {
    return index >= 0 && index < itemCount() ? m_items[index].text : VyString();
}

VyMenu* VyMenu::subMenu(int index) const {
    return index >= 0 && index < itemCount() ? m_items[index].subMenu : nullptr;
}

VyMenu* VyMenu::parentMenu() const {
    VyObject* p = parent();
    return p && p->inherits("VyMenu") ? static_cast<VyMenu*>(p) : nullptr;
}

VyMenu* VyMenu::rootMenu() {
    VyMenu* m = this;
    while (m->parentMenu() && m->parentMenu()->isVisible())
        m = m->parentMenu();
    return m;
}

bool VyMenu::selectable(int index) const {
    return index >= 0 && index < itemCount() && !m_items[index].separator && m_items[index].enabled;
}

VySize VyMenu::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyComboBoxOption>().font, 0);
    const int pad = style->scaled(VyStyle::kFieldPaddingDesign);
    const int iconSide = px + px / 2;
    int textW = 0;
    int h = 0;
    for (const Item& item : m_items) {
        h += item.separator ? style->menuSeparatorHeight() : style->itemHeight();
        textW = std::max(textW, VyTextLayout::width(item.text, px));
    }
    const int bw = style->comboPopupBorderWidth();
    const int w = std::max(style->scaled(kMinimumWidthDesign), textW + 2 * iconSide + 4 * pad);
    return VySize(w + 2 * bw, std::max(style->itemHeight(), h) + 2 * bw);
}

VyRect VyMenu::itemRect(int index) const {
    if (index < 0 || index >= itemCount())
        return VyRect();
    const VyStyle* style = VyStyle::instance();
    const int bw = style->comboPopupBorderWidth();
    int y = bw;
    for (int i = 0; i < index; ++i)
        y += m_items[i].separator ? style->menuSeparatorHeight() : style->itemHeight();
    const int h = m_items[index].separator ? style->menuSeparatorHeight() : style->itemHeight();
    return VyRect(bw, y, std::max(0, width() - 2 * bw), h);
}

int VyMenu::itemAt(VyPoint pos) const {
    for (int i = 0; i < itemCount(); ++i)
        if (itemRect(i).contains(pos))
            return i;
    return -1;
}

void VyMenu::popup(VyPoint global) {
    if (m_items.empty())
        return;
    const VyRect screen = screenRect();
    const VySize s = sizeHint();
    const int w = std::min(s.width, screen.width());
    const int h = std::min(s.height, screen.height());
    const int x = std::max(0, std::min(global.x, screen.right + 1 - w));
    const int y = std::max(0, std::min(global.y, screen.bottom + 1 - h));
    setGeometry(x, y, w, h);
    m_triggeredId = -1;
    m_highlighted = -1;
    m_pressed = false;
    show();
    setFocus(VyFocusEvent::PopupFocusReason);
    update();
}

void VyMenu::setHighlighted(int index) {
    if (index != -1 && !selectable(index))
        return;
    if (index == m_highlighted)
        return;
    m_highlighted = index;
    update();
}

void VyMenu::step(int direction) {
    const int n = itemCount();
    int i = m_highlighted;
    for (int tries = 0; tries < n; ++tries) {
        i = i < 0 ? (direction > 0 ? 0 : n - 1) : (i + direction + n) % n;
        if (selectable(i)) {
            setHighlighted(i);
            return;
        }
    }
}

void VyMenu::openSub(int index, bool highlightFirst) {
    VyMenu* sub = subMenu(index);
    if (!sub || !selectable(index))
        return;
    if (m_openSub.data() != sub) {
        closeSub();
        const VyRect item = itemRect(index);
        const VyPoint topRight = mapToGlobal(VyPoint(item.right + 1, item.top));
        const VySize s = sub->sizeHint();
        VyPoint at = topRight;
        // No room at the right: open towards the left of this menu.
        if (topRight.x + s.width > screenRect().right + 1)
            at.x = std::max(0, geometry().left - s.width);
        m_openSub.reset(sub);
        sub->popup(at);
    } else {
        sub->setFocus(VyFocusEvent::PopupFocusReason);
    }
    if (highlightFirst && sub->highlighted() < 0)
        sub->step(1);
}

void VyMenu::closeSub() {
    VyMenu* sub = m_openSub.data();
    m_openSub.reset(nullptr);
    if (sub && sub->isVisible())
        sub->hide();
}

void VyMenu::closeAll() {
    VyMenu* root = rootMenu();
    // Hiding a menu hides the sub-menus it opened.
    root->hide();
}

void VyMenu::trigger(int index) {
    if (!selectable(index) || m_items[index].subMenu)
        return;
    VyMenu* root = rootMenu();
    root->m_triggeredId = m_items[index].id;
    VyPointer<VyMenu> guard(root);
    root->hide();
    if (guard)
        emitSignal(root, &root->triggered);
}

bool VyMenu::keyUpDown(int key) {
    step(key == VyKeyEvent::KeyUp ? -1 : 1);
    return true;
}

bool VyMenu::keyLeftRight(int key) {
    if (key == VyKeyEvent::KeyRight) {
        if (subMenu(m_highlighted))
            openSub(m_highlighted, true);
        return true;
    }
    if (VyMenu* parentM = parentMenu()) {
        hide();
        parentM->setFocus(VyFocusEvent::PopupFocusReason);
    }
    return true;
}

bool VyMenu::keyActivate() {
    if (subMenu(m_highlighted))
        openSub(m_highlighted, true);
    else
        trigger(m_highlighted);
    return true;
}

void VyMenu::keyPressEvent(VyKeyEvent* e) {
    if (e->key() != VyKeyEvent::KeyEscape) {
        CWidget::keyPressEvent(e);
        // An open menu keeps every key away from the window below.
        e->accept();
        return;
    }
    e->accept();
    VyMenu* parentM = parentMenu();
    hide();
    if (parentM && parentM->isVisible())
        parentM->setFocus(VyFocusEvent::PopupFocusReason);
}

void VyMenu::mousePressEvent(VyMouseEvent* e) {
    e->accept();
    if (rect().contains(e->pos())) {
        m_pressed = true;
        return;
    }
    // Outside this menu: on one of the menus below it in the chain, that menu takes over;
    // anywhere else every menu closes.
    for (VyMenu* m = parentMenu(); m && m->isVisible(); m = m->parentMenu()) {
        if (m->geometry().contains(e->globalPos())) {
            m->closeSub();
            m->setFocus(VyFocusEvent::PopupFocusReason);
            m->setHighlighted(m->itemAt(m->mapFromGlobal(e->globalPos())));
            return;
        }
    }
    closeAll();
}

void VyMenu::mouseReleaseEvent(VyMouseEvent* e) {
    e->accept();
    if (!m_pressed || e->button() != VyMouseEvent::LeftButton)
        return;
    m_pressed = false;
    const int index = itemAt(e->pos());
    if (subMenu(index))
        openSub(index, false);
    else
        trigger(index);
}

void VyMenu::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    const int index = itemAt(e->pos());
    if (index < 0 || !selectable(index))
        return;
    setHighlighted(index);
    if (subMenu(index))
        openSub(index, false);
    else
        closeSub();
}

void VyMenu::hideEvent(VyHideEvent*) {
    if (!isVisible())
        return;
    closeSub();
    m_pressed = false;
    if (VyMenu* parentM = parentMenu())
        if (parentM->m_openSub.data() == this)
            parentM->m_openSub.reset(nullptr);
    emitSignal(this, &aboutToHide);
}

void VyMenu::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    VyCanvas* c = canvas();
    style->drawComboPopup(c, rect());
    for (int i = 0; i < itemCount(); ++i) {
        const Item& item = m_items[i];
        const VyRect r = itemRect(i).intersected(rect());
        if (r.isEmpty())
            continue;
        if (item.separator)
            style->drawMenuSeparator(c, r);
        else
            style->drawMenuItem(c, r, item.text, item.icon,
                                i == m_highlighted ||
                                    (item.subMenu && item.subMenu == m_openSub.data()),
                                item.enabled && isEnabled(), item.subMenu != nullptr);
    }
}
