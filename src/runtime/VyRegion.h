#pragma once
// A set of pixels made of rectangles: the dirty areas of the screen and the areas a paint
// event asks to redraw. Kept normalised in y-x bands: the bands are sorted top to bottom and
// do not overlap, each holds sorted disjoint x-ranges that do not touch, and two vertically
// adjacent bands never hold the same x-ranges. Equal sets therefore have equal storage, and
// each operation is one linear merge of two band lists.
//
// Coordinates are clamped to +-kCoordLimit so that edge arithmetic cannot overflow.
#include <vector>

#include "runtime/VyPoint.h"
#include "runtime/VyRect.h"
#include "runtime/VyVector.h"

class VyRegion {
public:
    // Far beyond any screen, and small enough that a translated edge still fits an int.
    static constexpr int kCoordLimit = 1 << 29; // pixels

    VyRegion() = default;
    explicit VyRegion(const VyRect& rect);
    VyRegion(int x, int y, int width, int height)
        : VyRegion(VyRect(x, y, width, height)) {}

    bool isEmpty() const { return m_bands.empty(); }
    void clear();
    VyRect boundingRect() const;
    // Disjoint rectangles covering exactly the region, top to bottom, then left to right.
    VyVector<VyRect> rects() const;
    int rectCount() const { return static_cast<int>(m_xs.size() / 2); }

    bool contains(int x, int y) const;
    bool contains(VyPoint p) const { return contains(p.x, p.y); }
    // True when every pixel of a non-empty rect is in the region.
    bool contains(const VyRect& rect) const;
    bool intersects(const VyRect& rect) const;
    bool intersects(const VyRegion& other) const;

    VyRegion& unite(const VyRect& rect);
    VyRegion& unite(const VyRegion& other);
    VyRegion& intersect(const VyRect& rect);
    VyRegion& intersect(const VyRegion& other);
    VyRegion& subtract(const VyRect& rect);
    VyRegion& subtract(const VyRegion& other);
    VyRegion& translate(int dx, int dy);
    VyRegion& translate(VyPoint d) { return translate(d.x, d.y); }

    VyRegion united(const VyRect& rect) const { return VyRegion(*this).unite(rect); }
    VyRegion united(const VyRegion& other) const;
    VyRegion intersected(const VyRect& rect) const { return VyRegion(*this).intersect(rect); }
    VyRegion intersected(const VyRegion& other) const;
    VyRegion subtracted(const VyRect& rect) const { return VyRegion(*this).subtract(rect); }
    VyRegion subtracted(const VyRegion& other) const;
    VyRegion translated(int dx, int dy) const { return VyRegion(*this).translate(dx, dy); }
    VyRegion translated(VyPoint d) const { return translated(d.x, d.y); }

    bool operator==(const VyRegion& o) const;
    bool operator!=(const VyRegion& o) const { return !(*this == o); }

    void swap(VyRegion& o) noexcept {
        m_bands.swap(o.m_bands);
        m_xs.swap(o.m_xs);
    }

private:
    enum class Op { Unite, Intersect, Subtract };

    // Rows [top, bottom) (half-open, unlike VyRect) whose x-ranges are the boundary pairs
    // m_xs[begin .. end): [x0, x1), [x2, x3), ...
    struct Band {
        int top;
        int bottom;
        int begin;
        int end;
    };

    // A read-only look at band storage, so that a lone rectangle can take part in an
    // operation without allocating a region for it.
    struct View {
        const Band* bands;
        int bandCount;
        const int* xs;
    };

    View view() const { return {m_bands.data(), static_cast<int>(m_bands.size()), m_xs.data()}; }
    // Writes op(a, b) into out, which must not share storage with a or b.
    static void combine(const View& a, const View& b, Op op, VyRegion& out);
    // Replaces *this with op(*this, b) through a per-thread scratch region.
    void combineInPlace(const View& b, Op op);
    // Appends the band [top, bottom) whose boundaries were just pushed from xsBegin on,
    // dropping it when empty and merging it into the band above when that one is equal.
    void closeBand(int top, int bottom, int xsBegin);
    // Unite or subtract one rectangle, touching only the bands near its rows.
    void combineRectLocally(int x0, int y0, int x1, int y1, Op op);
    bool uniteFast(int x0, int y0, int x1, int y1);
    int firstBandBelow(int y) const;

    std::vector<Band> m_bands;
    std::vector<int> m_xs;
};
