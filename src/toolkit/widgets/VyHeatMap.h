#pragma once
// A grid of activity values drawn as heat colours over a picture of the scene: each cell
// covers its share of the picture, tinted by its value against the largest value of the
// grid (VyStyle::heatColour); cells of value zero leave the picture as it is.
//
// The tinted picture is composed once per grid, picture and size and kept in the screen's
// pixel form (2 bytes a pixel of the widget): a repaint copies it, where converting the
// picture and blending every cell again would cost several full-screen flushes.
#include "runtime/VyBitmap.h"
#include "runtime/VySize.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>
#include <vector>

class VyHeatMap : public VyWidget {
    VY_OBJECT(VyHeatMap, VyWidget)
public:
    // A grid larger than this is refused: it bounds what a reply can make us allocate.
    static constexpr int kMaxColumns = 256;
    static constexpr int kMaxRows = 256;
    // How much of the scene shows through the heat colours (of 255).
    static constexpr int kTintAlpha = 150;

    explicit VyHeatMap(VyWidget* parent = nullptr);

    // `values` row by row, columns × rows of them; false (nothing changes) for a size that
    // does not match or exceeds the limits.
    bool setGrid(int columns, int rows, const std::vector<uint32_t>& values);
    // The scene; a null picture leaves a dark background.
    void setPicture(const VyBitmap& picture);

    int columns() const { return m_columns; }
    int rows() const { return m_rows; }
    uint32_t maximum() const { return m_maximum; }
    uint32_t value(int column, int row) const;
    // The cell's rectangle in the widget; cells share the width so the grid fills it.
    VyRect cellRect(int column, int row) const;
    // The colour a cell is drawn in (alpha 0 for a cell left untinted).
    vyargb cellColour(int column, int row) const;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void compose();

    int m_columns = 0;
    int m_rows = 0;
    std::vector<uint32_t> m_values;
    uint32_t m_maximum = 0;
    VyBitmap m_picture;
    std::vector<uint16_t> m_composed; // empty until the next paint composes it
    VySize m_composedSize;
};
