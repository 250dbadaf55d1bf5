#include "toolkit/widgets/VyTableWidget.h"

#include <algorithm>
#include <cstdlib>

#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/style/VyStyle.h"
#include "toolkit/style/VyTextLayout.h"
#include "toolkit/widgets/VyScrollBar.h"
#include "toolkit/widgets/VyTableWidgetHHeader.h"
#include "toolkit/widgets/VyTableWidgetVHeader.h"
#include "toolkit/widgets/VyTableWidgetViewPort.h"

namespace {

constexpr int kMaxColumns = 1 << 20; // cell keys hold the column in 20 bits

int frameWidth() {
    const VySTBorderWidth* w =
        VyStyle::instance()->option().get<VyTableWidgetOption>().borderWidth.at(0);
    return w && w->isSet() ? std::max(0, static_cast<int>(w->left)) : 1;
}

// Numbers compare as numbers, so "Channel 10" follows "Channel 9" and a size column sorts.
bool lessText(const VyString& a, const VyString& b) {
    const std::string& sa = a.toStdString();
    const std::string& sb = b.toStdString();
    char* endA = nullptr;
    char* endB = nullptr;
    const double na = std::strtod(sa.c_str(), &endA);
    const double nb = std::strtod(sb.c_str(), &endB);
    if (endA != sa.c_str() && endB != sb.c_str() && *endA == '\0' && *endB == '\0')
        return na < nb;
    return sa < sb;
}

} // namespace

VyTableWidget::VyTableWidget(VyWidget* parent)
    : VyWidget(parent)
    , m_hHeader(new VyTableWidgetHHeader(this))
    , m_vHeader(new VyTableWidgetVHeader(this))
    , m_viewport(new VyTableWidgetViewPort(this))
    , m_scrollBar(new VyScrollBar(VyAbstractSlider::Vertical, this)) {
    setFocusPolicy(StrongFocus);
    m_hHeader->setStretchLastSection(true);
    m_scrollBar->setRange(0, 0);
    connect(m_hHeader, &m_hHeader->sectionResized, this, VY_SLOT(VyTableWidget, headerChanged));
    connect(m_hHeader, &m_hHeader->sortIndicatorChanged, this,
            VY_SLOT(VyTableWidget, sortIndicatorChanged));
    connect(m_scrollBar, &m_scrollBar->valueChanged, this, VY_SLOT(VyTableWidget, scrollBarMoved));
}

VyTableWidget::~VyTableWidget() = default;

void VyTableWidget::setColumnCount(int columns) {
    m_columns = std::max(0, std::min(columns, kMaxColumns - 1));
    m_hHeader->setSectionCount(m_columns);
    if (m_currentColumn >= m_columns)
        m_currentColumn = m_columns - 1;
    layoutChildren();
}

void VyTableWidget::setHorizontalHeaderLabels(const VyStringList& labels) {
    if (labels.size() > m_columns)
        setColumnCount(labels.size());
    m_hHeader->setLabels(labels);
}

void VyTableWidget::setColumnWidth(int column, int width) {
    m_hHeader->setSectionSize(column, width);
}

int VyTableWidget::columnWidth(int column) const {
    return m_hHeader->sectionSize(column);
}

void VyTableWidget::setRowCount(int rows) {
    m_rows = std::max(0, rows);
    m_vHeader->setSectionCount(m_rows);
    m_selected.erase(m_selected.lower_bound(m_rows), m_selected.end());
    layoutChildren();
    m_viewport->update();
    if (m_currentRow >= m_rows) {
        m_currentRow = m_rows - 1;
        if (m_currentRow < 0)
            m_currentColumn = -1;
        else if (m_mode == SingleSelection)
            m_selected.insert(m_currentRow);
        emitSignal(this, &currentCellChanged);
    }
}

void VyTableWidget::setCellSource(CellSource source) {
    m_source = std::move(source);
    m_viewport->update();
}

void VyTableWidget::setCellText(int row, int column, const VyString& text) {
    if (!validCell(row, column)) {
        vyFrameworkLog("VyTableWidget: cell (%d, %d) out of range !!!\n", row, column);
        return;
    }
    m_texts[keyOf(row, column)] = text;
    updateRow(row);
}

VyTableCell VyTableWidget::cell(int row, int column) const {
    if (!validCell(row, column))
        return VyTableCell();
    if (m_source)
        return m_source(row, column);
    VyTableCell c;
    auto it = m_texts.find(keyOf(row, column));
    if (it != m_texts.end())
        c.text = it->second;
    return c;
}

void VyTableWidget::setSelectionMode(SelectionMode mode) {
    m_mode = mode;
    clearSelection();
    if (m_mode == SingleSelection && m_currentRow >= 0)
        setRowSelected(m_currentRow, true);
}

