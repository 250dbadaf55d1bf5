#include "ui/settings/ScheduleBoard.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"

#include <algorithm>

namespace {

constexpr uint8_t kLeftButton = 1;

vyargb styleColour(const VyIniSettings& ini, const char* key) {
    return ini.color(VyString(key)).argb();
}

int clampInt(int v, int lo, int hi) {
    return std::max(lo, std::min(v, hi));
}

} // namespace

ScheduleBoard::ScheduleBoard(std::initializer_list<const char*> blockKeys, VyWidget* parent)
    : CWidget(parent) {
    setFocusPolicy(StrongFocus);
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_border = styleColour(ini, "Common/Border");
    m_cellFocusBorder = styleColour(ini, "Common/CellFocusBorder");
    m_background = styleColour(ini, "Common/Background");
    m_mainLine = styleColour(ini, "Common/MainLine");
    m_subLine = styleColour(ini, "Common/SubLine");
    for (const char* key : blockKeys)
        m_blocks.push_back(styleColour(ini, key));
}

void ScheduleBoard::resizeEvent(VyResizeEvent*) {
    // One pixel is kept for the closing grid line on the right and at the bottom.
    m_cellWidth = float(width() - 1) / float(kColumns);
    m_cellHeight = float(height() - 1) / float(kRows);
}

int ScheduleBoard::columnAt(int x) const {
    return m_cellWidth > 0 ? int(float(x) / m_cellWidth) : 0; // truncates towards zero
}

int ScheduleBoard::rowAt(int y) const {
    return m_cellHeight > 0 ? int(float(y) / m_cellHeight) : 0;
}

VyRect ScheduleBoard::cellRect(int column, int row) const {
    const int x0 = int(float(column) * m_cellWidth), x1 = int(float(column + 1) * m_cellWidth);
    const int y0 = int(float(row) * m_cellHeight), y1 = int(float(row + 1) * m_cellHeight);
    return VyRect::fromEdges(x0, y0, x1, y1);
}

VyRect ScheduleBoard::spanRect(const CellSpan& s) const {
    if (s.isEmpty())
        return VyRect();
    return cellRect(s.firstColumn, s.firstRow).united(cellRect(s.lastColumn, s.lastRow));
}

bool ScheduleBoard::paintValueFor(int column, int row) const {
    const uint8_t cell = m_schedule[row * kColumns + column];
    if (m_mode == kModePlain)
        return cell == 0;
    if (m_currentType >= 8)
        return false;
    return (cell & (1u << m_currentType)) == 0;
}

void ScheduleBoard::applySpan(const CellSpan& s, bool set) {
    if (m_schedule == nullptr || s.isEmpty())
        return;
    for (int row = s.firstRow; row <= s.lastRow; ++row) {
        for (int column = s.firstColumn; column <= s.lastColumn; ++column) {
            uint8_t& cell = m_schedule[row * kColumns + column];
            if (m_mode == kModePlain) {
                cell = set ? 1 : 0;
            } else if (m_currentType < 8) {
                const uint8_t bit = uint8_t(1u << m_currentType);
                cell = set ? uint8_t(cell | bit) : uint8_t(cell & ~bit);
            }
        }
    }
    update(spanRect(s));
    emitSignal(this, &scheduleEdited);
}

ScheduleBoard::CellSpan ScheduleBoard::bandSpan() const {
    int c0 = m_anchorColumn, r0 = m_anchorRow, c1 = m_focusColumn, r1 = m_focusRow;
    if (m_dragging) {
        c0 = columnAt(m_pressPoint.x);
        r0 = rowAt(m_pressPoint.y);
        c1 = columnAt(m_currentPoint.x);
        r1 = rowAt(m_currentPoint.y);
    }
    CellSpan s;
    s.firstColumn = std::max(std::min(c0, c1), 0);
    s.lastColumn = std::min(std::max(c0, c1), kColumns - 1);
    s.firstRow = std::max(std::min(r0, r1), 0);
    s.lastRow = std::min(std::max(r0, r1), kRows - 1);
    return s;
}

