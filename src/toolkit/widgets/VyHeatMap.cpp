#include "toolkit/widgets/VyHeatMap.h"

#include <algorithm>

#include "runtime/VyLog.h"
#include "toolkit/graphics/VyPixelOps.h"
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
    m_composed.clear();
    update();
    return true;
}

void VyHeatMap::setPicture(const VyBitmap& picture) {
    m_picture = picture;
    m_composed.clear();
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

void VyHeatMap::resizeEvent(VyResizeEvent*) {
    m_composed.clear();
}

void VyHeatMap::compose() {
    const int w = width(), h = height();
    m_composed.assign(size_t(w) * size_t(h), 0);
    m_composedSize = VySize(w, h);
    // Each cell's colour once, not once per pixel.
    std::vector<vyargb> tint(m_values.size());
    for (int r = 0; r < m_rows; ++r)
        for (int c = 0; c < m_columns; ++c)
            tint[size_t(r) * size_t(m_columns) + size_t(c)] = cellColour(c, r);
    // The cell of each column and row of pixels, by the same edges as cellRect.
    std::vector<int> columnOf(size_t(w), 0), rowOf(size_t(h), 0);
    for (int c = 0; c < m_columns; ++c) {
        const VyRect cell = cellRect(c, 0);
        for (int x = std::max(0, cell.left); x <= cell.right && x < w; ++x)
            columnOf[size_t(x)] = c;
    }
    for (int r = 0; r < m_rows; ++r) {
        const VyRect cell = cellRect(0, r);
        for (int y = std::max(0, cell.top); y <= cell.bottom && y < h; ++y)
            rowOf[size_t(y)] = r;
    }
    const int pw = m_picture.width(), ph = m_picture.height();
    const uint8_t* src = m_picture.isNull() ? nullptr : m_picture.constBits();
    uint16_t* out = m_composed.data();
    for (int y = 0; y < h; ++y) {
        const uint8_t* srcRow = src ? src + size_t(int64_t(y) * ph / h) * size_t(pw) * 4 : nullptr;
        const int row = rowOf[size_t(y)];
        for (int x = 0; x < w; ++x, ++out) {
            int red = int(kNoPicture >> 16 & 0xFF), green = int(kNoPicture >> 8 & 0xFF),
                blue = int(kNoPicture & 0xFF);
            if (srcRow) {
                const uint8_t* p = srcRow + size_t(int64_t(x) * pw / w) * 4;
                red = p[0];
                green = p[1];
                blue = p[2];
            }
            if (m_columns > 0 && m_rows > 0) {
                const vyargb t =
                    tint[size_t(row) * size_t(m_columns) + size_t(columnOf[size_t(x)])];
                const int a = int(t >> 24);
                red += ((int(t >> 16 & 0xFF) - red) * a) / 255;
                green += ((int(t >> 8 & 0xFF) - green) * a) / 255;
                blue += ((int(t & 0xFF) - blue) * a) / 255;
            }
            *out = VyPixelOps::opaque(0xFF000000u | vyargb(red) << 16 | vyargb(green) << 8 |
                                      vyargb(blue));
        }
    }
}

void VyHeatMap::paintEvent(VyPaintEvent*) {
    if (width() <= 0 || height() <= 0)
        return;
    if (m_composed.empty() || m_composedSize != size())
        compose();
    canvas()->drawPixels(0, 0, m_composed.data(), width(), height());
}