bool VyTableWidget::setCurrentCell(int row, int column) {
    if (!(row == -1 && column == -1) && !validCell(row, column)) {
        vyFrameworkLog("VyTableWidget: cell (%d, %d) out of range (%d x %d) !!!\n", row, column,
                       m_rows, m_columns);
        return false;
    }
    moveCurrent(row, column);
    return true;
}

void VyTableWidget::setRowSelected(int row, bool selected) {
    if (row < 0 || row >= m_rows || m_mode == NoSelection || isRowSelected(row) == selected)
        return;
    if (selected && m_mode == SingleSelection) {
        for (int r : m_selected)
            updateRow(r);
        m_selected.clear();
    }
    if (selected)
        m_selected.insert(row);
    else
        m_selected.erase(row);
    updateRow(row);
    emitSignal(this, &itemSelectionChanged);
}

void VyTableWidget::clearSelection() {
    if (m_selected.empty())
        return;
    m_selected.clear();
    m_viewport->update();
    emitSignal(this, &itemSelectionChanged);
}

void VyTableWidget::setSortingEnabled(bool on) {
    m_hHeader->setSortingEnabled(on);
}

int VyTableWidget::sortColumn() const {
    return m_hHeader->sortIndicatorSection();
}

int VyTableWidget::sortOrder() const {
    return m_hHeader->sortOrder();
}

void VyTableWidget::setVerticalHeaderVisible(bool visible) {
    m_vHeaderShown = visible;
    layoutChildren();
}

void VyTableWidget::setCellWidget(int row, int column, VyWidget* widget) {
    if (!validCell(row, column) || (widget && widget->isWindow())) {
        vyFrameworkLog("VyTableWidget: no cell (%d, %d) for a control, or the control is a "
                       "window !!!\n",
                       row, column);
        delete widget;
        return;
    }
    auto it = m_cellWidgets.find(keyOf(row, column));
    if (it != m_cellWidgets.end()) {
        VyWidget* old = it->second.data();
        m_cellWidgets.erase(it);
        if (old != widget)
            delete old;
    }
    if (!widget)
        return;
    widget->setParent(m_viewport);
    m_cellWidgets.emplace(keyOf(row, column), VyPointer<VyWidget>(widget));
    placeCellWidgets();
}

VyWidget* VyTableWidget::cellWidget(int row, int column) const {
    auto it = m_cellWidgets.find(keyOf(row, column));
    return it != m_cellWidgets.end() ? it->second.data() : nullptr;
}

int VyTableWidget::rowHeight() const {
    return std::max(1, VyStyle::instance()->itemHeight());
}

int VyTableWidget::visibleRowCount() const {
    return std::max(1, m_viewport->height() / rowHeight());
}

void VyTableWidget::setTop(int row) {
    row = std::max(0, std::min(row, std::max(0, m_rows - visibleRowCount())));
    if (row == m_top)
        return;
    m_top = row;
    m_scrollBar->setValue(m_top);
    m_vHeader->setOffset(m_top * rowHeight());
    placeCellWidgets();
    m_viewport->update();
}

void VyTableWidget::scrollToRow(int row) {
    // Before the first layout the page size is unknown; showing scrolls the current row in.
    if (row < 0 || row >= m_rows || !isVisible())
        return;
    if (row < m_top)
        setTop(row);
    else if (row >= m_top + visibleRowCount())
        setTop(row - visibleRowCount() + 1);
}

VyRect VyTableWidget::cellRect(int row, int column) const {
    if (!validCell(row, column))
        return VyRect();
    return VyRect(m_hHeader->sectionPosition(column) - m_hHeader->offset(),
                  (row - m_top) * rowHeight(), m_hHeader->sectionSize(column), rowHeight());
}

int VyTableWidget::rowAt(VyPoint pos) const {
    const VyRect vp = m_viewport->geometry();
    if (!vp.contains(pos))
        return -1;
    const int row = m_top + (pos.y - vp.top) / rowHeight();
    return row < m_rows ? row : -1;
}

int VyTableWidget::columnAt(VyPoint pos) const {
    const VyRect vp = m_viewport->geometry();
    if (!vp.contains(pos))
        return -1;
    return m_hHeader->sectionAt(pos.x - vp.left);
}

void VyTableWidget::updateRow(int row) {
    if (row >= m_top && row <= m_top + visibleRowCount())
        m_viewport->update(
            VyRect(0, (row - m_top) * rowHeight(), m_viewport->width(), rowHeight()));
}

