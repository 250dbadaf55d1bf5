#include "toolkit/core/VyScreenCursor.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyScreen.h"

namespace {

struct ShapeInfo {
    const char* name;
    VyPoint hotspot; // in pixels of the normal-size image
};

// In the order of VyScreenCursor::Shape.
constexpr ShapeInfo kShapes[VyScreenCursor::ShapeCount] = {
    {"arrow", {0, 0}},        {"cursor-uparrow", {13, 2}},  {"cursor-cross", {12, 12}},
    {"cursor-wait", {6, 2}},  {"cursor-ibeam", {9, 2}},     {"cursor-sizev", {13, 12}},
    {"cursor-sizeh", {0, 0}}, {"cursor-vsplit", {12, 12}},  {"cursor-hsplit", {12, 12}},
    {"cursor-hand", {9, 1}},  {"cursor-forbidden", {6, 6}}, {"cursor-whatsthis", {0, 0}},
    {"cursor-busy", {0, 0}},  {"cursor-openhand", {0, 0}},  {"cursor-closehand", {0, 0}},
};

// A cursor row is a few dozen pixels: a handful of fixed-size moves, the last ones
// overlapping the first, beat a call to memcpy with a size it cannot see (what a plain loop
// of chunks turns into). Source and destination never overlap each other.
template <size_t kBytes>
inline void copyBytes(uint8_t* to, const uint8_t* from) {
    std::memcpy(to, from, kBytes);
}

inline void copyPixels(uint16_t* toPixels, const uint16_t* fromPixels, int count) {
    auto* to = reinterpret_cast<uint8_t*>(toPixels);
    const auto* from = reinterpret_cast<const uint8_t*>(fromPixels);
    size_t n = static_cast<size_t>(count) * sizeof(uint16_t);
    if (n >= 16) {
        if (n > 128) {
            // Wider than any cursor shape (a drag image may be): whole 64-byte blocks first.
            for (; n > 64; n -= 64, to += 64, from += 64)
                copyBytes<64>(to, from);
            to -= 64 - n;
            from -= 64 - n;
            n = 64;
        }
        if (n <= 32) {
            copyBytes<16>(to, from);
            copyBytes<16>(to + n - 16, from + n - 16);
        } else if (n <= 64) {
            copyBytes<32>(to, from);
            copyBytes<32>(to + n - 32, from + n - 32);
        } else {
            copyBytes<64>(to, from);
            copyBytes<64>(to + n - 64, from + n - 64);
        }
    } else if (n >= 8) {
        copyBytes<8>(to, from);
        copyBytes<8>(to + n - 8, from + n - 8);
    } else if (n >= 4) {
        copyBytes<4>(to, from);
        copyBytes<4>(to + n - 4, from + n - 4);
    } else if (n == 2) {
        copyBytes<2>(to, from);
    }
}

// A move of an image with no transparent pixel, rows of a width the compiler knows: each of
// the three copies per row becomes a few vector moves with no run bookkeeping between them.
template <size_t kRowBytes>
void jumpOpaqueRows(uint16_t* oldLine, uint16_t* newLine, size_t pitch, uint16_t* saved,
                    const uint16_t* ink, int rows) {
    constexpr size_t kPixels = kRowBytes / sizeof(uint16_t);
    for (int iy = 0; iy < rows; ++iy, oldLine += pitch, newLine += pitch) {
        copyBytes<kRowBytes>(reinterpret_cast<uint8_t*>(oldLine),
                             reinterpret_cast<const uint8_t*>(saved));
        copyBytes<kRowBytes>(reinterpret_cast<uint8_t*>(saved),
                             reinterpret_cast<const uint8_t*>(newLine));
        copyBytes<kRowBytes>(reinterpret_cast<uint8_t*>(newLine),
                             reinterpret_cast<const uint8_t*>(ink));
        saved += kPixels;
        ink += kPixels;
    }
}

bool validShape(int shape) {
    return shape >= 0 && shape < VyScreenCursor::ShapeCount;
}

} // namespace

VyScreenCursor::VyScreenCursor(VyScreen* screen)
    : VyMouseTrigger(kHideAfterIdleTicks)
    , m_screen(screen) {
    vyFrameworkLog("using software mouse\n");
    reinitialiseLocked();
    loadShape(Arrow);
}

VyScreenCursor::~VyScreenCursor() = default;

const char* VyScreenCursor::shapeName(int shape) {
    return validShape(shape) ? kShapes[shape].name : nullptr;
}

