#pragma once
// A rectangle with inclusive edges, as widget geometry keeps it: width = right - left + 1.
// An empty rectangle has right < left or bottom < top.
#include <algorithm>

#include "runtime/VyPoint.h"
#include "runtime/VySize.h"

struct VyRect {
    int left = 0;
    int top = 0;
    int right = -1;
    int bottom = -1;

    constexpr VyRect() = default;
    constexpr VyRect(int x, int y, int w, int h)
        : left(x)
        , top(y)
        , right(x + w - 1)
        , bottom(y + h - 1) {}
    constexpr VyRect(VyPoint topLeft, VySize size)
        : VyRect(topLeft.x, topLeft.y, size.width, size.height) {}
    static constexpr VyRect fromEdges(int l, int t, int r, int b) {
        VyRect rc;
        rc.left = l;
        rc.top = t;
        rc.right = r;
        rc.bottom = b;
        return rc;
    }

    constexpr int x() const { return left; }
    constexpr int y() const { return top; }
    constexpr int width() const { return right - left + 1; }
    constexpr int height() const { return bottom - top + 1; }
    constexpr VySize size() const { return {width(), height()}; }
    constexpr VyPoint topLeft() const { return {left, top}; }
    constexpr bool isEmpty() const { return right < left || bottom < top; }
    constexpr bool isValid() const { return !isEmpty(); }

    constexpr bool contains(int px, int py) const {
        return px >= left && px <= right && py >= top && py <= bottom;
    }
    constexpr bool contains(VyPoint p) const { return contains(p.x, p.y); }
    constexpr bool contains(const VyRect& r) const {
        return !r.isEmpty() && r.left >= left && r.right <= right && r.top >= top &&
               r.bottom <= bottom;
    }
    constexpr bool intersects(const VyRect& r) const {
        return !isEmpty() && !r.isEmpty() && std::max(left, r.left) <= std::min(right, r.right) &&
               std::max(top, r.top) <= std::min(bottom, r.bottom);
    }
    constexpr VyRect intersected(const VyRect& r) const {
        return fromEdges(std::max(left, r.left), std::max(top, r.top), std::min(right, r.right),
                         std::min(bottom, r.bottom));
    }
    // The bounding rectangle of both; an empty operand does not count.
    constexpr VyRect united(const VyRect& r) const {
        if (isEmpty())
            return r;
        if (r.isEmpty())
            return *this;
        return fromEdges(std::min(left, r.left), std::min(top, r.top), std::max(right, r.right),
                         std::max(bottom, r.bottom));
    }
    constexpr VyRect translated(int dx, int dy) const {
        return fromEdges(left + dx, top + dy, right + dx, bottom + dy);
    }
    constexpr VyRect translated(VyPoint d) const { return translated(d.x, d.y); }
    constexpr void moveTo(int x, int y) { *this = VyRect(x, y, width(), height()); }

    constexpr bool operator==(const VyRect& o) const {
        return left == o.left && top == o.top && right == o.right && bottom == o.bottom;
    }
    constexpr bool operator!=(const VyRect& o) const { return !(*this == o); }
};