void VyTableWidget::moveCurrent(int row, int column) {
    if (row == m_currentRow && column == m_currentColumn)
        return;
    const int oldRow = m_currentRow;
    m_currentRow = row;
    m_currentColumn = column;
    updateRow(oldRow);
    if (row >= 0) {
        scrollToRow(row);
        updateRow(row);
        if (m_mode == SingleSelection) {
            // The selection's own signal may delete the table.
            VyPointer<VyTableWidget> self(this);
            setRowSelected(row, true);
            if (!self)
                return;
        }
    }
    emitSignal(this, &currentCellChanged);
}

void VyTableWidget::layoutChildren() {
    const int bw = frameWidth();
    const int headerH = rowHeight();
    const int inner = std::max(0, width() - 2 * bw);
    int left = bw;
    int vHeaderW = 0;
    if (m_vHeaderShown) {
        const int px =
            VyStyle::fontSize(VyStyle::instance()->option().get<VyTableWidgetOption>().font, 0);
        vHeaderW = VyTextLayout::width(VyString::number(std::max(1, m_rows)), px) +
                   2 * VyStyle::instance()->scaled(VyStyle::kFieldPaddingDesign);
        vHeaderW = std::min(vHeaderW, inner / 2);
    }
    const int bodyH = std::max(0, height() - 2 * bw - headerH);
    const int rowsFit = std::max(1, bodyH / rowHeight());
    const bool scroll = m_rows > rowsFit;
    const int thickness = std::max(1, VyStyle::instance()->scaled(VyScrollBar::kDesignThickness));
    const int scrollW = scroll ? std::min(thickness, inner) : 0;
    m_vHeader->setGeometry(left, bw + headerH, vHeaderW, bodyH);
    m_vHeader->setDefaultSectionSize(rowHeight());
    m_vHeader->setVisible(m_vHeaderShown && isVisible());
    left += vHeaderW;
    const int cellsW = std::max(0, inner - vHeaderW - scrollW);
    m_hHeader->setGeometry(left, bw, cellsW, headerH);
    m_viewport->setGeometry(left, bw + headerH, cellsW, bodyH);
    m_scrollBar->setGeometry(width() - bw - scrollW, bw + headerH, scrollW, bodyH);
    m_scrollBar->setVisible(scroll && isVisible());
    m_scrollBar->setRange(0, std::max(0, m_rows - rowsFit));
    m_scrollBar->setPageStep(rowsFit);
    if (isVisible()) {
        m_hHeader->show();
        m_viewport->show();
    }
    const int top = m_top;
    m_top = -1; // forces the scroll state to follow
    setTop(top);
    scrollToRow(m_currentRow);
}

void VyTableWidget::placeCellWidgets() {
    for (auto& entry : m_cellWidgets) {
        VyWidget* w = entry.second.data();
        if (!w)
            continue;
        const int row = static_cast<int>(entry.first >> 20);
        const int column = static_cast<int>(entry.first & (kMaxColumns - 1));
        const VyRect r = cellRect(row, column);
        const bool inView = row >= m_top && row < m_top + visibleRowCount() && r.width() > 2;
        if (inView)
            w->setGeometry(r.left + 1, r.top + 1, r.width() - 2, r.height() - 2);
        if (inView != w->isVisible())
            w->setVisible(inView && isVisible());
    }
}

void VyTableWidget::headerChanged() {
    placeCellWidgets();
    m_viewport->update();
}

void VyTableWidget::sortIndicatorChanged() {
    if (!m_source)
        sortStoredRows();
    m_viewport->update();
    emitSignal(this, &sortChanged);
}

void VyTableWidget::sortStoredRows() {
    const int column = sortColumn();
    if (column < 0 || m_rows == 0)
        return;
    std::vector<int> order(m_rows);
    for (int i = 0; i < m_rows; ++i)
        order[i] = i;
    const bool descending = sortOrder() == VyHeaderView::Descending;
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const VyTableCell ca = cell(a, column);
        const VyTableCell cb = cell(b, column);
        return descending ? lessText(cb.text, ca.text) : lessText(ca.text, cb.text);
    });
    std::unordered_map<CellKey, VyString> sorted;
    std::set<int> selected;
    int current = m_currentRow;
    for (int to = 0; to < m_rows; ++to) {
        const int from = order[to];
        for (int c = 0; c < m_columns; ++c) {
            auto it = m_texts.find(keyOf(from, c));
            if (it != m_texts.end())
                sorted.emplace(keyOf(to, c), it->second);
        }
        if (m_selected.count(from))
            selected.insert(to);
        if (from == m_currentRow)
            current = to;
    }
    m_texts.swap(sorted);
    m_selected.swap(selected);
    m_currentRow = current;
}

void VyTableWidget::scrollBarMoved() {
    setTop(m_scrollBar->value());
}

VySize VyTableWidget::sizeHint() const {
    return VySize(std::max(m_hHeader->length(), VyStyle::instance()->scaled(400)) +
                      2 * frameWidth(),
                  rowHeight() * 8 + 2 * frameWidth());
}