VyString VyScreenCursor::imageName(int shape, int span) {
    if (!validShape(shape))
        return VyString();
    VyString name = VyString("cursor-image/") + kShapes[shape].name;
    if (span >= kLargeScreenSpan)
        name += "-max";
    return name + ".png";
}

VyPoint VyScreenCursor::hotspot(int shape, int span) {
    if (!validShape(shape))
        return VyPoint();
    const VyPoint h = kShapes[shape].hotspot;
    return span >= kLargeScreenSpan ? VyPoint(h.x * 2, h.y * 2) : h;
}

bool VyScreenCursor::loadShape(int shape) {
    if (!validShape(shape)) {
        vyFrameworkLog("cursor shape %d unknown !!!\n", shape);
        return false;
    }
    m_shape = shape;
    const VyString path = VyResources::path(imageName(shape, m_span));
    m_image = VyBitmap::loadPng(path);
    prepareInk();
    m_hotspot = hotspot(shape, m_span);
    if (m_image.isNull()) {
        vyFrameworkLog("load cursor image (%s) failed !!!\n", path.c_str());
        return false;
    }
    return true;
}

template <typename Change>
void VyScreenCursor::changeUnderLocks(Change change) {
    bool notice;
    {
        std::lock_guard<std::mutex> framebuffer(m_screen->framebufferMutex());
        std::lock_guard<std::mutex> lock(m_mutex);
        if (!change())
            return;
        notice = touchNeedsNotice();
    }
    // Outside both locks: telling the screen may post an event.
    if (notice)
        m_screen->cursorTouched();
}

void VyScreenCursor::redrawIfShown() {
    if (m_shown && m_base)
        saveAndDraw(m_position - m_hotspot);
}

bool VyScreenCursor::setShape(int shape) {
    bool loaded = false;
    changeUnderLocks([&] {
        restore();
        loaded = loadShape(shape);
        redrawIfShown();
        return true;
    });
    return loaded;
}

int VyScreenCursor::shape() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_shape;
}

void VyScreenCursor::setImage(const VyBitmap& image, VyPoint hotspot) {
    changeUnderLocks([&] {
        restore();
        m_image = image;
        prepareInk();
        m_hotspot = hotspot;
        redrawIfShown();
        return true;
    });
}

void VyScreenCursor::setPosition(int x, int y) {
    changeUnderLocks([&] {
        m_position = VyPoint(x, y);
        if (!m_shown || !m_base)
            return false;
        if (!jumpWhole(m_position - m_hotspot)) {
            restore();
            redrawIfShown();
        }
        return true;
    });
}

VyPoint VyScreenCursor::position() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_position;
}

void VyScreenCursor::show() {
    changeUnderLocks([&] {
        if (m_shown)
            return false;
        m_shown = true;
        // The screen may have been reopened while the cursor was hidden.
        m_base = m_screen->mapping();
        m_lineLength = m_screen->lineLength();
        m_screenWidth = m_screen->width();
        m_screenHeight = m_screen->height();
        redrawIfShown();
        return true;
    });
}

void VyScreenCursor::hide() {
    changeUnderLocks([&] {
        if (!m_shown)
            return false;
        // Put the covered pixels back so that the image leaves the screen at once.
        restore();
        m_saved = false;
        m_shown = false;
        return true;
    });
}

void VyScreenCursor::hideUntilMouseMoves() {
    m_hiddenForKeys = true;
    hide();
}

void VyScreenCursor::mouseMoved() {
    if (!m_hiddenForKeys)
        return;
    m_hiddenForKeys = false;
    show();
}

bool VyScreenCursor::isShown() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_shown;
}

VyRect VyScreenCursor::area() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_image.isNull())
        return VyRect();
    return VyRect(m_position - m_hotspot, VySize(m_image.width(), m_image.height()));
}

int VyScreenCursor::span() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_span;
}

VyRect VyScreenCursor::takeTouchedArea() {
    std::lock_guard<std::mutex> lock(m_mutex);
    const VyRect area = m_touched;
    m_touched = VyRect();
    m_touchNoticed = false;
    return area;
}

bool VyScreenCursor::touchNeedsNotice() {
    if (m_touched.isEmpty() || m_touchNoticed)
        return false;
    m_touchNoticed = true;
    return true;
}

void VyScreenCursor::restoreLocked() {
    std::lock_guard<std::mutex> lock(m_mutex);
    restore();
}

void VyScreenCursor::saveAndDrawLocked() {
    std::lock_guard<std::mutex> lock(m_mutex);
    redrawIfShown();
}

