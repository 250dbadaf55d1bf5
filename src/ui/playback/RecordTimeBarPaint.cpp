#include "ui/playback/RecordTimeBar.h"

#include "runtime/VyBitmap.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"
#include "ui/UiLook.h"

#include <algorithm>

namespace {

constexpr uint32_t bit(int n) {
    return 1u << n;
}

// Bits 6 to 11: analytics record types. A segment (or a filter) whose types are all of these
// is not "mixed": one analytics event often sets several of them at once.
constexpr uint32_t kAnalyticsTypes = 0xFC0u;
constexpr uint32_t kBit31 = 0x80000000u;

constexpr vyargb rgb(int r, int g, int b) {
    return 0xFF000000u | uint32_t(r) << 16 | uint32_t(g) << 8 | uint32_t(b);
}

int popcount(uint32_t v) {
    return __builtin_popcount(v);
}

// Adds a rectangle to a region kept as a list; a rectangle that continues the last one on
// the same row joins it, so that thousands of short segments of a day become a few spans.
void addRect(std::vector<VyRect>& region, const VyRect& r) {
    if (!region.empty()) {
        VyRect& last = region.back();
        if (last.top == r.top && last.height() == r.height() && r.left >= last.left &&
            r.left <= last.right + 1) {
            if (r.right > last.right)
                last.right = r.right;
            return;
        }
    }
    region.push_back(r);
}

float scaleOf(bool horizontal) {
    VyApplication* app = VyApplication::instance();
    VyScreen* screen = app != nullptr ? app->screen() : nullptr;
    if (screen == nullptr)
        return 1.0f;
    return horizontal ? screen->horizontalScale() : screen->verticalScale();
}

} // namespace

vyargb RecordTimeBar::regionColour(int region) {
    switch (region) {
    case 0:
    case 13:
        return rgb(0, 180, 70);
    case 1:
        return rgb(222, 208, 52);
    case 2:
        return rgb(255, 55, 55);
    case 31:
        return rgb(255, 120, 0);
    case 12:
        return rgb(158, 51, 255);
    case 6:
    case 7:
    case 8:
    case 9:
    case 10:
    case 11:
    case 14:
    case 15:
    case 16:
        return rgb(0, 180, 255);
    case kMode5Region:
        return rgb(0, 85, 255);
    case 21:
        return rgb(71, 153, 218);
    case kMixedRegion:
        return rgb(255, 120, 0);
    default:
        return 0;
    }
}

const std::vector<int>& RecordTimeBar::fillOrder() {
    static const std::vector<int> order = {0,  1,  2,  31, 12,           6,  7,  8,           9, 10,
                                           16, 11, 14, 15, kMode5Region, 13, 21, kMixedRegion};
    return order;
}

uint32_t RecordTimeBar::effectiveTypes(const RecordSegment& segment) const {
    uint32_t types = segment.typeBits;
    if (m_features.analyticsRecords && m_analyticsFilter != 0 &&
        (segment.analyticsBits & m_analyticsFilter) == 0)
        types &= ~bit(1);
    return types;
}

bool RecordTimeBar::isMixed(uint32_t types) const {
    uint32_t enabled = types & m_typeFilter & ~bit(0);
    if (!m_features.bit31Colour)
        enabled |= types & kBit31;
    return popcount(enabled) >= 2 && (enabled & ~kAnalyticsTypes) != 0;
}

bool RecordTimeBar::isRegionFilled(int region) const {
    if (region == kMode5Region)
        return m_mode == 5;
    if (region == kMixedRegion) {
        const uint32_t enabled = m_typeFilter & ~bit(0);
        return popcount(enabled) >= 2 && (enabled & ~kAnalyticsTypes) != 0;
    }
    if (region == 31 && !m_features.bit31Colour)
        return false;
    return region >= 0 && region < 32 && (m_typeFilter & bit(region)) != 0;
}

