#include "toolkit/graphics/VyFbCanvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "runtime/VyLog.h"
#include "toolkit/graphics/VyPixelOps.h"

namespace {

// Ink of the dotted line is shared between two pixels in 64ths.
constexpr int kDotLineSteps = 64;

// Far outside any canvas; coordinates beyond it are pulled in before int arithmetic.
constexpr int64_t kFar = 1 << 29; // pixels
// Up to this many pixels wide an opaque fill stores its pixels itself, row by row.
constexpr int kNarrowFill = 8;

int clampFar(int64_t v) {
    return static_cast<int>(std::max(-kFar, std::min(kFar, v)));
}

// Puts a line in the form the walks expect: x the major axis (x and y swapped for a steep
// line), running from low to high x.
template <typename T>
void toMajorAxis(bool steep, T& x1, T& y1, T& x2, T& y2) {
    if (steep) {
        std::swap(x1, y1);
        std::swap(x2, y2);
    }
    if (x1 > x2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
}

// floor((2 * step * minor + major) / (2 * major)): the minor offset of a line after `step`
// of `major` steps, rounded half up. 0 <= step <= major < 2^32 and |minor| <= major, so
// step * |minor| fits 64 unsigned bits but twice it may not; splitting it into quotient
// and remainder by `major` keeps every term small without 128-bit integers, which 32-bit
// targets lack.
int64_t roundedStep(uint64_t step, int64_t minor, int64_t major) {
    const uint64_t product = step * static_cast<uint64_t>(minor < 0 ? -minor : minor);
    const auto q = static_cast<int64_t>(product / static_cast<uint64_t>(major));
    const auto r = static_cast<int64_t>(product % static_cast<uint64_t>(major));
    // |2r| < 2 * major, so the remaining fraction rounds to -1, 0 or 1.
    const int64_t num = (minor < 0 ? -2 * r : 2 * r) + major;
    const int64_t den = 2 * major;
    const int64_t rest = num >= 0 ? num / den : -((-num + den - 1) / den);
    return (minor < 0 ? -q : q) + rest;
}

} // namespace

VyFbCanvas::VyFbCanvas(uint8_t* pixels, int width, int height, int bytesPerLine)
    : m_width(pixels && width > 0 && height > 0 ? width : 0)
    , m_height(pixels && width > 0 && height > 0 ? height : 0)
    , m_bytesPerLine(std::max(bytesPerLine, m_width * 2))
    , m_pixels(pixels) {
    resetClip();
}

VyFbCanvas::VyFbCanvas(int width, int height)
    : m_ownsPixels(true) {
    if (width > 0 && height > 0 && width <= kMaxDimension && height <= kMaxDimension) {
        m_width = width;
        m_height = height;
        m_bytesPerLine = width * 2;
        m_buffer.reset(new uint16_t[static_cast<size_t>(width) * height]());
        m_pixels = reinterpret_cast<uint8_t*>(m_buffer.get());
    } else if (width != 0 || height != 0) {
        vyFrameworkLog("canvas of %dx%d refused !!!\n", width, height);
    }
    resetClip();
}

VyFbCanvas::~VyFbCanvas() = default;

uint16_t VyFbCanvas::pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= m_width || y >= m_height)
        return 0;
    return scanLine(y)[x];
}

VyRect VyFbCanvas::toCanvas(const VyRect& rect) const {
    return VyRect::fromEdges(
        clampFar(int64_t(rect.left) + m_origin.x), clampFar(int64_t(rect.top) + m_origin.y),
        clampFar(int64_t(rect.right) + m_origin.x), clampFar(int64_t(rect.bottom) + m_origin.y));
}

void VyFbCanvas::setClipRect(const VyRect& rect) {
    m_clip = rect.intersected(VyRect(0, 0, m_width, m_height));
}

void VyFbCanvas::resetClip() {
    m_clip = VyRect(0, 0, m_width, m_height);
}

