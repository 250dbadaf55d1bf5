#include "runtime/VyRegion.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace {

// A rectangle as half-open edges clipped to the coordinate limit; empty when x1 <= x0.
struct Edges {
    int x0 = 0;
    int y0 = 0;
    int x1 = 0;
    int y1 = 0;

    bool isEmpty() const { return x1 <= x0 || y1 <= y0; }
};

Edges clippedEdges(const VyRect& r) {
    constexpr int kLimit = VyRegion::kCoordLimit;
    if (r.isEmpty())
        return {};
    Edges e;
    e.x0 = std::max(r.left, -kLimit);
    e.y0 = std::max(r.top, -kLimit);
    e.x1 = std::min(r.right, kLimit) + 1;
    e.y1 = std::min(r.bottom, kLimit) + 1;
    return e.isEmpty() ? Edges{} : e;
}

bool inResult(int op, bool inA, bool inB) {
    switch (op) {
    case 0:
        return inA || inB;
    case 1:
        return inA && inB;
    default:
        return inA && !inB;
    }
}

// Merges two sorted boundary lists (x-ranges [a0, a1), [a2, a3), ...) under a set operation
// and appends the boundaries of the result. The output only changes state at a boundary, so
// it comes out with touching ranges already joined.
void combineRanges(const int* a, int na, const int* b, int nb, int op, std::vector<int>& out) {
    int i = 0;
    int j = 0;
    bool inside = false;
    while (i < na || j < nb) {
        const int x = std::min(i < na ? a[i] : INT_MAX, j < nb ? b[j] : INT_MAX);
        if (i < na && a[i] == x)
            ++i;
        if (j < nb && b[j] == x)
            ++j;
        const bool now = inResult(op, (i & 1) != 0, (j & 1) != 0);
        if (now != inside) {
            out.push_back(x);
            inside = now;
        }
    }
}

bool sameRanges(const int* a, const int* aEnd, const int* b, const int* bEnd) {
    return (aEnd - a) == (bEnd - b) && std::equal(a, aEnd, b);
}

} // namespace

VyRegion::VyRegion(const VyRect& rect) {
    const Edges e = clippedEdges(rect);
    if (e.isEmpty())
        return;
    m_bands.push_back({e.y0, e.y1, 0, 2});
    m_xs = {e.x0, e.x1};
}

void VyRegion::clear() {
    m_bands.clear();
    m_xs.clear();
}

VyRect VyRegion::boundingRect() const {
    if (m_bands.empty())
        return VyRect();
    int left = INT_MAX;
    int right = INT_MIN;
    for (const Band& band : m_bands) {
        left = std::min(left, m_xs[band.begin]);
        right = std::max(right, m_xs[band.end - 1]);
    }
    return VyRect::fromEdges(left, m_bands.front().top, right - 1, m_bands.back().bottom - 1);
}

VyVector<VyRect> VyRegion::rects() const {
    VyVector<VyRect> out;
    out.reserve(rectCount());
    for (const Band& band : m_bands) {
        for (int i = band.begin; i < band.end; i += 2)
            out.append(VyRect::fromEdges(m_xs[i], band.top, m_xs[i + 1] - 1, band.bottom - 1));
    }
    return out;
}

int VyRegion::firstBandBelow(int y) const {
    // The first band whose rows reach below y, i.e. the only one that can hold row y.
    auto it = std::upper_bound(m_bands.begin(), m_bands.end(), y,
                               [](int value, const Band& band) { return value < band.bottom; });
    return static_cast<int>(it - m_bands.begin());
}

bool VyRegion::contains(int x, int y) const {
    const int bi = firstBandBelow(y);
    if (bi == static_cast<int>(m_bands.size()) || m_bands[bi].top > y)
        return false;
    const Band& band = m_bands[bi];
    const int* first = m_xs.data() + band.begin;
    const int* last = m_xs.data() + band.end;
    // Inside exactly when an odd number of boundaries lie at or left of x.
    return ((std::upper_bound(first, last, x) - first) & 1) != 0;
}

