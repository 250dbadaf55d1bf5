#pragma once
// The motion area over the picture: a grid of cells (MotionBlock::kColumns x kRows) where a
// drag with the left button sets or clears every cell its rectangle covers, decided by the
// cell where it started, as on the schedule boards. The grid edits the page's area bits
// (MotionBlock::area) and never owns them. Watched cells are tinted, the rest left clear so
// that the picture underneath shows.
#include "runtime/VyPoint.h"
#include "toolkit/widgets/CWidget.h"

#include <cstdint>

class MotionAreaGrid : public CWidget {
    VY_OBJECT(MotionAreaGrid, CWidget)
public:
    explicit MotionAreaGrid(VyWidget* parent = nullptr);
    // MotionBlock::kAreaBytes bytes, or null (input ignored).
    void setArea(uint8_t* area) {
        m_area = area;
        update();
    }
    bool cell(int column, int row) const;
    VySignal areaEdited;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;

private:
    int columnAt(int x) const;
    int rowAt(int y) const;
    void setCell(int column, int row, bool on);

    uint8_t* m_area = nullptr; // the page's bits, never owned
    bool m_dragging = false;
    bool m_set = false;
    VyPoint m_press, m_current;
};
