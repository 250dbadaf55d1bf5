#include "toolkit/core/VyLayout.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyWidget.h"
#include "toolkit/events/VyEvent.h"

#include <algorithm>

VyLayout::VyLayout(VyWidget* parent)
    : VyObject(nullptr) {
    if (parent)
        parent->setLayout(this);
}

VyLayout::~VyLayout() {
    if (m_widget) {
        m_widget->removeEventFilter(this);
        if (m_widget->layout() == this)
            m_widget->clearLayout();
    }
}

void VyLayout::setContentsMargins(int left, int top, int right, int bottom) {
    m_margins[0] = std::max(0, left);
    m_margins[1] = std::max(0, top);
    m_margins[2] = std::max(0, right);
    m_margins[3] = std::max(0, bottom);
    requestLayout();
}

VyWidget* VyLayout::parentWidget() const {
    if (m_widget)
        return m_widget;
    for (VyObject* p = parent(); p; p = p->parent()) {
        if (p->isWidgetType())
            return static_cast<VyWidget*>(p);
    }
    return nullptr;
}

void VyLayout::attachTo(VyWidget* widget) {
    m_widget = widget;
    widget->installEventFilter(this);
    adoptAll();
}

void VyLayout::adoptWidget(VyWidget* widget) {
    VyWidget* owner = parentWidget();
    if (owner && widget && widget->parent() != owner && widget != owner)
        widget->setParent(owner);
}

VyRect VyLayout::contentsRect(const VyRect& rect) const {
    return VyRect::fromEdges(rect.left + m_margins[0], rect.top + m_margins[1],
                             rect.right - m_margins[2], rect.bottom - m_margins[3]);
}

void VyLayout::requestLayout() {
    if (VyWidget* w = parentWidget())
        VyApplication::postEvent(w, std::make_unique<VyEvent>(VyEvent::LayoutRequest));
}

void VyLayout::activate() {
    if (!m_widget)
        return;
    if (m_widget->isWindow() && m_widget->width() == 0 && m_widget->height() == 0) {
        // A window that was never sized takes the size its contents ask for.
        VySize hint = sizeHint();
        m_widget->resize(hint.width, hint.height);
    }
    setGeometry(m_widget->rect());
}

bool VyLayout::eventFilter(VyObject* watched, VyEvent* e) {
    if (watched != m_widget)
        return false;
    if (e->type() == VyEvent::Resize) {
        setGeometry(m_widget->rect());
    } else if (e->type() == VyEvent::LayoutRequest) {
        activate();
        // A changed preference travels up to the layout of the parent widget.
        VySize hint = sizeHint();
        if (hint != m_lastHint) {
            m_lastHint = hint;
            m_widget->updateGeometry();
        }
    }
    return false;
}

VySize VyLayout::widgetMinimum(const VyWidget* w) {
    VySize m = w->minimumSize();
    VySize hint = w->minimumSizeHint();
    if (hint.width > m.width && m.width == 0)
        m.width = hint.width;
    if (hint.height > m.height && m.height == 0)
        m.height = hint.height;
    return VySize(std::min(m.width, w->maximumSize().width),
                  std::min(m.height, w->maximumSize().height));
}

VySize VyLayout::widgetMaximum(const VyWidget* w) {
    return w->maximumSize();
}

VySize VyLayout::widgetHint(const VyWidget* w) {
    VySize hint = w->sizeHint();
    VySize lo = widgetMinimum(w);
    VySize hi = widgetMaximum(w);
    if (hint.width < 0)
        hint.width = lo.width;
    if (hint.height < 0)
        hint.height = lo.height;
    return VySize(std::clamp(hint.width, lo.width, hi.width),
                  std::clamp(hint.height, lo.height, hi.height));
}

void VyLayout::adoptItem(VyWidget* widget, VyLayout* layout) {
    if (widget)
        adoptWidget(widget);
    else if (layout)
        layout->adoptAll();
}

VySize VyLayout::itemMinimumOf(const VyWidget* widget, const VyLayout* layout) {
    return widget ? widgetMinimum(widget) : layout->minimumSize();
}

VySize VyLayout::itemHintOf(const VyWidget* widget, const VyLayout* layout) {
    return widget ? widgetHint(widget) : layout->sizeHint();
}

VySize VyLayout::itemMaximumOf(const VyWidget* widget, const VyLayout* layout) {
    return widget ? widgetMaximum(widget) : layout->maximumSize();
}

std::vector<int> VyLayout::distribute(const std::vector<VyLayoutSlot>& slots, int available) {
    const size_t n = slots.size();
    std::vector<int> sizes(n, 0);
    long long sumHint = 0;
    long long sumMin = 0;
    for (size_t i = 0; i < n; ++i) {
        sizes[i] = slots[i].hint;
        sumHint += slots[i].hint;
        sumMin += slots[i].minimum;
    }
    if (available < sumHint) {
        // Shrink towards the minimums in proportion to what each slot can give.
        long long room = sumHint - sumMin;
        long long shortage = std::min<long long>(sumHint - available, room);
        if (room <= 0)
            return sizes;
        long long given = 0;
        for (size_t i = 0; i < n; ++i) {
            long long can = slots[i].hint - slots[i].minimum;
            long long take = shortage * can / room;
            sizes[i] -= static_cast<int>(take);
            given += take;
        }
        // Rounding leftovers, one pixel at a time from the last slots.
        for (size_t i = n; i > 0 && given < shortage;) {
            size_t k = i - 1;
            if (sizes[k] > slots[k].minimum) {
                --sizes[k];
                ++given;
            } else {
                --i;
            }
        }
        return sizes;
    }
    long long surplus = available - sumHint;
    bool anyStretch = false;
    for (const VyLayoutSlot& s : slots)
        anyStretch = anyStretch || s.stretch > 0;
    // Hand out the surplus in rounds: slots that reach their maximum drop out and what they
    // could not take goes round again.
    std::vector<bool> open(n);
    for (size_t i = 0; i < n; ++i)
        open[i] = (anyStretch ? slots[i].stretch > 0 : true) && sizes[i] < slots[i].maximum;
    while (surplus > 0) {
        long long weight = 0;
        for (size_t i = 0; i < n; ++i)
            if (open[i])
                weight += anyStretch ? slots[i].stretch : 1;
        if (weight == 0)
            break;
        long long handed = 0;
        for (size_t i = 0; i < n; ++i) {
            if (!open[i])
                continue;
            long long share = surplus * (anyStretch ? slots[i].stretch : 1) / weight;
            long long room = static_cast<long long>(slots[i].maximum) - sizes[i];
            long long give = std::min(share, room);
            sizes[i] += static_cast<int>(give);
            handed += give;
            if (sizes[i] >= slots[i].maximum)
                open[i] = false;
        }
        if (handed == 0) {
            // Less surplus than open slots: one pixel each from the first ones.
            for (size_t i = 0; i < n && surplus - handed > 0; ++i) {
                if (open[i] && sizes[i] < slots[i].maximum) {
                    ++sizes[i];
                    ++handed;
                }
            }
            if (handed == 0)
                break;
        }
        surplus -= handed;
    }
    return sizes;
}
