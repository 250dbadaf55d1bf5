#pragma once
// Places items in the cells of a grid; an item may span several rows and columns. Columns
// and rows share the surplus by their stretch factors.
#include "toolkit/core/VyLayout.h"

class VyGridLayout : public VyLayout {
    VY_OBJECT(VyGridLayout, VyLayout)
public:
    explicit VyGridLayout(VyWidget* parent = nullptr);

    void addWidget(VyWidget* widget, int row, int column, int rowSpan = 1, int columnSpan = 1);
    // Takes ownership of the nested layout.
    void addLayout(VyLayout* layout, int row, int column, int rowSpan = 1, int columnSpan = 1);
    void setRowStretch(int row, int stretch);
    void setColumnStretch(int column, int stretch);
    // Fixed minimum heights and widths of rows and columns, in pixels.
    void setRowMinimumHeight(int row, int pixels);
    void setColumnMinimumWidth(int column, int pixels);
    int rowCount() const { return static_cast<int>(m_rows.size()); }
    int columnCount() const { return static_cast<int>(m_columns.size()); }

    VySize sizeHint() const override;
    VySize minimumSize() const override;
    VySize maximumSize() const override;
    void setGeometry(const VyRect& rect) override;
    void adoptAll() override;

private:
    struct Item {
        VyWidget* widget = nullptr;
        VyLayout* layout = nullptr;
        int row = 0;
        int column = 0;
        int rowSpan = 1;
        int columnSpan = 1;
    };
    struct Line {
        int stretch = 0;
        int minimum = 0;
    };

    void grow(int rows, int columns);
    bool addItem(const Item& item);
    // The slots of the rows (vertical) or the columns.
    std::vector<VyLayoutSlot> slots(bool vertical) const;
    static int total(const std::vector<VyLayoutSlot>& slots, int VyLayoutSlot::*field, int gap);

    // A sanity bound on grid indices: a settings page has a few dozen rows at most.
    static constexpr int kMaxLines = 1024;

    std::vector<Item> m_items;
    std::vector<Line> m_rows;
    std::vector<Line> m_columns;
};
