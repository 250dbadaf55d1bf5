#include "toolkit/core/VyScreenCursor.h"

#include <algorithm>
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

// A cursor row is a few dozen pixels: fixed 16-byte copies (one vector move each) beat a
// call to memcpy with a size it cannot see.
inline void copyPixels(uint16_t* to, const uint16_t* from, int count) {
    constexpr int kChunk = 8; // pixels in 16 bytes
    for (; count >= kChunk; count -= kChunk, to += kChunk, from += kChunk)
        std::memcpy(to, from, kChunk * sizeof(uint16_t));
    for (; count > 0; --count)
        *to++ = *from++;
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
    if (m_shown && m_base) {
        save(m_position - m_hotspot);
        draw();
    }
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
        restore();
        redrawIfShown();
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

void VyScreenCursor::save(VyPoint topLeft) {
    if (m_image.isNull() || !m_base)
        return;
    const int w = m_image.width();
    const int h = m_image.height();
    if (w != m_saveWidth || h != m_saveHeight) {
        m_saveUnder.assign(static_cast<size_t>(w) * h, 0);
        m_saveWidth = w;
        m_saveHeight = h;
    }
    m_savedAt = topLeft;
    m_saved = true;
    const VyRect r = clippedArea(topLeft);
    // Off the screen on either axis (a remote pointer may say so): nothing to save.
    if (r.isEmpty())
        return;
    for (int y = r.top; y <= r.bottom; ++y) {
        const uint8_t* line = m_base + static_cast<size_t>(y) * m_lineLength;
        copyPixels(&m_saveUnder[(y - topLeft.y) * w + (r.left - topLeft.x)],
                   reinterpret_cast<const uint16_t*>(line) + r.left, r.width());
    }
}

void VyScreenCursor::restore() {
    if (!m_saved || !m_base)
        return;
    const VyRect r = clippedArea(m_savedAt);
    if (r.isEmpty())
        return;
    m_touched = m_touched.united(r);
    for (int y = r.top; y <= r.bottom; ++y) {
        uint8_t* line = m_base + static_cast<size_t>(y) * m_lineLength;
        copyPixels(reinterpret_cast<uint16_t*>(line) + r.left,
                   &m_saveUnder[(y - m_savedAt.y) * m_saveWidth + (r.left - m_savedAt.x)],
                   r.width());
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
}

void VyScreenCursor::draw() {
    if (m_image.isNull() || !m_shown || !m_base)
        return;
    const VyPoint topLeft = m_position - m_hotspot;
    const int w = m_image.width();
    const VyRect r = VyRect(topLeft, VySize(w, m_image.height()))
                         .intersected(VyRect(0, 0, m_screenWidth, m_screenHeight));
    if (r.isEmpty())
        return;
    m_touched = m_touched.united(r);
    const int first = r.left - topLeft.x; // visible image columns first .. last
    const int last = r.right - topLeft.x;
    for (int y = r.top; y <= r.bottom; ++y) {
        const int iy = y - topLeft.y;
        uint16_t* line =
            reinterpret_cast<uint16_t*>(m_base + static_cast<size_t>(y) * m_lineLength);
        const uint16_t* ink = &m_ink[static_cast<size_t>(iy) * w];
        for (int i = m_rowRuns[iy]; i < m_rowRuns[iy + 1]; ++i) {
            const int from = std::max(m_runs[i].first, first);
            const int to = std::min(m_runs[i].first + m_runs[i].second - 1, last);
            if (from <= to)
                copyPixels(line + (topLeft.x + from), ink + from, to - from + 1);
        }
    }
}
