#include "ui/settings/ScheduleBoard.h"

#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"

#include <algorithm>

namespace {

// Every second column line falls on a whole hour and is drawn as a main division; the
// half-hour lines between them are the finer ones. Day lines are all main divisions.
bool isHourLine(int column) {
    return column % 2 == 0;
}

} // namespace

void ScheduleBoard::paintCell(VyCanvas* c, int column, int row) const {
    const VyRect r = cellRect(column, row);
    const VyRect inner = VyRect::fromEdges(r.left + 1, r.top + 1, r.right - 1, r.bottom - 1);
    if (inner.isEmpty())
        return;
    const uint8_t cell = m_schedule ? m_schedule[row * kColumns + column] : 0;
    const int types = int(m_blocks.size());
    if (m_mode == kModePlain) {
        c->fillRect(inner, cell != 0 && types > 0 ? m_blocks[0] : m_background);
        return;
    }
    if (m_mode == kModeCurrentType) {
        const bool on = m_currentType < types && (cell & (1u << m_currentType)) != 0;
        c->fillRect(inner, on ? m_blocks[m_currentType] : m_background);
        return;
    }
    const int first = m_hideNormal && bit0IsNormal() ? 1 : 0;
    if (m_mode == kModeStrongest) {
        vyargb colour = m_background;
        for (int t = first; t < types; ++t)
            if (cell & (1u << t))
                colour = m_blocks[size_t(t)];
        c->fillRect(inner, colour);
        return;
    }
    // Multi-type: equal horizontal stripes, one per type in the order of the block colours.
    const int stripes = types - first;
    if (stripes <= 0) {
        c->fillRect(inner, m_background);
        return;
    }
    const int h = inner.height();
    for (int s = 0; s < stripes; ++s) {
        const int t = first + s;
        const int top = inner.top + s * h / stripes;
        const int bottom = inner.top + (s + 1) * h / stripes - 1;
        if (bottom < top)
            continue;
        const bool on = (cell & (1u << t)) != 0;
        c->fillRect(VyRect::fromEdges(inner.left, top, inner.right, bottom),
                    on ? m_blocks[size_t(t)] : m_background);
    }
}

void ScheduleBoard::paintGrid(VyCanvas* c) const {
    const int bottom = int(float(kRows) * m_cellHeight);
    const int right = int(float(kColumns) * m_cellWidth);
    for (int column = 1; column < kColumns; ++column) {
        if (isHourLine(column))
            continue;
        const int x = int(float(column) * m_cellWidth);
        c->drawLine(x, 0, x, bottom, m_subLine);
    }
    for (int column = 2; column < kColumns; column += 2) {
        const int x = int(float(column) * m_cellWidth);
        c->drawLine(x, 0, x, bottom, m_mainLine);
    }
    for (int row = 1; row < kRows; ++row) {
        const int y = int(float(row) * m_cellHeight);
        c->drawLine(0, y, right, y, m_mainLine);
    }
    c->drawRect(VyRect::fromEdges(0, 0, right, bottom), m_border);
}

void ScheduleBoard::paintEvent(VyPaintEvent* e) {
    VyCanvas* c = canvas();
    if (c == nullptr || m_cellWidth <= 0 || m_cellHeight <= 0)
        return;
    // Only the cells the dirty region touches are drawn again: a drag repaints a few cells.
    const VyRect dirty = e->region().boundingRect();
    const int firstColumn = std::max(0, int(float(dirty.left) / m_cellWidth) - 1);
    const int lastColumn = std::min(kColumns - 1, int(float(dirty.right) / m_cellWidth) + 1);
    const int firstRow = std::max(0, int(float(dirty.top) / m_cellHeight) - 1);
    const int lastRow = std::min(kRows - 1, int(float(dirty.bottom) / m_cellHeight) + 1);
    for (int row = firstRow; row <= lastRow; ++row)
        for (int column = firstColumn; column <= lastColumn; ++column)
            paintCell(c, column, row);
    paintGrid(c);
    const VyRect focus = cellRect(m_focusColumn, m_focusRow);
    c->drawRect(focus, m_cellFocusBorder);
    if (m_dragging || m_keyPainting)
        c->drawRect(spanRect(bandSpan()), m_cellFocusBorder);
}
