#pragma once
// One split layout: a rows x columns grid in which a square cell may span several grid
// positions. The span grid holds, at each position, the edge length of the cell anchored
// there (1 an ordinary cell, 0 a position covered by a larger cell above or to the left).
#include "toolkit/core/VyObject.h"

#include <cstdint>
#include <vector>

class VyVideoScreenLayout : public VyObject {
    VY_OBJECT(VyVideoScreenLayout, VyObject)
public:
    VyVideoScreenLayout(uint8_t rows, uint8_t columns, VyObject* parent = nullptr);

    // Grows the cell anchored at (row, column) to size x size, ring by ring. A merge that
    // does not fit, starts on a covered position or would absorb part of another big cell
    // leaves the grid as it was.
    void mergeCells(int row, int column, int size);

    struct Dimensions {
        int rows;
        int columns;
    };
    Dimensions dimensions() const { return {m_rows, m_columns}; }
    int rows() const { return m_rows; }
    int columns() const { return m_columns; }
    // 0 outside the grid.
    int cellSpan(int row, int column) const;
    int cellCount() const { return m_cellCount; }
    bool isMerged() const { return m_cellCount != int(m_rows) * int(m_columns); }

private:
    uint8_t m_rows;
    uint8_t m_columns;
    std::vector<uint8_t> m_spans; // row-major
    int16_t m_cellCount;
};