void VyFbCanvas::blendSpan(int x1, int x2, int y, vyargb colour) {
    if (y < m_clip.top || y > m_clip.bottom)
        return;
    x1 = std::max(x1, m_clip.left);
    x2 = std::min(x2, m_clip.right);
    if (x1 <= x2)
        VyPixelOps::blendColorRow(scanLine(y) + x1, x2 - x1 + 1, colour);
}

void VyFbCanvas::blendOne(int x, int y, int alpha, vyargb colour) {
    if (alpha > 0 && m_clip.contains(x, y)) {
        uint16_t* p = scanLine(y) + x;
        *p = VyPixelOps::blendPixel(*p, (vyargb(alpha) << 24) | (colour & 0x00ffffffu));
    }
}

void VyFbCanvas::drawPoint(int x, int y, vyargb colour) {
    if ((colour >> 24) == 0)
        return;
    const int w = m_penWidth;
    // In 64 bits: a point far outside must not wrap around into the canvas.
    const int64_t left = int64_t(x) + m_origin.x - w / 2;
    const int64_t top = int64_t(y) + m_origin.y - w / 2;
    if (left > m_clip.right || top > m_clip.bottom || left + w <= m_clip.left ||
        top + w <= m_clip.top)
        return;
    const VyRect r = clipped(VyRect(static_cast<int>(left), static_cast<int>(top), w, w));
    for (int row = r.top; row <= r.bottom; ++row)
        blendSpan(r.left, r.right, row, colour);
}

void VyFbCanvas::drawLine(int x1, int y1, int x2, int y2, vyargb colour) {
    if ((colour >> 24) == 0)
        return;
    const int w = m_penWidth;
    if (y1 == y2 || x1 == x2) {
        // One rectangle, so that a translucent thick line blends every pixel once.
        const int64_t left = int64_t(std::min(x1, x2)) - w / 2 + m_origin.x;
        const int64_t top = int64_t(std::min(y1, y2)) - w / 2 + m_origin.y;
        const int64_t right = int64_t(std::max(x1, x2)) - w / 2 + w - 1 + m_origin.x;
        const int64_t bottom = int64_t(std::max(y1, y2)) - w / 2 + w - 1 + m_origin.y;
        const VyRect c = clipped(
            VyRect::fromEdges(clampFar(left), clampFar(top), clampFar(right), clampFar(bottom)));
        for (int row = c.top; row <= c.bottom; ++row)
            blendSpan(c.left, c.right, row, colour);
        return;
    }
    // Walk the major axis over the part that can reach the clip rectangle only, and place
    // the minor coordinate by exact rounding, so huge coordinates cost nothing.
    const bool steep = std::llabs(int64_t(y2) - y1) > std::llabs(int64_t(x2) - x1);
    toMajorAxis(steep, x1, y1, x2, y2);
    const int64_t dM = int64_t(x2) - x1;
    const int64_t dm = int64_t(y2) - y1;
    const int originM = steep ? m_origin.y : m_origin.x;
    const int clipLow = (steep ? m_clip.top : m_clip.left) - originM - w;
    const int clipHigh = (steep ? m_clip.bottom : m_clip.right) - originM + w;
    const int64_t from = std::max<int64_t>(x1, clipLow);
    const int64_t to = std::min<int64_t>(x2, clipHigh);
    const int64_t minorLow =
        int64_t(steep ? m_clip.left - m_origin.x : m_clip.top - m_origin.y) - w;
    const int64_t minorHigh =
        int64_t(steep ? m_clip.right - m_origin.x : m_clip.bottom - m_origin.y) + w;
    for (int64_t t = from; t <= to; ++t) {
        const int64_t minor = y1 + roundedStep(static_cast<uint64_t>(t - x1), dm, dM);
        if (minor < minorLow || minor > minorHigh)
            continue;
        if (steep)
            drawPoint(static_cast<int>(minor), static_cast<int>(t), colour);
        else
            drawPoint(static_cast<int>(t), static_cast<int>(minor), colour);
    }
}

