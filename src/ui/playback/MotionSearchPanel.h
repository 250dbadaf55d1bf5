#pragma once
// Motion search: a grid of areas drawn over the picture of the selected channel; a press
// toggles a cell and a drag paints the pressed cell's new state over the cells it crosses.
// The search asks App for the motion events of the day inside the marked cells.
#include "runtime/VyBitmap.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>
#include <vector>

class VyPushButton;

class MotionSearchPanel : public VyWidget {
    VY_OBJECT(MotionSearchPanel, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/mosearchpanel.ini";
    static constexpr int kRows = 22;
    static constexpr int kColumns = 22;

    explicit MotionSearchPanel(VyWidget* parent = nullptr);

    // The picture the grid lies over (a still of the channel); null: a plain background.
    void setPicture(const VyBitmap& picture);
    bool hasPicture() const { return !m_picture.isNull(); }
    void setChannel(int channel) { m_channel = channel; }
    int channel() const { return m_channel; }
    bool cell(int column, int row) const;
    void setCell(int column, int row, bool on);
    void selectAll(bool on);
    // The marked cells as the motion search sends them: one little-endian u32 per row, bit c
    // for column c.
    std::vector<uint8_t> areaFlags() const;
    // Where the grid is drawn and the rectangle of one cell (widget coordinates).
    VyRect gridRect() const;
    VyRect cellRect(int column, int row) const;
    VyPushButton* searchButton() const { return m_search; }

    VySignal searchRequested;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    void retranslate();
    void onSearchClicked();
    bool cellAt(VyPoint p, int* column, int* row) const;

    uint32_t m_rows[kRows] = {};
    int m_channel = 0;
    VyBitmap m_picture;
    bool m_dragging = false;
    bool m_paintOn = true;
    int m_lastColumn = 0; // the drag's last cell
    int m_lastRow = 0;
    VyPushButton* m_search = nullptr;
    vyargb m_background = 0xFF1C1E22;
    vyargb m_line = 0x3CFFFFFF;
    vyargb m_selected = 0x6E0096DC;
    vyargb m_border = 0xFF3C3F45;
};
