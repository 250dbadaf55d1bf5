#pragma once
// The row of column titles above a table, or the column of row numbers beside it: sections
// laid end to end from an offset, each with a size (0 hides it). Sizes are stored only for
// sections given one of their own, so a vertical header of 100,000 uniform rows keeps no
// per-row state. A horizontal header can be resized by dragging a section's right edge and,
// when sorting is on, a click on a section sets the sort indicator (a second click reverses
// it).
#include <vector>

#include "runtime/VyString.h"
#include "runtime/VyStringList.h"
#include "toolkit/core/VyWidget.h"

class VyHeaderView : public VyWidget {
    VY_OBJECT(VyHeaderView, VyWidget)
public:
    enum Orientation { Horizontal, Vertical };
    enum SortOrder { NoSort = 0, Ascending = 1, Descending = 2 };
    static constexpr int kDefaultSectionDesign = 120; // pixels at 1920x1080
    static constexpr int kMinimumSectionDesign = 20;
    static constexpr int kResizeGripDesign = 5; // half-width of the grab zone at an edge

    VyHeaderView(Orientation orientation, VyWidget* parent = nullptr);
    ~VyHeaderView() override;

    VySignal sectionClicked;       // lastClickedSection() tells which
    VySignal sectionResized;       // lastResizedSection() tells which
    VySignal sortIndicatorChanged; // sortIndicatorSection() and sortOrder() tell the new one

    Orientation orientation() const { return m_orientation; }
    void setSectionCount(int count);
    int sectionCount() const { return m_count; }
    void setDefaultSectionSize(int size);
    int defaultSectionSize() const { return m_defaultSize; }
    // Negative sizes count as 0 (a hidden section).
    void setSectionSize(int section, int size);
    // With stretchLastSection the last section fills what the others leave of the header.
    int sectionSize(int section) const;
    int sectionPosition(int section) const; // from the start of section 0, offset not applied
    int length() const;                     // of all sections
    void setStretchLastSection(bool on);
    // The section at a position along the header (widget coordinates), -1 for none.
    int sectionAt(int position) const;

    void setLabels(const VyStringList& labels);
    virtual VyString sectionText(int section) const;

    // Pixels the sections are scrolled by.
    void setOffset(int offset);
    int offset() const { return m_offset; }

    void setResizable(bool on) { m_resizable = on; }
    bool isResizable() const { return m_resizable; }
    void setSortingEnabled(bool on);
    bool isSortingEnabled() const { return m_sorting; }
    void setSortIndicator(int section, SortOrder order);
    int sortIndicatorSection() const { return m_sortSection; }
    SortOrder sortOrder() const { return m_sortOrder; }
    int lastClickedSection() const { return m_lastClicked; }
    int lastResizedSection() const { return m_lastResized; }

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;

private:
    int along(VyPoint p) const { return m_orientation == Horizontal ? p.x : p.y; }
    int extent() const { return m_orientation == Horizontal ? width() : height(); }
    int storedSize(int section) const;
    // The section whose trailing edge lies under the position, -1 for none.
    int edgeAt(int position) const;

    Orientation m_orientation;
    int m_count = 0;
    int m_defaultSize;
    std::vector<int> m_sizes; // empty while every section has the default size
    VyStringList m_labels;
    int m_offset = 0;
    bool m_stretchLast = false;
    bool m_resizable = true;
    bool m_sorting = false;
    int m_sortSection = -1;
    SortOrder m_sortOrder = NoSort;
    int m_lastClicked = -1;
    int m_lastResized = -1;
    int m_pressedSection = -1;
    int m_resizing = -1; // the section being resized by a drag
};
