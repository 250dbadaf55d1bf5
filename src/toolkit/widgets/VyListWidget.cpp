#include "toolkit/widgets/VyListWidget.h"

#include <algorithm>

#include "runtime/VyLog.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyScrollBar.h"

namespace {
constexpr int kFrame = 1; // pixels of frame around the rows
} // namespace

VyListWidget::VyListWidget(VyWidget* parent)
    : VyWidget(parent)
    , m_scrollBar(new VyScrollBar(VyAbstractSlider::Vertical, this)) {
    setFocusPolicy(StrongFocus);
    m_scrollBar->setRange(0, 0);
    connect(m_scrollBar, &m_scrollBar->valueChanged, this, VY_SLOT(VyListWidget, scrollBarMoved));
}

VyListWidget::~VyListWidget() = default;

void VyListWidget::addItem(const VyString& text, const VyBitmap& icon) {
    insertItem(count(), text, icon);
}

void VyListWidget::addItems(const VyStringList& texts) {
    for (int i = 0; i < texts.size(); ++i)
        m_items.push_back(Item{texts.at(i), VyBitmap()});
    syncScrollBar();
    update();
}

void VyListWidget::insertItem(int row, const VyString& text, const VyBitmap& icon) {
    if (row < 0 || row > count())
        row = count();
    m_items.insert(m_items.begin() + row, Item{text, icon});
    if (m_current >= row)
        ++m_current;
    syncScrollBar();
    update();
}

void VyListWidget::removeItem(int row) {
    if (!validRow(row))
        return;
    const bool wasSelected = m_items[row].selected;
    const bool wasCurrent = m_current == row;
    m_items.erase(m_items.begin() + row);
    if (wasCurrent) {
        m_current = std::min(row, count() - 1);
        if (m_current >= 0 && m_mode == SingleSelection)
            m_items[m_current].selected = true;
    } else if (m_current > row) {
        --m_current;
    }
    setTop(m_top);
    syncScrollBar();
    update();
    VyPointer<VyListWidget> self(this);
    if (wasCurrent)
        emitSignal(this, &currentRowChanged);
    if (self && wasSelected)
        emitSignal(this, &itemSelectionChanged);
}

void VyListWidget::clear() {
    const bool hadCurrent = m_current >= 0;
    m_items.clear();
    m_current = -1;
    m_top = 0;
    syncScrollBar();
    update();
    if (hadCurrent)
        emitSignal(this, &currentRowChanged);
}

VyString VyListWidget::itemText(int row) const {
    return validRow(row) ? m_items[row].text : VyString();
}

void VyListWidget::setItemText(int row, const VyString& text) {
    if (!validRow(row))
        return;
    m_items[row].text = text;
    update(rowRect(row));
}

void VyListWidget::setItemIcon(int row, const VyBitmap& icon) {
    if (!validRow(row))
        return;
    m_items[row].icon = icon;
    update(rowRect(row));
}

void VyListWidget::setItemCheckable(int row, bool checkable) {
    if (!validRow(row))
        return;
    m_items[row].checkable = checkable;
    update(rowRect(row));
}

bool VyListWidget::isItemCheckable(int row) const {
    return validRow(row) && m_items[row].checkable;
}

void VyListWidget::setItemChecked(int row, bool checked) {
    if (!validRow(row) || m_items[row].checked == checked)
        return;
    m_items[row].checked = checked;
    m_lastChanged = row;
    update(rowRect(row));
    emitSignal(this, &itemCheckChanged);
}

bool VyListWidget::isItemChecked(int row) const {
    return validRow(row) && m_items[row].checked;
}

void VyListWidget::setItemData(int row, long long data) {
    if (validRow(row))
        m_items[row].data = data;
}

long long VyListWidget::itemData(int row) const {
    return validRow(row) ? m_items[row].data : 0;
}

void VyListWidget::setSelectionMode(SelectionMode mode) {
    m_mode = mode;
    clearSelection();
    if (m_mode == SingleSelection && validRow(m_current))
        setSelected(m_current, true);
}

bool VyListWidget::setCurrentRow(int row) {
    if (row != -1 && !validRow(row)) {
        vyFrameworkLog("VyListWidget: row %d out of range (%d rows) !!!\n", row, count());
        return false;
    }
    moveCurrent(row);
    return true;
}

