#include "ui/playback/MotionSearchPanel.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyPushButton.h"
#include "ui/UiLook.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kPadDesign = 12;
constexpr int kButtonDesign = 38;

} // namespace

MotionSearchPanel::MotionSearchPanel(VyWidget* parent)
    : VyWidget(parent) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    const VyString s = VyString("MoSearchPanel/");
    m_background = UiLook::colourOr(ini, s + "Background", m_background);
    m_line = UiLook::colourOr(ini, s + "Grid/Line", m_line);
    m_selected = UiLook::colourOr(ini, s + "Grid/Selected", m_selected);
    m_border = UiLook::colourOr(ini, s + "Border", m_border);
    m_search = new VyPushButton(this);
    m_search->show();
    connect(m_search, &m_search->clicked, this, VY_SLOT(MotionSearchPanel, onSearchClicked));
    retranslate();
    VyTranslation* tr = VyTranslation::instance();
    connect(tr, &tr->languageChanged, this, VY_SLOT(MotionSearchPanel, retranslate));
    selectAll(true); // the whole picture until the user narrows it
}

void MotionSearchPanel::retranslate() {
    m_search->setText(VyTranslation::tr(TextId::Playback::Search));
}

void MotionSearchPanel::setPicture(const VyBitmap& picture) {
    m_picture = picture;
    update();
}

bool MotionSearchPanel::cell(int column, int row) const {
    return column >= 0 && column < kColumns && row >= 0 && row < kRows &&
           (m_rows[row] >> column & 1u) != 0;
}

void MotionSearchPanel::setCell(int column, int row, bool on) {
    if (column < 0 || column >= kColumns || row < 0 || row >= kRows || cell(column, row) == on)
        return;
    m_rows[row] ^= 1u << column;
    update(cellRect(column, row));
}

void MotionSearchPanel::selectAll(bool on) {
    std::fill(std::begin(m_rows), std::end(m_rows), on ? (1u << kColumns) - 1 : 0u);
    update();
}

std::vector<uint8_t> MotionSearchPanel::areaFlags() const {
    std::vector<uint8_t> out(size_t(kRows) * 4);
    for (int r = 0; r < kRows; ++r) {
        for (int b = 0; b < 4; ++b)
            out[size_t(r) * 4 + size_t(b)] = uint8_t(m_rows[r] >> (8 * b));
    }
    return out;
}

VyRect MotionSearchPanel::gridRect() const {
    const int pad = UiLook::scaledX(kPadDesign);
    const int button = UiLook::scaledY(kButtonDesign);
    return VyRect(pad, pad, std::max(0, width() - 2 * pad),
                  std::max(0, height() - 3 * pad - button));
}

VyRect MotionSearchPanel::cellRect(int column, int row) const {
    const VyRect g = gridRect();
    const int x0 = g.left + g.width() * column / kColumns;
    const int x1 = g.left + g.width() * (column + 1) / kColumns;
    const int y0 = g.top + g.height() * row / kRows;
    const int y1 = g.top + g.height() * (row + 1) / kRows;
    return VyRect(x0, y0, x1 - x0, y1 - y0);
}

bool MotionSearchPanel::cellAt(VyPoint p, int* column, int* row) const {
    const VyRect g = gridRect();
    if (!g.contains(p) || g.width() <= 0 || g.height() <= 0)
        return false;
    *column = std::min(kColumns - 1, (p.x - g.left) * kColumns / g.width());
    *row = std::min(kRows - 1, (p.y - g.top) * kRows / g.height());
    return true;
}

void MotionSearchPanel::resizeEvent(VyResizeEvent*) {
    const int pad = UiLook::scaledX(kPadDesign);
    const int button = UiLook::scaledY(kButtonDesign);
    m_search->setGeometry(pad, height() - pad - button, std::max(0, width() - 2 * pad), button);
}

void MotionSearchPanel::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    c->drawRect(rect(), m_border);
    const VyRect g = gridRect();
    if (!m_picture.isNull())
        c->drawImage(g, m_picture);
    for (int r = 0; r < kRows; ++r) {
        for (int col = 0; col < kColumns; ++col) {
            if (cell(col, r))
                c->fillRect(cellRect(col, r), m_selected);
        }
    }
    for (int col = 0; col <= kColumns; ++col) {
        const int x = g.left + g.width() * col / kColumns;
        c->drawLine(x, g.top, x, g.bottom, m_line);
    }
    for (int r = 0; r <= kRows; ++r) {
        const int y = g.top + g.height() * r / kRows;
        c->drawLine(g.left, y, g.right, y, m_line);
    }
}

void MotionSearchPanel::mousePressEvent(VyMouseEvent* e) {
    int column = 0, row = 0;
    if (e->button() != VyMouseEvent::LeftButton || !cellAt(e->pos(), &column, &row)) {
        e->ignore();
        return;
    }
    e->accept();
    m_paintOn = !cell(column, row);
    m_dragging = true;
    m_lastColumn = column;
    m_lastRow = row;
    setCell(column, row, m_paintOn);
}

void MotionSearchPanel::mouseMoveEvent(VyMouseEvent* e) {
    int column = 0, row = 0;
    if (!m_dragging) {
        e->ignore();
        return;
    }
    e->accept();
    if (!cellAt(e->pos(), &column, &row))
        return;
    // Every cell on the way from the last one: a quick drag skips cells between two moves.
    const int steps = std::max(std::abs(column - m_lastColumn), std::abs(row - m_lastRow));
    for (int i = 1; i <= steps; ++i)
        setCell(m_lastColumn + (column - m_lastColumn) * i / steps,
                m_lastRow + (row - m_lastRow) * i / steps, m_paintOn);
    m_lastColumn = column;
    m_lastRow = row;
}

void MotionSearchPanel::mouseReleaseEvent(VyMouseEvent* e) {
    e->accept();
    m_dragging = false;
}

void MotionSearchPanel::onSearchClicked() {
    emitSignal(this, &searchRequested);
}
