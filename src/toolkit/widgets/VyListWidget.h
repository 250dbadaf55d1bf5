#pragma once
// A scrolling list of rows, each a text with an optional icon and an optional check box, with
// single or multiple selection. The keys: Up and Down move the current row (in single
// selection the selection follows it), Left and Right move it by a page, OK toggles the check
// box of a checkable row or, in multiple selection, the row's selection, and emits
// `activated`. A press chooses a row (a press on its check box toggles it), a double click
// activates it, the wheel scrolls. Only the rows in view are drawn.
#include <vector>

#include "runtime/VyBitmap.h"
#include "runtime/VyString.h"
#include "runtime/VyStringList.h"
#include "toolkit/core/VyWidget.h"

class VyScrollBar;

class VyListWidget : public VyWidget {
    VY_OBJECT(VyListWidget, VyWidget)
public:
    enum SelectionMode { NoSelection, SingleSelection, MultiSelection };
    static constexpr int kWheelRows = 3; // rows scrolled by one wheel notch

    explicit VyListWidget(VyWidget* parent = nullptr);
    ~VyListWidget() override;

    VySignal currentRowChanged;
    VySignal itemSelectionChanged;
    VySignal itemCheckChanged; // a check box changed; lastChangedRow() tells which
    VySignal activated;        // OK or a double click on the current row

    void addItem(const VyString& text, const VyBitmap& icon = VyBitmap());
    void addItems(const VyStringList& texts);
    // Out-of-range positions append; removing an unknown row does nothing.
    void insertItem(int row, const VyString& text, const VyBitmap& icon = VyBitmap());
    void removeItem(int row);
    void clear();
    int count() const { return static_cast<int>(m_items.size()); }
    VyString itemText(int row) const;
    void setItemText(int row, const VyString& text);
    void setItemIcon(int row, const VyBitmap& icon);
    void setItemCheckable(int row, bool checkable);
    bool isItemCheckable(int row) const;
    void setItemChecked(int row, bool checked);
    bool isItemChecked(int row) const;
    // Free for the owner (a channel number, a record id).
    void setItemData(int row, long long data);
    long long itemData(int row) const;

    void setSelectionMode(SelectionMode mode);
    SelectionMode selectionMode() const { return m_mode; }
    // -1 for none; a row out of range is refused (logged) and the current row stays.
    bool setCurrentRow(int row);
    int currentRow() const { return m_current; }
    void setSelected(int row, bool selected);
    bool isSelected(int row) const;
    std::vector<int> selectedRows() const;
    void clearSelection();
    int lastChangedRow() const { return m_lastChanged; }

    // The first row in view; scrolling keeps it within the range that fills the view.
    int topRow() const { return m_top; }
    void scrollToRow(int row);
    int rowHeight() const;
    int visibleRowCount() const;
    // The row under a point in the list's coordinates, -1 for none.
    int rowAt(VyPoint pos) const;
    VyRect rowRect(int row) const;

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

private:
    struct Item {
        VyString text;
        VyBitmap icon;
        long long data = 0;
        bool checkable = false;
        bool checked = false;
        bool selected = false;
    };
    bool validRow(int row) const { return row >= 0 && row < count(); }
    VyRect viewRect() const;
    void moveCurrent(int row);
    void toggleCheck(int row);
    void setTop(int row);
    void syncScrollBar();
    void scrollBarMoved();

    std::vector<Item> m_items;
    VyScrollBar* m_scrollBar; // child
    SelectionMode m_mode = SingleSelection;
    int m_current = -1;
    int m_top = 0;
    int m_lastChanged = -1;
};