void VyListWidget::setSelected(int row, bool selected) {
    if (!validRow(row) || m_mode == NoSelection || m_items[row].selected == selected)
        return;
    if (selected && m_mode == SingleSelection)
        for (int i = 0; i < count(); ++i)
            if (m_items[i].selected) {
                m_items[i].selected = false;
                update(rowRect(i));
            }
    m_items[row].selected = selected;
    update(rowRect(row));
    emitSignal(this, &itemSelectionChanged);
}

bool VyListWidget::isSelected(int row) const {
    return validRow(row) && m_items[row].selected;
}

std::vector<int> VyListWidget::selectedRows() const {
    std::vector<int> rows;
    for (int i = 0; i < count(); ++i)
        if (m_items[i].selected)
            rows.push_back(i);
    return rows;
}

void VyListWidget::clearSelection() {
    bool changed = false;
    for (Item& item : m_items) {
        changed = changed || item.selected;
        item.selected = false;
    }
    if (!changed)
        return;
    update();
    emitSignal(this, &itemSelectionChanged);
}

int VyListWidget::rowHeight() const {
    return std::max(1, VyStyle::instance()->itemHeight());
}

VyRect VyListWidget::viewRect() const {
    const int right = m_scrollBar->isVisible() ? m_scrollBar->geometry().left - 1 : width() - 1;
    return VyRect::fromEdges(kFrame, kFrame, right - kFrame, height() - 1 - kFrame);
}

int VyListWidget::visibleRowCount() const {
    return std::max(1, viewRect().height() / rowHeight());
}

VyRect VyListWidget::rowRect(int row) const {
    const VyRect view = viewRect();
    return VyRect(view.left, view.top + (row - m_top) * rowHeight(), view.width(), rowHeight());
}

int VyListWidget::rowAt(VyPoint pos) const {
    const VyRect view = viewRect();
    if (!view.contains(pos))
        return -1;
    const int row = m_top + (pos.y - view.top) / rowHeight();
    return validRow(row) ? row : -1;
}

void VyListWidget::setTop(int row) {
    const int maxTop = std::max(0, count() - visibleRowCount());
    row = std::max(0, std::min(row, maxTop));
    if (row == m_top)
        return;
    m_top = row;
    m_scrollBar->setValue(m_top);
    update();
}

void VyListWidget::scrollToRow(int row) {
    // Before the first layout the page size is unknown; showing scrolls the current row in.
    if (!validRow(row) || !isVisible())
        return;
    if (row < m_top)
        setTop(row);
    else if (row >= m_top + visibleRowCount())
        setTop(row - visibleRowCount() + 1);
}

void VyListWidget::syncScrollBar() {
    const int thickness = std::max(1, VyStyle::instance()->scaled(VyScrollBar::kDesignThickness));
    const int rowsFit = std::max(1, (height() - 2 * kFrame) / rowHeight());
    const bool needed = count() > rowsFit;
    m_scrollBar->setGeometry(width() - kFrame - thickness, kFrame, thickness,
                             std::max(0, height() - 2 * kFrame));
    if (needed != m_scrollBar->isVisible())
        m_scrollBar->setVisible(needed && isVisible());
    m_scrollBar->setRange(0, std::max(0, count() - visibleRowCount()));
    m_scrollBar->setPageStep(visibleRowCount());
    setTop(m_top);
}

void VyListWidget::scrollBarMoved() {
    setTop(m_scrollBar->value());
}

void VyListWidget::moveCurrent(int row) {
    if (row == m_current)
        return;
    const int old = m_current;
    m_current = row;
    if (validRow(old))
        update(rowRect(old));
    if (validRow(row)) {
        scrollToRow(row);
        update(rowRect(row));
        if (m_mode == SingleSelection) {
            // The selection's own signal may delete the list.
            VyPointer<VyListWidget> self(this);
            setSelected(row, true);
            if (!self)
                return;
        }
    }
    emitSignal(this, &currentRowChanged);
}

void VyListWidget::toggleCheck(int row) {
    if (isItemCheckable(row))
        setItemChecked(row, !m_items[row].checked);
}