bool VyRegion::contains(const VyRect& rect) const {
    const Edges e = clippedEdges(rect);
    if (e.isEmpty() || rect.left < -kCoordLimit || rect.top < -kCoordLimit ||
        rect.right > kCoordLimit || rect.bottom > kCoordLimit)
        return false;
    int y = e.y0;
    for (int bi = firstBandBelow(y); bi < static_cast<int>(m_bands.size()); ++bi) {
        const Band& band = m_bands[bi];
        if (band.top > y)
            return false; // a gap between bands
        const int* first = m_xs.data() + band.begin;
        const int* last = m_xs.data() + band.end;
        const int* k = std::upper_bound(first, last, e.x0);
        if (((k - first) & 1) == 0 || *k < e.x1)
            return false;
        y = band.bottom;
        if (y >= e.y1)
            return true;
    }
    return false;
}

bool VyRegion::intersects(const VyRect& rect) const {
    const Edges e = clippedEdges(rect);
    if (e.isEmpty())
        return false;
    for (int bi = firstBandBelow(e.y0); bi < static_cast<int>(m_bands.size()); ++bi) {
        const Band& band = m_bands[bi];
        if (band.top >= e.y1)
            return false;
        const int* first = m_xs.data() + band.begin;
        const int* last = m_xs.data() + band.end;
        const int* k = std::upper_bound(first, last, e.x0);
        if (((k - first) & 1) != 0 || (k != last && *k < e.x1))
            return true;
    }
    return false;
}

bool VyRegion::intersects(const VyRegion& other) const {
    if (isEmpty() || other.isEmpty() || !boundingRect().intersects(other.boundingRect()))
        return false;
    VyRegion common;
    combine(view(), other.view(), Op::Intersect, common);
    return !common.isEmpty();
}

void VyRegion::closeBand(int top, int bottom, int xsBegin) {
    const int xsEnd = static_cast<int>(m_xs.size());
    if (xsBegin == xsEnd)
        return;
    if (!m_bands.empty()) {
        Band& above = m_bands.back();
        if (above.bottom == top && sameRanges(m_xs.data() + above.begin, m_xs.data() + above.end,
                                              m_xs.data() + xsBegin, m_xs.data() + xsEnd)) {
            above.bottom = bottom;
            m_xs.resize(static_cast<size_t>(xsBegin));
            return;
        }
    }
    m_bands.push_back({top, bottom, xsBegin, xsEnd});
}

void VyRegion::combine(const View& a, const View& b, Op op, VyRegion& out) {
    out.clear();
    const int opCode = static_cast<int>(op);
    int ia = 0;
    int ib = 0;
    int y = INT_MIN;
    // Sweep downwards through the rows where the pair of bands in play stays the same.
    for (;;) {
        const bool haveA = ia < a.bandCount;
        const bool haveB = ib < b.bandCount;
        if ((!haveA && !haveB) || (op == Op::Intersect && (!haveA || !haveB)) ||
            (op == Op::Subtract && !haveA))
            break;
        const int aTop = haveA ? std::max(a.bands[ia].top, y) : INT_MAX;
        const int bTop = haveB ? std::max(b.bands[ib].top, y) : INT_MAX;
        const int y0 = std::min(aTop, bTop);
        const bool aActive = haveA && aTop == y0;
        const bool bActive = haveB && bTop == y0;
        int y1 = INT_MAX;
        if (haveA)
            y1 = std::min(y1, aActive ? a.bands[ia].bottom : a.bands[ia].top);
        if (haveB)
            y1 = std::min(y1, bActive ? b.bands[ib].bottom : b.bands[ib].top);

        const int xsBegin = static_cast<int>(out.m_xs.size());
        const int* ax = aActive ? a.xs + a.bands[ia].begin : nullptr;
        const int na = aActive ? a.bands[ia].end - a.bands[ia].begin : 0;
        const int* bx = bActive ? b.xs + b.bands[ib].begin : nullptr;
        const int nb = bActive ? b.bands[ib].end - b.bands[ib].begin : 0;
        if (nb == 0 && op != Op::Intersect)
            out.m_xs.insert(out.m_xs.end(), ax, ax + na);
        else if (na == 0 && op == Op::Unite)
            out.m_xs.insert(out.m_xs.end(), bx, bx + nb);
        else if (na != 0 && nb != 0)
            combineRanges(ax, na, bx, nb, opCode, out.m_xs);
        out.closeBand(y0, y1, xsBegin);

        y = y1;
        if (haveA && a.bands[ia].bottom <= y)
            ++ia;
        if (haveB && b.bands[ib].bottom <= y)
            ++ib;
    }
}