std::vector<std::vector<VyRect>> RecordTimeBar::recordRegions() const {
    std::vector<std::vector<VyRect>> regions(kMixedRegion + 1);
    if (m_usableWidth <= 0)
        return regions;
    const VyDateTime end = viewEnd();
    const int trackLeft = m_leftMargin + m_centringOffset;
    const int trackRight = trackLeft + m_usableWidth; // exclusive
    for (int r = 0; r < rowsShown(); ++r) {
        const VyRect band = rowTrack(r);
        if (band.height() <= 0)
            continue;
        for (const RecordSegment& s : m_channels[size_t(m_firstRow) + size_t(r)].segments) {
            // Segments that end before they start, or lie outside the view, draw nothing.
            if (!(s.start < s.end) || s.end <= m_origin || s.start >= end)
                continue;
            const uint32_t types = effectiveTypes(s);
            int x1 = timeToX(s.start < m_origin ? m_origin : s.start);
            int x2 = timeToX(s.end > end ? end : s.end);
            x1 = std::max(trackLeft, std::min(x1, trackRight - 1));
            // A segment shorter than a pixel still shows as one.
            x2 = std::max(x1 + 1, std::min(x2, trackRight));
            const VyRect rect(x1, band.top, x2 - x1, band.height());
            for (uint32_t t = types; t != 0; t &= t - 1)
                addRect(regions[size_t(__builtin_ctz(t))], rect);
            if (m_mode == 5)
                addRect(regions[kMode5Region], rect);
            if (isMixed(types))
                addRect(regions[kMixedRegion], rect);
        }
    }
    return regions;
}

void RecordTimeBar::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_look.background);
    // A pending recentring moves the origin before anything is placed.
    firstTickX(m_secsPerMajor);
    paintHeader(c);
    paintRows(c);
    paintOverlays(c);
    paintBottomBand(c);
}

void RecordTimeBar::paintHeader(VyCanvas* c) {
    const int font = std::max(8, UiLook::instance().fontPixelSize() * 3 / 4);
    const int bottom = m_headerHeight;
    const int majorLength = std::max(2, m_headerHeight / 3);
    const int minorLength = std::max(1, m_headerHeight / 6);
    for (const Tick& t : ticks(m_secsPerMinor))
        c->drawLine(t.x, bottom - minorLength, t.x, bottom - 1, m_look.minorTick);
    const int labelWidth = int(float(std::max(1, m_secsPerMajor)) * m_pixelsPerSecond);
    for (const Tick& t : ticks(m_secsPerMajor)) {
        c->drawLine(t.x, bottom - majorLength, t.x, bottom - 1, m_look.majorTick);
        const VyRect label(t.x - labelWidth / 2, 0, labelWidth, bottom - majorLength);
        c->drawText(label, VyCanvas::AlignCenter, t.time.toString("hh:mm"), font, m_look.text);
    }
}

void RecordTimeBar::paintRows(VyCanvas* c) {
    const int font = std::max(8, UiLook::instance().fontPixelSize() * 3 / 4);
    const VyBitmap eye = VyStyle::instance()->image(kEyeImage);
    for (int r = 0; r < rowsShown(); ++r) {
        const int row = m_firstRow + r;
        const VyRect band = rowBand(r);
        const VyRect label(0, band.top, m_leftMargin, band.height());
        if (row == m_selectedRow) {
            c->fillRect(label, m_look.border);
            if (!eye.isNull() && eye.height() <= band.height())
                c->drawImage(1, band.top + (band.height() - eye.height()) / 2, eye);
        }
        const VyString number = VyString::number(m_channels[size_t(row)].channel + 1);
        c->drawText(VyRect(label.left, label.top, label.width() - 2, label.height()),
                    VyCanvas::AlignRight | VyCanvas::AlignVCenter, number, font,
                    m_look.channelText);
        c->fillRect(rowTrack(r), m_look.trackBackground);
    }
    // Major grid lines under the records, so that a segment's time can be read off.
    const VyRect track = trackRect();
    for (const Tick& t : ticks(m_secsPerMajor))
        c->drawLine(t.x, track.top, t.x, track.top + track.height() - 1, m_look.border);
    const auto regions = recordRegions();
    for (int region : fillOrder()) {
        if (!isRegionFilled(region))
            continue;
        const vyargb colour = regionColour(region);
        for (const VyRect& rect : regions[size_t(region)])
            c->fillRect(rect, colour);
    }
}