VySize VyListWidget::sizeHint() const {
    const VyStyle* style = VyStyle::instance();
    const int px = VyStyle::fontSize(style->option().get<VyListWidgetOption>().font, 0);
    int w = 0;
    for (const Item& item : m_items)
        w = std::max(w, VyTextLayout::width(item.text, px));
    return VySize(w + style->listCheckWidth() + 2 * style->scaled(VyStyle::kFieldPaddingDesign) +
                      style->scaled(VyScrollBar::kDesignThickness),
                  rowHeight() * std::min(8, std::max(3, count())) + 2 * kFrame);
}

void VyListWidget::paintEvent(VyPaintEvent*) {
    VyStyle* style = VyStyle::instance();
    VyCanvas* c = canvas();
    style->drawItemViewFrame(c, rect(), hasFocus(), isEnabled(), false);
    const VyRect view = viewRect();
    const int last = std::min(count() - 1, m_top + visibleRowCount());
    for (int row = m_top; row <= last; ++row) {
        const Item& item = m_items[row];
        VyStyle::ItemLook look;
        look.text = item.text;
        look.icon = item.icon;
        look.checkable = item.checkable;
        look.checked = item.checked;
        look.selected = item.selected;
        look.current = row == m_current;
        look.focused = hasFocus();
        look.enabled = isEnabled();
        style->drawListItem(c, rowRect(row).intersected(view), look);
    }
}

void VyListWidget::keyPressEvent(VyKeyEvent* e) {
    if (!isEnabled() || count() == 0) {
        e->ignore();
        return;
    }
    const int page = visibleRowCount();
    const int cur = std::max(0, m_current);
    switch (e->key()) {
    case VyKeyEvent::KeyUp:
        moveCurrent(m_current < 0 ? 0 : std::max(0, m_current - 1));
        break;
    case VyKeyEvent::KeyDown:
        moveCurrent(m_current < 0 ? 0 : std::min(count() - 1, m_current + 1));
        break;
    case VyKeyEvent::KeyLeft:
        moveCurrent(std::max(0, cur - page));
        break;
    case VyKeyEvent::KeyRight:
        moveCurrent(std::min(count() - 1, cur + page));
        break;
    case VyKeyEvent::KeyOk: {
        if (!validRow(m_current)) {
            e->ignore();
            return;
        }
        // The change's own signal may delete the list.
        VyPointer<VyListWidget> self(this);
        if (m_items[m_current].checkable)
            toggleCheck(m_current);
        else if (m_mode == MultiSelection)
            setSelected(m_current, !m_items[m_current].selected);
        if (self)
            emitSignal(this, &activated);
        break;
    }
    default:
        e->ignore();
        return;
    }
    e->accept();
}

void VyListWidget::wheelEvent(VyWheelEvent* e) {
    if (!isEnabled() || e->delta() == 0) {
        e->ignore();
        return;
    }
    e->accept();
    const int notches = e->notches();
    setTop(m_top - notches * kWheelRows);
}

void VyListWidget::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    const int row = rowAt(e->pos());
    if (row < 0)
        return;
    VyPointer<VyListWidget> self(this);
    moveCurrent(row);
    if (!self)
        return;
    if (m_items[row].checkable &&
        e->pos().x < viewRect().left + VyStyle::instance()->listCheckWidth()) {
        toggleCheck(row);
        return;
    }
    if (m_mode == MultiSelection)
        setSelected(row, !m_items[row].selected);
}

void VyListWidget::mouseDoubleClickEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled() || rowAt(e->pos()) < 0) {
        e->ignore();
        return;
    }
    e->accept();
    VyPointer<VyListWidget> self(this);
    moveCurrent(rowAt(e->pos()));
    if (self)
        emitSignal(this, &activated);
}

void VyListWidget::focusInEvent(VyFocusEvent*) {
    // No current row is made here: a focus change must not emit the list's signals (their
    // slots could delete the list inside the focus change). The first arrow picks row 0.
    update();
}

void VyListWidget::focusOutEvent(VyFocusEvent*) {
    update();
}

void VyListWidget::resizeEvent(VyResizeEvent*) {
    syncScrollBar();
    scrollToRow(m_current);
}