void VyFbCanvas::drawDotLine(vyreal x1, vyreal y1, vyreal x2, vyreal y2, vyargb colour) {
    const int alpha = static_cast<int>(colour >> 24);
    if (alpha == 0)
        return;
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2)) {
        vyFrameworkLog("drawDotLine: coordinates are not finite numbers !!!\n");
        return;
    }
    x1 += m_origin.x;
    x2 += m_origin.x;
    y1 += m_origin.y;
    y2 += m_origin.y;
    const bool steep = std::fabs(y2 - y1) > std::fabs(x2 - x1);
    toMajorAxis(steep, x1, y1, x2, y2);
    const vyreal slope = x2 > x1 ? (y2 - y1) / (x2 - x1) : 0.0;
    const vyreal start = std::floor(x1 + 0.5);
    const vyreal low = std::max(start, vyreal(steep ? m_clip.top : m_clip.left));
    const vyreal high =
        std::min(std::floor(x2 + 0.5), vyreal(steep ? m_clip.bottom : m_clip.right));
    if (!(low <= high))
        return;
    for (int64_t t = static_cast<int64_t>(low); t <= static_cast<int64_t>(high); ++t) {
        // Dots on the even steps counted from the line's own start, so that clipping does
        // not shift the pattern.
        if (std::fmod(vyreal(t) - start, 2.0) != 0.0)
            continue;
        const vyreal minor = y1 + (vyreal(t) - x1) * slope;
        const vyreal base = std::floor(minor);
        if (!(base >= -1.0 && base <= vyreal(kMaxDimension)))
            continue;
        const int alphaStart = static_cast<int>((minor - base) * kDotLineSteps);
        VY_ASSERT_X(alphaStart >= 0 && alphaStart < 64, "alphaStart >= 0 && alphaStart < 64");
        const int near = alpha * (kDotLineSteps - alphaStart) / kDotLineSteps;
        const int far = alpha * alphaStart / kDotLineSteps;
        const int m = static_cast<int>(base);
        const int major = static_cast<int>(t);
        if (steep) {
            blendOne(m, major, near, colour);
            blendOne(m + 1, major, far, colour);
        } else {
            blendOne(major, m, near, colour);
            blendOne(major, m + 1, far, colour);
        }
    }
}

void VyFbCanvas::drawRect(const VyRect& rect, vyargb colour) {
    if ((colour >> 24) == 0 || rect.isEmpty())
        return;
    const int w = m_penWidth;
    if (rect.width() <= 2 * w || rect.height() <= 2 * w) {
        fillRect(rect, colour);
        return;
    }
    // Four bands that do not overlap, so corners are not blended twice.
    fillRect(VyRect::fromEdges(rect.left, rect.top, rect.right, rect.top + w - 1), colour);
    fillRect(VyRect::fromEdges(rect.left, rect.bottom - w + 1, rect.right, rect.bottom), colour);
    fillRect(VyRect::fromEdges(rect.left, rect.top + w, rect.left + w - 1, rect.bottom - w),
             colour);
    fillRect(VyRect::fromEdges(rect.right - w + 1, rect.top + w, rect.right, rect.bottom - w),
             colour);
}

void VyFbCanvas::fillRect(const VyRect& rect, vyargb colour) {
    if ((colour >> 24) == 0)
        return;
    const VyRect r = clipped(toCanvas(rect));
    if (r.isEmpty())
        return;
    const int n = r.width();
    // Whole lines without padding are one run: a full-screen fill is a single fill.
    if (n == m_width && m_bytesPerLine == m_width * 2) {
        VyPixelOps::blendColorRow(scanLine(r.top), n * r.height(), colour);
        return;
    }
    if (n <= kNarrowFill && (colour >> 24) == 255) {
        // Narrow opaque columns (the bars of a dense chart, vertical lines): a call per
        // row would cost more than the few pixels it stores.
        const uint16_t px = VyPixelOps::opaque(colour);
        for (int row = r.top; row <= r.bottom; ++row) {
            uint16_t* d = scanLine(row) + r.left;
            for (int i = 0; i < n; ++i)
                d[i] = px;
        }
        return;
    }
    for (int row = r.top; row <= r.bottom; ++row)
        VyPixelOps::blendColorRow(scanLine(row) + r.left, n, colour);
}

