#pragma once
// A scrolling grid of face thumbnails, each with two lines of text under it (a time and a
// channel, or a name and a note). Cells come from a source asked only for the cells in
// view, so a grid of thousands of search hits fetches and paints one screenful.
//
// Keys: arrows move the current cell (the grid follows it), Left/Right on the first or
// last column step by a page, OK activates; the wheel scrolls by rows; a click makes the
// cell current and activates it.
#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

#include <functional>

class VyCanvas;

class FaceThumbnailGrid : public VyWidget {
    VY_OBJECT(FaceThumbnailGrid, VyWidget)
public:
    struct Cell {
        VyBitmap picture; // null: drawn as an empty frame
        VyString line1;
        VyString line2;
        VyString line3; // shown with three text lines only
    };
    using Source = std::function<Cell(int index)>;

    static constexpr int kCellDesignWidth = 150; // pixels at 1920x1080, text included
    static constexpr int kCellDesignHeight = 210;
    static constexpr int kGapDesign = 10;

    explicit FaceThumbnailGrid(VyWidget* parent = nullptr);
    ~FaceThumbnailGrid() override;

    void setSource(Source source);
    // Text lines under each picture, 1 to 3 (2 unless set).
    void setTextLines(int lines);
    // Cells in all; the current cell and the scroll position are kept inside it.
    void setCount(int count);
    int count() const { return m_count; }
    int columns() const;
    int visibleRows() const;
    int firstRow() const { return m_firstRow; }
    void setFirstRow(int row);
    // One screenful forward or back.
    void pageDown();
    void pageUp();
    int currentIndex() const { return m_current; }
    void setCurrentIndex(int index);
    // The cell under a point of the widget, -1 for none.
    int indexAt(VyPoint pos) const;
    VyRect cellRect(int index) const;

    // The cell activated last (OK or a click).
    int activatedIndex() const { return m_activated; }
    VySignal activated;
    VySignal currentChanged;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;

private:
    int rowCount() const;
    int maxFirstRow() const;
    void activate(int index);
    void paintCell(VyCanvas* c, int index);

    Source m_source;
    int m_count = 0;
    int m_firstRow = 0;
    int m_current = -1;
    int m_activated = -1;
    int m_textLines = 2;
    vyargb m_background = 0xFF1E2024;
    vyargb m_currentColour = 0xFF0096DC;
    vyargb m_foreground = 0xFFE6E8EB;
    vyargb m_secondary = 0xFFA0A6AE;
    vyargb m_missing = 0xFF464A52;
};
