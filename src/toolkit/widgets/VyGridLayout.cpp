#include "toolkit/widgets/VyGridLayout.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyWidget.h"

#include <algorithm>

namespace {

int saturatingAdd(int a, int b) {
    long long sum = static_cast<long long>(a) + b;
    return static_cast<int>(std::min<long long>(sum, VyWidget::kMaxSize));
}

} // namespace

VyGridLayout::VyGridLayout(VyWidget* parent)
    : VyLayout(parent) {}

void VyGridLayout::grow(int rows, int columns) {
    if (static_cast<int>(m_rows.size()) < rows)
        m_rows.resize(static_cast<size_t>(rows));
    if (static_cast<int>(m_columns.size()) < columns)
        m_columns.resize(static_cast<size_t>(columns));
}

bool VyGridLayout::addItem(const Item& item) {
    if (item.row < 0 || item.column < 0 || item.rowSpan < 1 || item.columnSpan < 1 ||
        item.row + item.rowSpan > kMaxLines || item.column + item.columnSpan > kMaxLines) {
        vyFrameworkLog("VyGridLayout: cell (%d, %d) span (%d, %d) is out of range !!!\n", item.row,
                       item.column, item.rowSpan, item.columnSpan);
        return false;
    }
    grow(item.row + item.rowSpan, item.column + item.columnSpan);
    m_items.push_back(item);
    requestLayout();
    return true;
}

void VyGridLayout::addWidget(VyWidget* widget, int row, int column, int rowSpan, int columnSpan) {
    if (!widget)
        return;
    Item item;
    item.widget = widget;
    item.row = row;
    item.column = column;
    item.rowSpan = rowSpan;
    item.columnSpan = columnSpan;
    if (addItem(item))
        adoptWidget(widget);
}

void VyGridLayout::addLayout(VyLayout* layout, int row, int column, int rowSpan, int columnSpan) {
    if (!layout || layout == this)
        return;
    Item item;
    item.layout = layout;
    item.row = row;
    item.column = column;
    item.rowSpan = rowSpan;
    item.columnSpan = columnSpan;
    if (!addItem(item)) {
        delete layout;
        return;
    }
    layout->setParent(this);
    layout->adoptAll();
}

void VyGridLayout::setRowStretch(int row, int stretch) {
    if (row < 0 || row >= kMaxLines)
        return;
    grow(row + 1, 0);
    m_rows[static_cast<size_t>(row)].stretch = std::max(0, stretch);
    requestLayout();
}

void VyGridLayout::setColumnStretch(int column, int stretch) {
    if (column < 0 || column >= kMaxLines)
        return;
    grow(0, column + 1);
    m_columns[static_cast<size_t>(column)].stretch = std::max(0, stretch);
    requestLayout();
}

void VyGridLayout::setRowMinimumHeight(int row, int pixels) {
    if (row < 0 || row >= kMaxLines)
        return;
    grow(row + 1, 0);
    m_rows[static_cast<size_t>(row)].minimum = std::max(0, pixels);
    requestLayout();
}

void VyGridLayout::setColumnMinimumWidth(int column, int pixels) {
    if (column < 0 || column >= kMaxLines)
        return;
    grow(0, column + 1);
    m_columns[static_cast<size_t>(column)].minimum = std::max(0, pixels);
    requestLayout();
}

void VyGridLayout::adoptAll() {
    for (const Item& item : m_items)
        adoptItem(item.widget, item.layout);
}

