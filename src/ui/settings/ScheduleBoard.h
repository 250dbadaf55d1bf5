#pragma once
// The week-by-half-hour grid the schedule pages paint on. The board edits a 7 x 48 byte
// array that belongs to the page (it only points at it); the page chooses the type being
// painted and saves the array. A drag with the left button, or the keys alone (OK starts a
// rectangle at the focus cell, arrows grow it, OK applies, Escape drops it), sets or clears
// the current type in every covered cell; whether it sets or clears is decided once, by the
// cell where it started.
//
// The three boards differ only in their colours and type sets (RecScheduleBoard,
// EmailScheduleBoard, FTPScheduleBoard); type bit i is drawn with the i-th block colour.
#include "protocol/ScheduleGrid.h"
#include "runtime/VyColor.h"
#include "runtime/VyRect.h"
#include "runtime/VyRegion.h"
#include "toolkit/widgets/CWidget.h"

#include <cstdint>
#include <initializer_list>
#include <vector>

class ScheduleBoard : public CWidget {
    VY_OBJECT(ScheduleBoard, CWidget)
public:
    static constexpr const char* kStyleFile = "style/scheduleboard.ini";
    static constexpr int kColumns = ScheduleGrid::kHalfHours;
    static constexpr int kRows = ScheduleGrid::kDays;

    // Mode 3: each byte is 0 (off) or 1 (on), drawn whole in the first block colour.
    static constexpr uint32_t kModePlain = 3;
    // Mode 2: only the current type is shown, filling the cells that hold it.
    static constexpr uint32_t kModeCurrentType = 2;
    // Mode 4: one colour per cell, that of the last type present in stripe order.
    static constexpr uint32_t kModeStrongest = 4;
    // Any other value: the multi-type display, one stripe per type.
    static constexpr uint32_t kModeMultiType = 0;

    void setSchedule(uint8_t* schedule) { m_schedule = schedule; }
    uint8_t* schedule() const { return m_schedule; }
    // Store only; the page repaints.
    void setCurrentType(uint8_t bitIndex) { m_currentType = bitIndex; }
    uint8_t currentType() const { return m_currentType; }
    void setMode(uint32_t mode) { m_mode = mode; }
    uint32_t mode() const { return m_mode; }
    void setHideNormal(bool hide) { m_hideNormal = hide; }
    bool hideNormal() const { return m_hideNormal; }

    float cellWidth() const { return m_cellWidth; }
    float cellHeight() const { return m_cellHeight; }
    int focusColumn() const { return m_focusColumn; }
    int focusRow() const { return m_focusRow; }
    // A cell's rectangle with the grid lines around it, in board pixels.
    VyRect cellRect(int column, int row) const;
    // The block colours in the order read from the style file.
    const std::vector<vyargb>& blockColours() const { return m_blocks; }

    // Focus moves; false (and nothing done) when the move would leave the grid.
    bool moveFocus(int dColumn, int dRow);
    // Sets a whole day, or clears it when every cell of it already holds the current type.
    void toggleDay(int row);
    // The same for one half-hour column across the week.
    void toggleColumn(int column);
    bool isKeyPainting() const { return m_keyPainting; }

    bool acceptsKeyFocus() const override { return true; }
    bool keyLeftRight(int key) override;
    bool keyUpDown(int key) override;
    bool keyActivate() override;

    // Emitted whenever cells of the schedule were changed by the user.
    VySignal scheduleEdited;

protected:
    // `blockKeys` are read in order after the five common keys.
    ScheduleBoard(std::initializer_list<const char*> blockKeys, VyWidget* parent);
    // Whether type bit 0 is the normal (continuous) type, whose stripe hide-normal leaves out.
    virtual bool bit0IsNormal() const { return true; }

    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;

private:
    struct CellSpan {
        int firstColumn, lastColumn, firstRow, lastRow; // inclusive, clamped to the grid
        bool isEmpty() const { return lastColumn < firstColumn || lastRow < firstRow; }
    };
    int columnAt(int x) const;
    int rowAt(int y) const;
    bool paintValueFor(int column, int row) const;
    void applySpan(const CellSpan& span, bool set);
    CellSpan bandSpan() const;
    VyRect spanRect(const CellSpan& span) const;
    void repaintBandChange(const CellSpan& before);
    void paintCell(VyCanvas* c, int column, int row) const;
    void paintGrid(VyCanvas* c) const;

    uint8_t* m_schedule = nullptr; // the page's array, never owned
    uint8_t m_currentType = 0;
    uint32_t m_mode = kModeMultiType;
    bool m_hideNormal = false;
    float m_cellWidth = 0; // pixels
    float m_cellHeight = 0;
    int m_focusColumn = 0;
    int m_focusRow = 0;

    // A rectangle being painted, by the mouse or by keys.
    bool m_dragging = false;
    bool m_keyPainting = false;
    VyPoint m_pressPoint;   // mouse: board pixels
    VyPoint m_currentPoint; //
    int m_anchorColumn = 0; // cell where the rectangle started
    int m_anchorRow = 0;
    bool m_paintSet = false; // set (true) or clear, chosen where the rectangle started

    vyargb m_border = 0, m_cellFocusBorder = 0, m_background = 0, m_mainLine = 0, m_subLine = 0;
    std::vector<vyargb> m_blocks;
};