void VyTableWidget::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawItemViewFrame(canvas(), rect(), hasFocus(), isEnabled(), true);
}

void VyTableWidget::paintCells(VyCanvas* c) {
    VyStyle* style = VyStyle::instance();
    const int rh = rowHeight();
    const int last = std::min(m_rows - 1, m_top + visibleRowCount());
    const int firstColumn = std::max(0, m_hHeader->sectionAt(0));
    const VyRect area = m_viewport->rect();
    const VyRect clip = c->clipRect().translated(-c->origin().x, -c->origin().y);
    VyStyle::ItemLook look;
    look.focused = hasFocus();
    look.enabled = isEnabled();
    for (int row = m_top; row <= last; ++row) {
        const int y = (row - m_top) * rh;
        if (y > clip.bottom || y + rh - 1 < clip.top)
            continue;
        look.selected = isRowSelected(row);
        int x = m_hHeader->sectionPosition(firstColumn) - m_hHeader->offset();
        for (int column = firstColumn; column < m_columns && x <= area.right; ++column) {
            const int w = m_hHeader->sectionSize(column);
            if (w > 0 && x + w - 1 >= clip.left && x <= clip.right) {
                VyTableCell content = cell(row, column);
                look.text = content.text;
                look.icon = content.icon;
                look.alignment = content.alignment;
                look.foreground = content.foreground;
                look.current =
                    row == m_currentRow && (m_behavior == SelectRows || column == m_currentColumn);
                style->drawTableCell(c, VyRect(x, y, w, rh).intersected(area), look);
            }
            x += w;
        }
    }
}

void VyTableWidget::keyPressEvent(VyKeyEvent* e) {
    if (!isEnabled() || m_rows == 0 || m_columns == 0) {
        e->ignore();
        return;
    }
    const int row = std::max(0, m_currentRow);
    const int column = std::max(0, m_currentColumn);
    const int page = visibleRowCount();
    const bool byCell = m_behavior == SelectItems && m_columns > 1;
    switch (e->key()) {
    case VyKeyEvent::KeyUp:
        moveCurrent(m_currentRow < 0 ? 0 : std::max(0, row - 1), column);
        break;
    case VyKeyEvent::KeyDown:
        moveCurrent(m_currentRow < 0 ? 0 : std::min(m_rows - 1, row + 1), column);
        break;
    case VyKeyEvent::KeyLeft:
        if (byCell)
            moveCurrent(row, std::max(0, column - 1));
        else
            moveCurrent(std::max(0, row - page), column);
        break;
    case VyKeyEvent::KeyRight:
        if (byCell)
            moveCurrent(row, std::min(m_columns - 1, column + 1));
        else
            moveCurrent(std::min(m_rows - 1, row + page), column);
        break;
    case VyKeyEvent::KeyOk: {
        if (m_currentRow < 0) {
            e->ignore();
            return;
        }
        VyPointer<VyTableWidget> self(this);
        if (VyWidget* control = cellWidget(m_currentRow, column)) {
            VyKeyEvent ok(VyEvent::KeyPress, VyKeyEvent::KeyOk);
            VyApplication::sendEvent(control, &ok);
        } else if (m_mode == MultiSelection) {
            setRowSelected(m_currentRow, !isRowSelected(m_currentRow));
        }
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

void VyTableWidget::wheelEvent(VyWheelEvent* e) {
    if (!isEnabled() || e->delta() == 0) {
        e->ignore();
        return;
    }
    e->accept();
    const int notches = e->notches();
    setTop(m_top - notches * kWheelRows);
}

void VyTableWidget::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    if (!hasFocus())
        setFocus(0);
    const int row = rowAt(e->pos());
    const int column = columnAt(e->pos());
    if (row < 0 || column < 0)
        return;
    VyPointer<VyTableWidget> self(this);
    moveCurrent(row, column);
    if (self && m_mode == MultiSelection)
        setRowSelected(row, !isRowSelected(row));
}

void VyTableWidget::mouseDoubleClickEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled() || rowAt(e->pos()) < 0) {
        e->ignore();
        return;
    }
    e->accept();
    emitSignal(this, &activated);
}

void VyTableWidget::focusInEvent(VyFocusEvent*) {
    // No current cell is made here: a focus change must not emit the table's signals (their
    // slots could delete the table inside the focus change). The first arrow picks row 0.
    update();
    m_viewport->update();
}

void VyTableWidget::focusOutEvent(VyFocusEvent*) {
    update();
    m_viewport->update();
}

void VyTableWidget::resizeEvent(VyResizeEvent*) {
    layoutChildren();
}

void VyTableWidget::showEvent(VyShowEvent*) {
    layoutChildren();
}
