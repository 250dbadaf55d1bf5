#pragma once
// The drop-down list of a combo box: a popup window over everything that takes the keys and
// the mouse while it is open. Up and Down move the highlighted row, OK chooses it, Escape
// cancels; the pointer highlights the row under it, a click chooses it, and a press outside
// the popup cancels it; the wheel scrolls. It emits `chosen` or `cancelled` once and then
// hides itself; the combo box that opened it reads chosenRow().
#include "runtime/VyStringList.h"
#include "toolkit/core/VyWidget.h"

class VyScrollBar;

class VyInnerListWidget : public VyWidget {
    VY_OBJECT(VyInnerListWidget, VyWidget)
public:
    static constexpr int kMaxVisibleRows = 10;

    explicit VyInnerListWidget(VyWidget* parent = nullptr);
    ~VyInnerListWidget() override;

    VySignal chosen;
    VySignal cancelled;

    void setItems(const VyStringList& items);
    const VyStringList& items() const { return m_items; }
    // The highlighted row; clamped into the items (-1 only when there are none).
    void setCurrentRow(int row);
    int currentRow() const { return m_current; }
    int chosenRow() const { return m_chosen; }
    int topRow() const { return m_top; }
    int visibleRowCount() const;
    int rowHeight() const;
    // Places the popup under the rectangle (screen coordinates) of the field that opens it,
    // at least as wide as the field, above it when the screen has no room below.
    void placeUnder(const VyRect& field, const VyRect& screen);
    // Shows the popup with the focus on it; any earlier outcome is forgotten.
    void open();
    bool isOpen() const { return isVisible(); }
    void choose(int row);
    void cancel();

protected:
    void paintEvent(VyPaintEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;
    void closeEvent(VyCloseEvent* e) override;

private:
    int rowAt(VyPoint pos) const;
    VyRect rowRect(int row) const;
    VyRect viewRect() const;
    void setTop(int row);
    void syncScrollBar();
    void scrollBarMoved();
    void finish(bool accepted);

    VyStringList m_items;
    VyScrollBar* m_scrollBar; // child
    int m_current = -1;
    int m_chosen = -1;
    int m_top = 0;
    bool m_pressedInside = false;
};
