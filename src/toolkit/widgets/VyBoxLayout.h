#pragma once
// Lines its items up horizontally (left to right) or vertically (top to bottom), each
// stretched across the other direction up to its maximum.
#include "toolkit/core/VyLayout.h"

class VyBoxLayout : public VyLayout {
    VY_OBJECT(VyBoxLayout, VyLayout)
public:
    enum Direction { LeftToRight, TopToBottom };

    explicit VyBoxLayout(Direction direction, VyWidget* parent = nullptr);

    void addWidget(VyWidget* widget, int stretch = 0);
    // Takes ownership of the nested layout.
    void addLayout(VyLayout* layout, int stretch = 0);
    // Empty space that takes a share of the surplus.
    void addStretch(int stretch = 1);
    // A fixed gap, in pixels.
    void addSpacing(int size);
    int count() const { return static_cast<int>(m_items.size()); }
    Direction direction() const { return m_direction; }

    VySize sizeHint() const override;
    VySize minimumSize() const override;
    VySize maximumSize() const override;
    void setGeometry(const VyRect& rect) override;
    void adoptAll() override;

private:
    struct Item {
        VyWidget* widget = nullptr;
        VyLayout* layout = nullptr;
        int spacing = -1; // a fixed gap when >= 0; an empty stretch when -1 without content
        int stretch = 0;
    };

    bool horizontal() const { return m_direction == LeftToRight; }
    int mainOf(VySize s) const { return horizontal() ? s.width : s.height; }
    int crossOf(VySize s) const { return horizontal() ? s.height : s.width; }
    VySize itemMinimum(const Item& item) const;
    VySize itemHint(const Item& item) const;
    VySize itemMaximum(const Item& item) const;
    // Adds the spacing between items and the margins to a total along each axis.
    VySize withMarginsAndSpacing(int main, int cross) const;
    void itemSetGeometry(const Item& item, const VyRect& rect);

    Direction m_direction;
    std::vector<Item> m_items;
};