void VyScreenCursor::reinitialiseLocked() {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_base = m_screen->mapping();
    m_lineLength = m_screen->lineLength();
    m_screenWidth = m_screen->width();
    m_screenHeight = m_screen->height();
    // The old memory is gone or cleared: nothing saved belongs to it any more.
    m_saved = false;
    const VyRect clip = m_screen->clipRect();
    const int span = clip.right - clip.left;
    const bool wasLarge = m_span >= kLargeScreenSpan;
    const bool isLarge = span >= kLargeScreenSpan;
    m_span = span;
    if (wasLarge != isLarge && !m_image.isNull())
        loadShape(m_shape);
}

VyRect VyScreenCursor::clippedArea(VyPoint topLeft) const {
    return VyRect(topLeft, VySize(m_saveWidth, m_saveHeight))
        .intersected(VyRect(0, 0, m_screenWidth, m_screenHeight));
}

// Only the image's ink runs were drawn over, so only they are put back: an arrow covers
// well under half of its square, and a move then writes that much less.
void VyScreenCursor::restore() {
    if (!m_saved || !m_base)
        return;
    const VyRect r = clippedArea(m_savedAt);
    if (r.isEmpty())
        return;
    m_touched = m_touched.united(r);
    const int w = m_saveWidth;
    const int first = r.left - m_savedAt.x; // visible image columns first .. last
    const int last = r.right - m_savedAt.x;
    const size_t pitch = static_cast<size_t>(m_lineLength) / sizeof(uint16_t);
    const std::pair<int, int>* runs = m_runs.data();
    const int* rowRuns = m_rowRuns.data();
    // Both at the image's column 0 of the first visible row.
    uint16_t* line =
        reinterpret_cast<uint16_t*>(m_base) + static_cast<size_t>(r.top) * pitch + r.left - first;
    const size_t firstRow = static_cast<size_t>(r.top - m_savedAt.y);
    const uint16_t* saved = m_saveUnder.data() + firstRow * w;
    for (int iy = int(firstRow); iy <= r.bottom - m_savedAt.y; ++iy, line += pitch, saved += w) {
        const int runEnd = rowRuns[iy + 1];
        for (int i = rowRuns[iy]; i < runEnd; ++i) {
            const int from = std::max(runs[i].first, first);
            const int to = std::min(runs[i].first + runs[i].second - 1, last);
            if (from <= to)
                copyPixels(line + from, saved + from, to - from + 1);
        }
    }
}

bool VyScreenCursor::wholeOnScreen(VyPoint topLeft) const {
    return topLeft.x >= 0 && topLeft.y >= 0 && topLeft.x + m_saveWidth <= m_screenWidth &&
           topLeft.y + m_saveHeight <= m_screenHeight;
}

// A move to a place the old image does not overlap, both wholly on the screen (a quick
// pointer's usual step): restore, save and draw row by row in one pass, with no clipping.
bool VyScreenCursor::jumpWhole(VyPoint to) {
    const int w = m_saveWidth;
    const int h = m_saveHeight;
    const VyPoint from = m_savedAt;
    if (!m_saved || m_image.isNull() || w != m_image.width() || h != m_image.height() ||
        !wholeOnScreen(from) || !wholeOnScreen(to) ||
        (std::abs(to.x - from.x) < w && std::abs(to.y - from.y) < h))
        return false;
    const size_t pitch = static_cast<size_t>(m_lineLength) / sizeof(uint16_t);
    uint16_t* const base = reinterpret_cast<uint16_t*>(m_base);
    uint16_t* oldLine = base + static_cast<size_t>(from.y) * pitch + from.x;
    uint16_t* newLine = base + static_cast<size_t>(to.y) * pitch + to.x;
    uint16_t* saved = m_saveUnder.data();
    const uint16_t* ink = m_ink.data();
    // The normal and "-max" sizes of a square cursor image.
    if (m_opaque && w == 32)
        jumpOpaqueRows<64>(oldLine, newLine, pitch, saved, ink, h);
    else if (m_opaque && w == 64)
        jumpOpaqueRows<128>(oldLine, newLine, pitch, saved, ink, h);
    else
        jumpRuns(oldLine, newLine, pitch, saved, ink);
    m_touched = m_touched.united(VyRect(from, VySize(w, h))).united(VyRect(to, VySize(w, h)));
    m_savedAt = to;
    return true;
}

