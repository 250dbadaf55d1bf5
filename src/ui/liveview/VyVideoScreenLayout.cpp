#include "ui/liveview/VyVideoScreenLayout.h"

VyVideoScreenLayout::VyVideoScreenLayout(uint8_t rows, uint8_t columns, VyObject* parent)
    : VyObject(parent)
    , m_rows(rows)
    , m_columns(columns)
    , m_spans(size_t(rows) * columns, 1)
    , m_cellCount(int16_t(int(rows) * int(columns))) {}

int VyVideoScreenLayout::cellSpan(int row, int column) const {
    if (row < 0 || column < 0 || row >= m_rows || column >= m_columns)
        return 0;
    return m_spans[size_t(row) * m_columns + size_t(column)];
}

void VyVideoScreenLayout::mergeCells(int row, int column, int size) {
    if (row < 0 || column < 0 || row >= m_rows || column >= m_columns)
        return;
    const int current = cellSpan(row, column);
    if (current == 0 || size <= current)
        return;
    if (row + size > m_rows || column + size > m_columns)
        return;
    // Worked on a copy: a ring that runs into another big cell abandons the whole merge.
    std::vector<uint8_t> spans = m_spans;
    int count = m_cellCount;
    auto at = [&](int r, int c) -> uint8_t& { return spans[size_t(r) * m_columns + size_t(c)]; };
    for (int s = current; s < size; ++s) {
        for (int k = 0; k < s; ++k) {
            uint8_t& right = at(row + k, column + s);
            uint8_t& below = at(row + s, column + k);
            if (right != 1 || below != 1)
                return;
            right = 0;
            below = 0;
            count -= 2;
        }
        uint8_t& corner = at(row + s, column + s);
        if (corner != 1)
            return;
        corner = 0;
        count -= 1;
    }
    at(row, column) = uint8_t(size);
    m_spans.swap(spans);
    m_cellCount = int16_t(count);
}