std::vector<VyLayoutSlot> VyGridLayout::slots(bool vertical) const {
    const std::vector<Line>& lines = vertical ? m_rows : m_columns;
    std::vector<VyLayoutSlot> out(lines.size());
    std::vector<bool> used(lines.size(), false);
    for (size_t i = 0; i < lines.size(); ++i) {
        out[i].minimum = lines[i].minimum;
        out[i].hint = lines[i].minimum;
        out[i].maximum = 0;
        out[i].stretch = lines[i].stretch;
    }
    auto along = [vertical](VySize s) { return vertical ? s.height : s.width; };
    // Single-cell items first: they set each line's own needs.
    for (const Item& item : m_items) {
        int span = vertical ? item.rowSpan : item.columnSpan;
        if (span != 1)
            continue;
        size_t i = static_cast<size_t>(vertical ? item.row : item.column);
        out[i].minimum = std::max(out[i].minimum, along(itemMinimumOf(item.widget, item.layout)));
        out[i].hint = std::max(out[i].hint, along(itemHintOf(item.widget, item.layout)));
        out[i].maximum = std::max(out[i].maximum, along(itemMaximumOf(item.widget, item.layout)));
        used[i] = true;
    }
    // A spanning item that needs more than its lines give adds the rest to its last line.
    for (const Item& item : m_items) {
        int first = vertical ? item.row : item.column;
        int span = vertical ? item.rowSpan : item.columnSpan;
        if (span == 1)
            continue;
        int gaps = spacing() * (span - 1);
        int haveMin = gaps, haveHint = gaps;
        for (int k = first; k < first + span; ++k) {
            haveMin += out[static_cast<size_t>(k)].minimum;
            haveHint += out[static_cast<size_t>(k)].hint;
            used[static_cast<size_t>(k)] = true;
            out[static_cast<size_t>(k)].maximum =
                std::max(out[static_cast<size_t>(k)].maximum,
                         along(itemMaximumOf(item.widget, item.layout)));
        }
        VyLayoutSlot& last = out[static_cast<size_t>(first + span - 1)];
        last.minimum += std::max(0, along(itemMinimumOf(item.widget, item.layout)) - haveMin);
        last.hint += std::max(0, along(itemHintOf(item.widget, item.layout)) - haveHint);
    }
    for (size_t i = 0; i < out.size(); ++i) {
        // An empty line only grows when it was given a stretch.
        if (!used[i])
            out[i].maximum = out[i].stretch > 0 ? VyWidget::kMaxSize : out[i].minimum;
        out[i].hint = std::max(out[i].hint, out[i].minimum);
        out[i].maximum = std::max(out[i].maximum, out[i].hint);
    }
    return out;
}

int VyGridLayout::total(const std::vector<VyLayoutSlot>& lines, int VyLayoutSlot::*field, int gap) {
    int sum = lines.empty() ? 0 : gap * static_cast<int>(lines.size() - 1);
    for (const VyLayoutSlot& s : lines)
        sum = saturatingAdd(sum, s.*field);
    return sum;
}

VySize VyGridLayout::sizeHint() const {
    return VySize(saturatingAdd(total(slots(false), &VyLayoutSlot::hint, spacing()),
                                marginLeft() + marginRight()),
                  saturatingAdd(total(slots(true), &VyLayoutSlot::hint, spacing()),
                                marginTop() + marginBottom()));
}

VySize VyGridLayout::minimumSize() const {
    return VySize(saturatingAdd(total(slots(false), &VyLayoutSlot::minimum, spacing()),
                                marginLeft() + marginRight()),
                  saturatingAdd(total(slots(true), &VyLayoutSlot::minimum, spacing()),
                                marginTop() + marginBottom()));
}

VySize VyGridLayout::maximumSize() const {
    return VySize(saturatingAdd(total(slots(false), &VyLayoutSlot::maximum, spacing()),
                                marginLeft() + marginRight()),
                  saturatingAdd(total(slots(true), &VyLayoutSlot::maximum, spacing()),
                                marginTop() + marginBottom()));
}

void VyGridLayout::setGeometry(const VyRect& rect) {
    storeGeometry(rect);
    VyRect area = contentsRect(rect);
    if (m_items.empty() || area.isEmpty())
        return;
    std::vector<VyLayoutSlot> columns = slots(false);
    std::vector<VyLayoutSlot> rows = slots(true);
    int gap = spacing();
    std::vector<int> widths =
        distribute(columns, area.width() - gap * static_cast<int>(columns.size() - 1));
    std::vector<int> heights =
        distribute(rows, area.height() - gap * static_cast<int>(rows.size() - 1));
    std::vector<int> xs(widths.size()), ys(heights.size());
    int x = area.left;
    for (size_t i = 0; i < widths.size(); ++i) {
        xs[i] = x;
        x += widths[i] + gap;
    }
    int y = area.top;
    for (size_t i = 0; i < heights.size(); ++i) {
        ys[i] = y;
        y += heights[i] + gap;
    }
    for (const Item& item : m_items) {
        size_t c0 = static_cast<size_t>(item.column);
        size_t c1 = static_cast<size_t>(item.column + item.columnSpan - 1);
        size_t r0 = static_cast<size_t>(item.row);
        size_t r1 = static_cast<size_t>(item.row + item.rowSpan - 1);
        VyRect cell =
            VyRect::fromEdges(xs[c0], ys[r0], xs[c1] + widths[c1] - 1, ys[r1] + heights[r1] - 1);
        // Within its cell an item keeps to its maximum, at the top-left.
        VySize max = itemMaximumOf(item.widget, item.layout);
        VyRect r(cell.left, cell.top, std::min(cell.width(), max.width),
                 std::min(cell.height(), max.height));
        if (item.widget)
            item.widget->setGeometry(r);
        else
            item.layout->setGeometry(r);
    }
}
