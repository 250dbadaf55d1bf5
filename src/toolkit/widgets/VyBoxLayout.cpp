#include "toolkit/widgets/VyBoxLayout.h"

#include "toolkit/core/VyWidget.h"

#include <algorithm>

namespace {

int saturatingAdd(int a, int b) {
    long long sum = static_cast<long long>(a) + b;
    return static_cast<int>(std::min<long long>(sum, VyWidget::kMaxSize));
}

} // namespace

VyBoxLayout::VyBoxLayout(Direction direction, VyWidget* parent)
    : VyLayout(parent)
    , m_direction(direction) {}

void VyBoxLayout::addWidget(VyWidget* widget, int stretch) {
    if (!widget)
        return;
    Item item;
    item.widget = widget;
    item.stretch = std::max(0, stretch);
    m_items.push_back(item);
    adoptWidget(widget);
    requestLayout();
}

void VyBoxLayout::addLayout(VyLayout* layout, int stretch) {
    if (!layout || layout == this)
        return;
    Item item;
    item.layout = layout;
    item.stretch = std::max(0, stretch);
    m_items.push_back(item);
    layout->setParent(this);
    adoptAll();
    requestLayout();
}

void VyBoxLayout::addStretch(int stretch) {
    Item item;
    item.stretch = std::max(0, stretch);
    m_items.push_back(item);
    requestLayout();
}

void VyBoxLayout::addSpacing(int size) {
    Item item;
    item.spacing = std::max(0, size);
    m_items.push_back(item);
    requestLayout();
}

void VyBoxLayout::adoptAll() {
    for (const Item& item : m_items)
        adoptItem(item.widget, item.layout);
}

VySize VyBoxLayout::itemMinimum(const Item& item) const {
    if (item.widget || item.layout)
        return itemMinimumOf(item.widget, item.layout);
    if (item.spacing >= 0)
        return horizontal() ? VySize(item.spacing, 0) : VySize(0, item.spacing);
    return VySize(0, 0);
}

VySize VyBoxLayout::itemHint(const Item& item) const {
    if (item.widget || item.layout)
        return itemHintOf(item.widget, item.layout);
    return itemMinimum(item);
}

VySize VyBoxLayout::itemMaximum(const Item& item) const {
    if (item.widget || item.layout)
        return itemMaximumOf(item.widget, item.layout);
    if (item.spacing >= 0)
        return horizontal() ? VySize(item.spacing, VyWidget::kMaxSize)
                            : VySize(VyWidget::kMaxSize, item.spacing);
    return VySize(VyWidget::kMaxSize, VyWidget::kMaxSize);
}

VySize VyBoxLayout::withMarginsAndSpacing(int main, int cross) const {
    int gaps = m_items.empty() ? 0 : spacing() * static_cast<int>(m_items.size() - 1);
    main = saturatingAdd(main, gaps);
    int w = horizontal() ? main : cross;
    int h = horizontal() ? cross : main;
    return VySize(saturatingAdd(w, marginLeft() + marginRight()),
                  saturatingAdd(h, marginTop() + marginBottom()));
}

VySize VyBoxLayout::sizeHint() const {
    int main = 0;
    int cross = 0;
    for (const Item& item : m_items) {
        VySize s = itemHint(item);
        main = saturatingAdd(main, mainOf(s));
        cross = std::max(cross, crossOf(s));
    }
    return withMarginsAndSpacing(main, cross);
}

VySize VyBoxLayout::minimumSize() const {
    int main = 0;
    int cross = 0;
    for (const Item& item : m_items) {
        VySize s = itemMinimum(item);
        main = saturatingAdd(main, mainOf(s));
        cross = std::max(cross, crossOf(s));
    }
    return withMarginsAndSpacing(main, cross);
}

VySize VyBoxLayout::maximumSize() const {
    int main = 0;
    int cross = m_items.empty() ? VyWidget::kMaxSize : 0;
    for (const Item& item : m_items) {
        VySize s = itemMaximum(item);
        main = saturatingAdd(main, mainOf(s));
        cross = std::max(cross, crossOf(s));
    }
    return withMarginsAndSpacing(main, cross);
}

void VyBoxLayout::setGeometry(const VyRect& rect) {
    storeGeometry(rect);
    VyRect area = contentsRect(rect);
    if (m_items.empty() || area.isEmpty())
        return;
    std::vector<VyLayoutSlot> slots;
    for (const Item& item : m_items) {
        VyLayoutSlot slot;
        slot.minimum = mainOf(itemMinimum(item));
        slot.hint = mainOf(itemHint(item));
        slot.maximum = mainOf(itemMaximum(item));
        slot.stretch = item.stretch;
        slots.push_back(slot);
    }
    int gaps = spacing() * static_cast<int>(m_items.size() - 1);
    int mainLength = horizontal() ? area.width() : area.height();
    int crossLength = horizontal() ? area.height() : area.width();
    std::vector<int> sizes = distribute(slots, mainLength - gaps);
    int pos = horizontal() ? area.left : area.top;
    for (size_t i = 0; i < m_items.size(); ++i) {
        const Item& item = m_items[i];
        int cross = std::clamp(crossLength, crossOf(itemMinimum(item)), crossOf(itemMaximum(item)));
        VyRect r = horizontal() ? VyRect(pos, area.top, sizes[i], cross)
                                : VyRect(area.left, pos, cross, sizes[i]);
        itemSetGeometry(item, r);
        pos += sizes[i] + spacing();
    }
}

void VyBoxLayout::itemSetGeometry(const Item& item, const VyRect& rect) {
    if (item.widget)
        item.widget->setGeometry(rect);
    else if (item.layout)
        item.layout->setGeometry(rect);
}
