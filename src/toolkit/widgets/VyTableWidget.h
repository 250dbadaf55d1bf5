#pragma once
// A table of rows and columns with a title row (VyTableWidgetHHeader), optional row numbers
// (VyTableWidgetVHeader), a cell area (VyTableWidgetViewPort) and a vertical scroll bar.
//
// The table keeps a row count, not rows: the cells come from a cell source asked only for the
// rows in view, so a table of 100,000 log entries costs what one page costs. Small tables may
// instead store texts with setCellText (kept per cell that has one). Selected rows are kept
// as a set, and only the cells holding a control (setCellWidget) are remembered.
//
// Keys: Up and Down move the current row; Left and Right move the current column when cells
// are selected one by one, else they page. OK goes to the control of the current cell when it
// has one, else it toggles the row's selection in multiple selection, and emits `activated`.
// The wheel scrolls; a press on a cell makes it current; a double click activates it.
#include <functional>
#include <map>
#include <set>
#include <unordered_map>
#include <vector>

#include "runtime/VyStringList.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/widgets/VyTableCell.h"

class VyCanvas;
class VyScrollBar;
class VyTableWidgetHHeader;
class VyTableWidgetVHeader;
class VyTableWidgetViewPort;

class VyTableWidget : public VyWidget {
    VY_OBJECT(VyTableWidget, VyWidget)
public:
    enum SelectionMode { NoSelection, SingleSelection, MultiSelection };
    enum SelectionBehavior { SelectRows, SelectItems };
    using CellSource = std::function<VyTableCell(int row, int column)>;
    static constexpr int kWheelRows = 3;

    explicit VyTableWidget(VyWidget* parent = nullptr);
    ~VyTableWidget() override;

    VySignal currentCellChanged;
    VySignal itemSelectionChanged;
    VySignal activated;
    // The title row's sort indicator changed (sortColumn(), sortOrder()). A table with a cell
    // source leaves the order to its source; a table of stored texts sorts itself.
    VySignal sortChanged;

    void setColumnCount(int columns);
    int columnCount() const { return m_columns; }
    void setHorizontalHeaderLabels(const VyStringList& labels);
    // 0 hides the column; negative widths count as 0.
    void setColumnWidth(int column, int width);
    int columnWidth(int column) const;
    void setRowCount(int rows);
    int rowCount() const { return m_rows; }

    void setCellSource(CellSource source);
    // Stored texts, for tables without a source; out-of-range cells are refused.
    void setCellText(int row, int column, const VyString& text);
    VyTableCell cell(int row, int column) const;

    void setSelectionMode(SelectionMode mode);
    SelectionMode selectionMode() const { return m_mode; }
    void setSelectionBehavior(SelectionBehavior behavior) { m_behavior = behavior; }
    SelectionBehavior selectionBehavior() const { return m_behavior; }
    // (-1, -1) for none; a cell out of range is refused (logged) and the current cell stays.
    bool setCurrentCell(int row, int column);
    int currentRow() const { return m_currentRow; }
    int currentColumn() const { return m_currentColumn; }
    void setRowSelected(int row, bool selected);
    bool isRowSelected(int row) const { return m_selected.count(row) != 0; }
    std::vector<int> selectedRows() const { return {m_selected.begin(), m_selected.end()}; }
    void clearSelection();

    void setSortingEnabled(bool on);
    int sortColumn() const;
    int sortOrder() const; // VyHeaderView::SortOrder
    void setVerticalHeaderVisible(bool visible);

    // A control shown over a cell while its row is in view; the table takes ownership (a
    // control already there is deleted). Null removes it. The control is made with a parent
    // (viewport(), or the table): a widget made without one is a window and is refused.
    void setCellWidget(int row, int column, VyWidget* widget);
    VyWidget* cellWidget(int row, int column) const;

    int topRow() const { return m_top; }
    void scrollToRow(int row);
    int rowHeight() const;
    int visibleRowCount() const;
    // Cells under a point in the table's coordinates, -1 for none.
    int rowAt(VyPoint pos) const;
    int columnAt(VyPoint pos) const;
    // A cell's rectangle in the viewport's coordinates.
    VyRect cellRect(int row, int column) const;

    VyTableWidgetHHeader* horizontalHeader() const { return m_hHeader; }
    VyTableWidgetVHeader* verticalHeader() const { return m_vHeader; }
    VyTableWidgetViewPort* viewport() const { return m_viewport; }

    VySize sizeHint() const override;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseDoubleClickEvent(VyMouseEvent* e) override;
    void focusInEvent(VyFocusEvent* e) override;
    void focusOutEvent(VyFocusEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void showEvent(VyShowEvent* e) override;

private:
    friend class VyTableWidgetViewPort;
    using CellKey = long long; // row * 2^20 + column: columns stay far below 2^20
    static CellKey keyOf(int row, int column) {
        return (static_cast<long long>(row) << 20) | column;
    }

    void paintCells(VyCanvas* canvas);
    bool validCell(int row, int column) const {
        return row >= 0 && row < m_rows && column >= 0 && column < m_columns;
    }
    void moveCurrent(int row, int column);
    void updateRow(int row);
    void setTop(int row);
    void layoutChildren();
    void placeCellWidgets();
    void headerChanged();
    void sortIndicatorChanged();
    void scrollBarMoved();
    void sortStoredRows();

    VyTableWidgetHHeader* m_hHeader;   // child
    VyTableWidgetVHeader* m_vHeader;   // child, hidden unless asked for
    VyTableWidgetViewPort* m_viewport; // child
    VyScrollBar* m_scrollBar;          // child
    CellSource m_source;
    std::unordered_map<CellKey, VyString> m_texts;
    std::map<CellKey, VyPointer<VyWidget>> m_cellWidgets;
    std::set<int> m_selected;
    SelectionMode m_mode = SingleSelection;
    SelectionBehavior m_behavior = SelectRows;
    int m_rows = 0;
    int m_columns = 0;
    int m_currentRow = -1;
    int m_currentColumn = -1;
    int m_top = 0;
    bool m_vHeaderShown = false;
};
