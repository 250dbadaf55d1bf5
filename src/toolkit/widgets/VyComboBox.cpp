#include "toolkit/widgets/VyComboBox.h"

#include <algorithm>

#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyControlState.h"
#include "toolkit/widgets/VyInnerListWidget.h"

namespace {} // namespace

VyComboBox::VyComboBox(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
}

VyComboBox::~VyComboBox() {
    delete m_popup.data();
}

void VyComboBox::addItem(const VyString& text, long long data) {
    m_items.push_back(Item{text, data});
    if (m_current < 0)
        setCurrentIndex(0);
    else
        update();
}

void VyComboBox::addItems(const VyStringList& texts) {
    for (int i = 0; i < texts.size(); ++i)
        addItem(texts.at(i), i);
}

void VyComboBox::clear() {
    closePopup();
    m_items.clear();
    setCurrentIndex(-1);
}

VyString VyComboBox::itemText(int index) const {
    return index >= 0 && index < count() ? m_items[index].text : VyString();
}

long long VyComboBox::itemData(int index) const {
    return index >= 0 && index < count() ? m_items[index].data : 0;
}

int VyComboBox::findData(long long data) const {
    for (int i = 0; i < count(); ++i)
        if (m_items[i].data == data)
            return i;
    return -1;
}

bool VyComboBox::setCurrentIndex(int index) {
    if (index < -1 || index >= count()) {
        vyFrameworkLog("VyComboBox: index %d out of range (%d items) !!!\n", index, count());
        return false;
    }
    if (index == m_current)
        return true;
    m_current = index;
    update();
    emitSignal(this, &currentIndexChanged);
    return true;
}

VyInnerListWidget* VyComboBox::popup() const {
    return m_popup.data();
}

bool VyComboBox::isPopupVisible() const {
    return m_popup && m_popup->isOpen();
}

void VyComboBox::showPopup() {
    if (isPopupVisible() || !isEnabled() || m_items.empty())
        return;
    auto* list = new VyInnerListWidget(this);
    m_popup.reset(list);
    VyStringList texts;
    for (const Item& item : m_items)
        texts.append(item.text);
    list->setItems(texts);
    list->setCurrentRow(std::max(0, m_current));
    VyApplication* app = VyApplication::instance();
    const VyRect screen = app && app->screen()
                              ? VyRect(0, 0, app->screen()->width(), app->screen()->height())
                              : VyRect(0, 0, 1920, 1080);
    const VyPoint origin = mapToGlobal(VyPoint(0, 0));
    list->placeUnder(VyRect(origin.x, origin.y, width(), height()), screen);
    connect(list, &list->chosen, this, VY_SLOT(VyComboBox, popupChosen));
    connect(list, &list->cancelled, this, VY_SLOT(VyComboBox, popupCancelled));
    list->open();
    update();
}

void VyComboBox::hidePopup() {
    if (isPopupVisible())
        m_popup->cancel();
}

void VyComboBox::closePopup() {
    VyInnerListWidget* list = m_popup.data();
    if (!list)
        return;
    m_popup.reset(nullptr);
    if (list->isVisible())
        list->hide();
    // The popup is inside its own signal here: it goes later, and no longer with this combo
    // box, which that signal's slots may delete.
    list->setParent(nullptr);
    list->deleteLater();
    if (isVisible() && isEnabled())
        setFocus(4);
    update();
    emitSignal(this, &popupClosed);
}

void VyComboBox::popupChosen() {
    const int row = m_popup ? m_popup->chosenRow() : -1;
    // A slot of popupClosed may delete the combo box.
    VyPointer<VyComboBox> self(this);
    closePopup();
    if (self)
        userChose(row);
}

void VyComboBox::popupCancelled() {
    closePopup();
}

void VyComboBox::userChose(int index) {
    if (index < 0 || index >= count())
        return;
    VyPointer<VyComboBox> self(this);
    setCurrentIndex(index);
    if (self)
        emitSignal(this, &activated);
}

int VyComboBox::styleSlot() const {
    if (isPopupVisible())
        return VyStyleFocus;
    return vyControlStyleSlot(this, m_hovered);
}

VySize VyComboBox::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyComboBoxOption>().font, 0);
    int w = 0;
    for (const Item& item : m_items)
        w = std::max(w, VyTextLayout::width(item.text, px));
    const int h = VyTextLayout::lineHeight(px) + 2 * style->scaled(VyStyle::kFieldPaddingDesign);
    return VySize(w + h + 2 * style->scaled(VyStyle::kFieldPaddingDesign), h);
}

void VyComboBox::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawComboBox(canvas(), rect(), styleSlot(), currentText());
}

void VyComboBox::keyPressEvent(VyKeyEvent* e) {
    if (!isEnabled() || e->key() != VyKeyEvent::KeyOk || m_items.empty()) {
        e->ignore();
        return;
    }
    e->accept();
    showPopup();
}

void VyComboBox::wheelEvent(VyWheelEvent* e) {
    if (!isEnabled() || e->delta() == 0 || m_items.empty()) {
        e->ignore();
        return;
    }
    e->accept();
    const int notches = e->notches();
    // A notch away from the user (positive) goes back up the list.
    const int next = std::max(0, std::min(count() - 1, std::max(0, m_current) - notches));
    if (next != m_current)
        userChose(next);
}

void VyComboBox::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    showPopup();
}

void VyComboBox::hoverEnterEvent(VyHoverEvent*) {
    m_hovered = true;
    update();
}

void VyComboBox::hoverLeaveEvent(VyHoverEvent*) {
    m_hovered = false;
    update();
}

void VyComboBox::focusInEvent(VyFocusEvent*) {
    update();
}

void VyComboBox::focusOutEvent(VyFocusEvent*) {
    update();
}

void VyComboBox::hideEvent(VyHideEvent*) {
    hidePopup();
}