void VyFbCanvas::clearRect(const VyRect& rect) {
    // 0: transparent black, the overlay bit clear.
    fillRaw(toCanvas(rect), 0);
}

void VyFbCanvas::fillTriangle(VyPoint a, VyPoint b, VyPoint c, vyargb colour) {
    if ((colour >> 24) == 0)
        return;
    auto shift = [this](VyPoint v) {
        return VyPoint(clampFar(int64_t(v.x) + m_origin.x), clampFar(int64_t(v.y) + m_origin.y));
    };
    const VyPoint p[3] = {shift(a), shift(b), shift(c)};
    const int top = std::max(std::min({p[0].y, p[1].y, p[2].y}), m_clip.top);
    const int bottom = std::min(std::max({p[0].y, p[1].y, p[2].y}), m_clip.bottom);
    for (int y = top; y <= bottom; ++y) {
        // Where the pixel centre line meets the edges that span it.
        const double yc = y + 0.5;
        double xl = 1e300;
        double xr = -1e300;
        for (int e = 0; e < 3; ++e) {
            const VyPoint& u = p[e];
            const VyPoint& v = p[(e + 1) % 3];
            const double lo = std::min(u.y, v.y);
            const double hi = std::max(u.y, v.y);
            if (yc < lo || yc > hi)
                continue;
            double x;
            if (u.y == v.y) {
                xl = std::min({xl, double(u.x), double(v.x)});
                xr = std::max({xr, double(u.x), double(v.x)});
                continue;
            }
            x = u.x + (yc - u.y) * double(v.x - u.x) / double(v.y - u.y);
            xl = std::min(xl, x);
            xr = std::max(xr, x);
        }
        if (xl > xr)
            continue;
        const double first = std::ceil(xl - 0.5);
        const double last = std::floor(xr - 0.5);
        const int x1 = static_cast<int>(std::max(first, double(m_clip.left)));
        const int x2 = static_cast<int>(std::min(last, double(m_clip.right)));
        blendSpan(x1, x2, y, colour);
    }
}

void VyFbCanvas::fillRaw(const VyRect& rect, uint16_t value) {
    const VyRect r = clipped(rect);
    for (int row = r.top; row <= r.bottom; ++row)
        std::fill_n(scanLine(row) + r.left, r.width(), value);
}

void VyFbCanvas::copyFrom(const VyFbCanvas& source, const VyRect& sourceRect, VyPoint position) {
    VyRect src = sourceRect.intersected(VyRect(0, 0, source.m_width, source.m_height));
    if (src.isEmpty())
        return;
    const VyPoint shift = position - sourceRect.topLeft();
    const VyRect dst = clipped(src.translated(shift));
    if (dst.isEmpty())
        return;
    src = dst.translated(VyPoint() - shift);
    const size_t bytes = static_cast<size_t>(dst.width()) * 2;
    if (&source == this) {
        for (int row = 0; row < dst.height(); ++row)
            std::memmove(scanLine(dst.top + row) + dst.left,
                         source.scanLine(src.top + row) + src.left, bytes);
        return;
    }
    // Whole lines of two buffers without padding form one block: one copy, as fast as the
    // memory allows.
    if (bytes == static_cast<size_t>(m_bytesPerLine) &&
        bytes == static_cast<size_t>(source.m_bytesPerLine)) {
        std::memcpy(scanLine(dst.top), source.scanLine(src.top), bytes * dst.height());
        return;
    }
    for (int row = 0; row < dst.height(); ++row)
        std::memcpy(scanLine(dst.top + row) + dst.left, source.scanLine(src.top + row) + src.left,
                    bytes);
}