void VyRegion::combineInPlace(const View& b, Op op) {
    // Reusing one scratch region keeps a busy frame of updates from allocating per call.
    static thread_local VyRegion scratch;
    combine(view(), b, op, scratch);
    swap(scratch);
}

void VyRegion::combineRectLocally(int x0, int y0, int x1, int y1, Op op) {
    // Only the bands in the rectangle's rows change, plus the one just above and the one
    // just below, which may join what the operation leaves at its edges. Everything else is
    // kept where it is, so a cost per call is a local merge and one move of the tail.
    const int n = static_cast<int>(m_bands.size());
    const int first = std::max(0, firstBandBelow(y0) - 1);
    auto below = std::partition_point(m_bands.begin() + first, m_bands.end(),
                                      [y1](const Band& band) { return band.top < y1; });
    const int last = std::min(n, static_cast<int>(below - m_bands.begin()) + 1);

    static thread_local VyRegion scratch;
    const Band band{y0, y1, 0, 2};
    const int xs[2] = {x0, x1};
    combine({m_bands.data() + first, last - first, m_xs.data()}, {&band, 1, xs}, op, scratch);

    const int xsFrom = first < n ? m_bands[first].begin : static_cast<int>(m_xs.size());
    const int xsTo = last > first ? m_bands[last - 1].end : xsFrom;
    const int xsDelta = static_cast<int>(scratch.m_xs.size()) - (xsTo - xsFrom);
    if (xsDelta > 0)
        m_xs.insert(m_xs.begin() + xsTo, static_cast<size_t>(xsDelta), 0);
    else if (xsDelta < 0)
        m_xs.erase(m_xs.begin() + xsTo + xsDelta, m_xs.begin() + xsTo);
    std::copy(scratch.m_xs.begin(), scratch.m_xs.end(), m_xs.begin() + xsFrom);

    const int newCount = static_cast<int>(scratch.m_bands.size());
    const int bandDelta = newCount - (last - first);
    if (bandDelta > 0)
        m_bands.insert(m_bands.begin() + last, static_cast<size_t>(bandDelta), Band{});
    else if (bandDelta < 0)
        m_bands.erase(m_bands.begin() + last + bandDelta, m_bands.begin() + last);
    for (int i = 0; i < newCount; ++i) {
        Band b = scratch.m_bands[i];
        b.begin += xsFrom;
        b.end += xsFrom;
        m_bands[first + i] = b;
    }
    if (xsDelta != 0) {
        for (size_t i = static_cast<size_t>(first) + static_cast<size_t>(newCount);
             i < m_bands.size(); ++i) {
            m_bands[i].begin += xsDelta;
            m_bands[i].end += xsDelta;
        }
    }
}

bool VyRegion::uniteFast(int x0, int y0, int x1, int y1) {
    if (m_bands.empty()) {
        m_bands.push_back({y0, y1, 0, 2});
        m_xs.assign({x0, x1});
        return true;
    }
    Band& last = m_bands.back();
    if (y0 >= last.bottom) {
        // Below everything: a new band, or a taller last band when it is the same range.
        const int xsBegin = static_cast<int>(m_xs.size());
        m_xs.push_back(x0);
        m_xs.push_back(x1);
        closeBand(y0, y1, xsBegin);
        return true;
    }
    if (y0 == last.top && y1 == last.bottom && x0 >= m_xs[last.end - 1]) {
        // Right of everything in the last band's rows, as a row of tiles is painted.
        if (x0 == m_xs[last.end - 1]) {
            m_xs[last.end - 1] = x1;
        } else {
            m_xs.push_back(x0);
            m_xs.push_back(x1);
            last.end += 2;
        }
        if (m_bands.size() >= 2) {
            // The grown band may now equal the one above it.
            Band& above = m_bands[m_bands.size() - 2];
            if (above.bottom == last.top &&
                sameRanges(m_xs.data() + above.begin, m_xs.data() + above.end,
                           m_xs.data() + last.begin, m_xs.data() + last.end)) {
                above.bottom = last.bottom;
                m_xs.resize(static_cast<size_t>(last.begin));
                m_bands.pop_back();
            }
        }
        return true;
    }
    return false;
}