void RecordTimeBar::paintOverlays(VyCanvas* c) {
    const VyRect track = trackRect();
    const int trackRight = track.left + track.width();
    auto span = [&](const VyDateTime& from, const VyDateTime& to, vyargb colour) {
        if (!(from < to) || to <= m_origin || from >= viewEnd())
            return;
        const int x1 = std::max(track.left, timeToX(from < m_origin ? m_origin : from));
        const int x2 = std::min(trackRight, timeToX(to > viewEnd() ? viewEnd() : to));
        if (x2 > x1)
            c->fillRect(VyRect(x1, track.top, x2 - x1, track.height()), colour);
    };
    if (m_hasHighlight) {
        const uint8_t* k = m_highlight.colour;
        const vyargb colour = k[0] != 0
                                  ? (uint32_t(k[4]) << 24 | (rgb(k[1], k[2], k[3]) & 0xFFFFFFu))
                                  : m_look.highlight;
        span(m_highlight.start, m_highlight.end, colour);
    }
    // Mode 2 marks one block of the period, counted from the first channel's earliest start.
    if (m_mode == 2 && m_periodSeconds > 0 && !m_channels.empty()) {
        VyDateTime earliest;
        for (const RecordSegment& s : m_channels.front().segments) {
            if (s.start.isValid() && (!earliest.isValid() || s.start < earliest))
                earliest = s.start;
        }
        if (earliest.isValid()) {
            const VyDateTime from = earliest.addSecs((long long)m_blockIndex * m_periodSeconds);
            span(from, from.addSecs(m_periodSeconds), m_look.highlight);
        }
    }
    if (m_clipMode) {
        const VyBitmap marker = VyStyle::instance()->image(kClipMarkerImage);
        const vyargb range = (m_look.cursor & 0xFFFFFF) | 0x3C000000u;
        if (m_clipStart.isValid() && m_clipEnd.isValid())
            span(m_clipStart, m_clipEnd, range);
        for (const VyDateTime* t : {&m_clipStart, &m_clipEnd}) {
            if (!t->isValid() || *t < m_origin || *t > viewEnd())
                continue;
            const int x = timeToX(*t);
            c->drawLine(x, track.top, x, track.top + track.height() - 1, m_look.cursor);
            if (!marker.isNull())
                c->drawImage(x - marker.width() / 2, track.top - marker.height(), marker);
        }
    }
    if (m_cursor >= m_origin && m_cursor <= viewEnd()) {
        const int x = timeToX(m_cursor);
        c->setPenWidth(std::max(1, int(2 * scaleOf(true))));
        c->drawLine(x, track.top, x, track.top + track.height() - 1, m_look.cursor);
        c->setPenWidth(1);
    }
}

void RecordTimeBar::paintBottomBand(VyCanvas* c) {
    const int top = height() - m_bottomHeight;
    const int font = std::max(8, UiLook::instance().fontPixelSize() * 3 / 4);
    c->drawLine(0, top, width() - 1, top, m_look.border);
    if (m_navVisible) {
        VyStyle* style = VyStyle::instance();
        const VyBitmap prev = style->image(isPreviousEnabled() ? kPrevImage : kPrevDisabledImage);
        const VyBitmap next = style->image(isNextEnabled() ? kNextImage : kNextDisabledImage);
        if (!prev.isNull())
            c->drawImage(previousButtonRect(), prev);
        if (!next.isNull())
            c->drawImage(nextButtonRect(), next);
    }
    // The cursor's time under the cursor, kept inside the track.
    const VyRect track = trackRect();
    const int textWidth = int(float(8 * font) * 0.65f);
    int x = timeToX(m_cursor) - textWidth / 2;
    x = std::max(track.left, std::min(x, track.left + track.width() - textWidth));
    c->drawText(VyRect(x, top, textWidth, m_bottomHeight), VyCanvas::AlignCenter,
                m_cursor.toString("hh:mm:ss"), font, m_look.cursor);
}