void VyScreenCursor::jumpRuns(uint16_t* oldLine, uint16_t* newLine, size_t pitch, uint16_t* saved,
                              const uint16_t* ink) const {
    const int w = m_saveWidth;
    const std::pair<int, int>* runs = m_runs.data();
    const int* rowRuns = m_rowRuns.data();
    for (int iy = 0; iy < m_saveHeight;
         ++iy, oldLine += pitch, newLine += pitch, saved += w, ink += w) {
        const int runEnd = rowRuns[iy + 1];
        for (int i = rowRuns[iy]; i < runEnd; ++i) {
            const int x = runs[i].first;
            const int n = runs[i].second;
            copyPixels(oldLine + x, saved + x, n);
            copyPixels(saved + x, newLine + x, n);
            copyPixels(newLine + x, ink + x, n);
        }
    }
}

void VyScreenCursor::prepareSaveUnder() {
    const int w = m_image.width();
    const int h = m_image.height();
    if (w != m_saveWidth || h != m_saveHeight) {
        m_saveUnder.assign(static_cast<size_t>(w) * h, 0);
        m_saveWidth = w;
        m_saveHeight = h;
    }
}

// One pass per row: the pixels under each ink run are saved, then the run written over them
// while the row is still in the cache. Pixels the image leaves transparent are neither saved
// nor restored.
void VyScreenCursor::saveAndDraw(VyPoint topLeft) {
    if (m_image.isNull() || !m_base)
        return;
    prepareSaveUnder();
    m_savedAt = topLeft;
    m_saved = true;
    const VyRect r = clippedArea(topLeft);
    // Off the screen on either axis (a remote pointer may say so): nothing to save or draw.
    if (r.isEmpty())
        return;
    m_touched = m_touched.united(r);
    const int w = m_saveWidth;
    const int first = r.left - topLeft.x; // visible image columns first .. last
    const int last = r.right - topLeft.x;
    const size_t pitch = static_cast<size_t>(m_lineLength) / sizeof(uint16_t);
    const std::pair<int, int>* runs = m_runs.data();
    const int* rowRuns = m_rowRuns.data();
    // All three at the first visible column: the screen's r.left, the image's `first`.
    uint16_t* line =
        reinterpret_cast<uint16_t*>(m_base) + static_cast<size_t>(r.top) * pitch + r.left;
    const size_t firstRow = static_cast<size_t>(r.top - topLeft.y);
    uint16_t* saved = m_saveUnder.data() + firstRow * w + first;
    const uint16_t* ink = m_ink.data() + firstRow * w + first;
    for (int iy = int(firstRow); iy <= r.bottom - topLeft.y;
         ++iy, line += pitch, saved += w, ink += w) {
        const int runEnd = rowRuns[iy + 1];
        for (int i = rowRuns[iy]; i < runEnd; ++i) {
            const int from = std::max(runs[i].first, first);
            const int to = std::min(runs[i].first + runs[i].second - 1, last);
            if (from > to)
                continue;
            copyPixels(saved + (from - first), line + (from - first), to - from + 1);
            copyPixels(line + (from - first), ink + (from - first), to - from + 1);
        }
    }
}

void VyScreenCursor::prepareInk() {
    // Converted once per image, so that a move copies runs of ready pixels instead of
    // converting every pixel again.
    const int w = m_image.width();
    const int h = m_image.height();
    m_ink.assign(static_cast<size_t>(w) * h, 0);
    m_runs.clear();
    m_rowRuns.assign(static_cast<size_t>(h) + 1, 0);
    const uint8_t* src = m_image.constBits();
    for (int y = 0; y < h; ++y) {
        m_rowRuns[y] = static_cast<int>(m_runs.size());
        int runStart = -1;
        for (int x = 0; x <= w; ++x) {
            const uint8_t* p = x < w ? src + (static_cast<size_t>(y) * w + x) * 4 : nullptr;
            // No blending: every pixel that is not fully transparent is drawn full, top
            // bit set; fully transparent ones leave the framebuffer as it is.
            const bool ink = p && p[3] != 0;
            if (ink) {
                m_ink[static_cast<size_t>(y) * w + x] = static_cast<uint16_t>(
                    0x8000 | (p[0] >> 3) << 10 | (p[1] >> 3) << 5 | (p[2] >> 3));
                if (runStart < 0)
                    runStart = x;
            } else if (runStart >= 0) {
                m_runs.push_back({runStart, x - runStart});
                runStart = -1;
            }
        }
    }
    m_rowRuns[h] = static_cast<int>(m_runs.size());
    m_opaque = w > 0 && static_cast<int>(m_runs.size()) == h &&
               std::all_of(m_runs.begin(), m_runs.end(), [w](const std::pair<int, int>& r) {
                   return r.first == 0 && r.second == w;
               });
}
