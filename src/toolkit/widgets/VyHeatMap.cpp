#include "toolkit/widgets/VyHeatMap.h"

#include <algorithm>

#include "runtime/VyLog.h"
#include "toolkit/style/VyStyle.h"

namespace {

constexpr vyargb kNoPicture = 0xFF101214;

} // namespace

VyHeatMap::VyHeatMap(VyWidget* parent)
    : VyWidget(parent) {}

bool VyHeatMap::setGrid(int columns, int rows, const std::vector<uint32_t>& values) {
    if (columns < 0 || rows < 0 || columns > kMaxColumns || rows > kMaxRows ||
        values.size() != size_t(columns) * size_t(rows)) {
        vyFrameworkLog("VyHeatMap: grid of %d x %d with %zu values refused !!!\n", columns, rows,
                       values.size());
        return false;
    }
    m_columns = columns;
    m_rows = rows;
    m_values = values;
    m_maximum = values.empty() ? 0 : *std::max_element(values.begin(), values.end());
    update();
    return true;
}

void VyHeatMap::setPicture(const VyBitmap& picture) {
    m_picture = picture;
    update();
}

uint32_t VyHeatMap::value(int column, int row) const {
    if (column < 0 || row < 0 || column >= m_columns || row >= m_rows)
        return 0;
    return m_values[size_t(row) * size_t(m_columns) + size_t(column)];
}

VyRect VyHeatMap::cellRect(int column, int row) const {
    if (column < 0 || row < 0 || column >= m_columns || row >= m_rows)
        return VyRect();
    const int64_t w = width(), h = height();
    return VyRect::fromEdges(int(w * column / m_columns), int(h * row / m_rows),
                             int(w * (column + 1) / m_columns) - 1,
                             int(h * (row + 1) / m_rows) - 1);
}

vyargb VyHeatMap::cellColour(int column, int row) const {
    const uint32_t v = value(column, row);
    if (v == 0 || m_maximum == 0)
        return 0;
    return VyStyle::heatColour(double(v) / double(m_maximum), kTintAlpha);
}

void VyHeatMap::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (m_picture.isNull())
        c->fillRect(rect(), kNoPicture);
    else
        c->drawImage(rect(), m_picture);
    for (int r = 0; r < m_rows; ++r)
        for (int col = 0; col < m_columns; ++col) {
            const vyargb colour = cellColour(col, r);
            if (colour != 0)
                c->fillRect(cellRect(col, r), colour);
        }
}