void ScheduleBoard::repaintBandChange(const CellSpan& before) {
    VyRegion dirty(spanRect(before));
    dirty.unite(spanRect(bandSpan()));
    update(dirty);
}

void ScheduleBoard::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != kLeftButton || m_schedule == nullptr) {
        e->ignore();
        return;
    }
    const int column = clampInt(columnAt(e->x()), 0, kColumns - 1);
    const int row = clampInt(rowAt(e->y()), 0, kRows - 1);
    m_keyPainting = false;
    m_dragging = true;
    m_pressPoint = m_currentPoint = e->pos();
    m_paintSet = paintValueFor(column, row);
    const VyRect oldFocus = cellRect(m_focusColumn, m_focusRow);
    m_focusColumn = column;
    m_focusRow = row;
    VyRegion dirty(oldFocus);
    dirty.unite(cellRect(column, row));
    update(dirty);
    e->accept();
}

void ScheduleBoard::mouseMoveEvent(VyMouseEvent* e) {
    if (!m_dragging) {
        e->ignore();
        return;
    }
    const CellSpan before = bandSpan();
    m_currentPoint = e->pos();
    repaintBandChange(before);
    e->accept();
}

void ScheduleBoard::mouseReleaseEvent(VyMouseEvent* e) {
    if (!m_dragging || e->button() != kLeftButton || m_schedule == nullptr) {
        e->ignore();
        return;
    }
    m_currentPoint = e->pos();
    const CellSpan span = bandSpan();
    m_dragging = false;
    applySpan(span, m_paintSet);
    e->accept();
}

bool ScheduleBoard::moveFocus(int dColumn, int dRow) {
    const int column = m_focusColumn + dColumn, row = m_focusRow + dRow;
    if (column < 0 || column >= kColumns || row < 0 || row >= kRows)
        return false;
    const CellSpan before = bandSpan();
    VyRegion dirty(cellRect(m_focusColumn, m_focusRow));
    m_focusColumn = column;
    m_focusRow = row;
    dirty.unite(cellRect(column, row));
    if (m_keyPainting) {
        dirty.unite(spanRect(before));
        dirty.unite(spanRect(bandSpan()));
    }
    update(dirty);
    return true;
}

bool ScheduleBoard::keyLeftRight(int key) {
    return moveFocus(key == VyKeyEvent::KeyLeft ? -1 : 1, 0);
}

bool ScheduleBoard::keyUpDown(int key) {
    return moveFocus(0, key == VyKeyEvent::KeyUp ? -1 : 1);
}

bool ScheduleBoard::keyActivate() {
    if (m_schedule == nullptr)
        return false;
    if (!m_keyPainting) {
        m_keyPainting = true;
        m_anchorColumn = m_focusColumn;
        m_anchorRow = m_focusRow;
        m_paintSet = paintValueFor(m_focusColumn, m_focusRow);
        update(cellRect(m_focusColumn, m_focusRow));
        return true;
    }
    m_keyPainting = false;
    applySpan(bandSpan(), m_paintSet);
    return true;
}

void ScheduleBoard::keyPressEvent(VyKeyEvent* e) {
    if (e->key() == VyKeyEvent::KeyEscape && m_keyPainting) {
        const CellSpan band = bandSpan();
        m_keyPainting = false;
        update(spanRect(band));
        e->accept();
        return;
    }
    CWidget::keyPressEvent(e);
}

void ScheduleBoard::toggleDay(int row) {
    if (m_schedule == nullptr || row < 0 || row >= kRows)
        return;
    bool all = true;
    for (int column = 0; column < kColumns; ++column)
        all = all && !paintValueFor(column, row);
    applySpan(CellSpan{0, kColumns - 1, row, row}, !all);
}

void ScheduleBoard::toggleColumn(int column) {
    if (m_schedule == nullptr || column < 0 || column >= kColumns)
        return;
    bool all = true;
    for (int row = 0; row < kRows; ++row)
        all = all && !paintValueFor(column, row);
    applySpan(CellSpan{column, column, 0, kRows - 1}, !all);
}