VyRegion& VyRegion::unite(const VyRect& rect) {
    const Edges e = clippedEdges(rect);
    if (e.isEmpty() || uniteFast(e.x0, e.y0, e.x1, e.y1) || contains(rect))
        return *this;
    combineRectLocally(e.x0, e.y0, e.x1, e.y1, Op::Unite);
    return *this;
}

VyRegion& VyRegion::unite(const VyRegion& other) {
    if (other.isEmpty() || this == &other)
        return *this;
    if (isEmpty()) {
        *this = other;
        return *this;
    }
    combineInPlace(other.view(), Op::Unite);
    return *this;
}

VyRegion& VyRegion::intersect(const VyRect& rect) {
    const Edges e = clippedEdges(rect);
    if (e.isEmpty()) {
        clear();
        return *this;
    }
    if (isEmpty() || VyRect::fromEdges(e.x0, e.y0, e.x1 - 1, e.y1 - 1).contains(boundingRect()))
        return *this;
    const Band band{e.y0, e.y1, 0, 2};
    const int xs[2] = {e.x0, e.x1};
    combineInPlace({&band, 1, xs}, Op::Intersect);
    return *this;
}

VyRegion& VyRegion::intersect(const VyRegion& other) {
    if (this == &other)
        return *this;
    if (isEmpty() || other.isEmpty()) {
        clear();
        return *this;
    }
    combineInPlace(other.view(), Op::Intersect);
    return *this;
}

VyRegion& VyRegion::subtract(const VyRect& rect) {
    const Edges e = clippedEdges(rect);
    if (e.isEmpty() || !intersects(rect))
        return *this;
    combineRectLocally(e.x0, e.y0, e.x1, e.y1, Op::Subtract);
    return *this;
}

VyRegion& VyRegion::subtract(const VyRegion& other) {
    if (this == &other) {
        clear();
        return *this;
    }
    if (isEmpty() || other.isEmpty())
        return *this;
    combineInPlace(other.view(), Op::Subtract);
    return *this;
}

VyRegion VyRegion::united(const VyRegion& other) const {
    VyRegion out;
    combine(view(), other.view(), Op::Unite, out);
    return out;
}

VyRegion VyRegion::intersected(const VyRegion& other) const {
    VyRegion out;
    combine(view(), other.view(), Op::Intersect, out);
    return out;
}

VyRegion VyRegion::subtracted(const VyRegion& other) const {
    VyRegion out;
    combine(view(), other.view(), Op::Subtract, out);
    return out;
}

VyRegion& VyRegion::translate(int dx, int dy) {
    if (isEmpty() || (dx == 0 && dy == 0))
        return *this;
    // With both the edges and the offsets bounded, the sums below stay well inside an int.
    dx = std::clamp(dx, -2 * kCoordLimit, 2 * kCoordLimit);
    dy = std::clamp(dy, -2 * kCoordLimit, 2 * kCoordLimit);
    for (int& x : m_xs)
        x += dx;
    for (Band& band : m_bands) {
        band.top += dy;
        band.bottom += dy;
    }
    const VyRect bounds = boundingRect();
    const VyRect limit = VyRect::fromEdges(-kCoordLimit, -kCoordLimit, kCoordLimit, kCoordLimit);
    if (!limit.contains(bounds))
        intersect(limit);
    return *this;
}

bool VyRegion::operator==(const VyRegion& o) const {
    if (m_bands.size() != o.m_bands.size() || m_xs != o.m_xs)
        return false;
    for (size_t i = 0; i < m_bands.size(); ++i) {
        if (m_bands[i].top != o.m_bands[i].top || m_bands[i].bottom != o.m_bands[i].bottom ||
            m_bands[i].end != o.m_bands[i].end)
            return false;
    }
    return true;
}
