#include "ui/playback/RecordTimeBar.h"
#include "ui/UiLook.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyScreen.h"
#include "toolkit/widgets/VyScrollBar.h"

#include <algorithm>
#include <cmath>

namespace {

float screenScale(bool horizontal) {
    VyApplication* app = VyApplication::instance();
    VyScreen* screen = app != nullptr ? app->screen() : nullptr;
    if (screen == nullptr)
        return 1.0f;
    return horizontal ? screen->horizontalScale() : screen->verticalScale();
}

} // namespace

RecordTimeBar::RecordTimeBar(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
    loadLook();
    updateMetrics();
    const VyDate today = VyDate::currentDate();
    m_rangeStart = VyDateTime(today);
    m_rangeEnd = VyDateTime(today.addDays(1));
    m_origin = m_rangeStart;
    m_cursor = m_rangeStart;
    computeScale(true);
}

RecordTimeBar::~RecordTimeBar() = default;

void RecordTimeBar::loadLook() {
    // Colours come from the bar's own sheet under its class name; the shared widget sheet
    // gives the background when the bar's sheet lacks one.
    const VyString section = className() + "/";
    const VyIniSettings widget(VyResources::path(kWidgetStyleFile));
    m_look.background = UiLook::colourOr(widget, "UiWidget/Background", m_look.background);
    const VyIniSettings ini(VyResources::path(kStyleFile));
    m_look.background = UiLook::colourOr(ini, section + "Background", m_look.background);
    m_look.trackBackground =
        UiLook::colourOr(ini, section + "Track/Background", m_look.trackBackground);
    m_look.border = UiLook::colourOr(ini, section + "Border", m_look.border);
    m_look.majorTick = UiLook::colourOr(ini, section + "Tick/Major", m_look.majorTick);
    m_look.minorTick = UiLook::colourOr(ini, section + "Tick/Minor", m_look.minorTick);
    m_look.text = UiLook::colourOr(ini, section + "Text/Foreground", m_look.text);
    m_look.cursor = UiLook::colourOr(ini, section + "Cursor", m_look.cursor);
    m_look.channelText = UiLook::colourOr(ini, section + "Channel/Foreground", m_look.channelText);
    m_look.highlight = UiLook::colourOr(ini, section + "Highlight", m_look.highlight);
}

void RecordTimeBar::updateMetrics() {
    const float sx = screenScale(true);
    const float sy = screenScale(false);
    m_leftMargin = int(kLabelColumnDesign * sx);
    m_scrollBarWidth = uint8_t(int(kScrollBarDesign * sx));
    m_rightMargin = int(kRightGapDesign * sx + float(m_scrollBarWidth));
    m_headerHeight = int(kHeaderDesign * sy);
    m_bottomHeight = int(kBottomBandDesign * sy);
}

void RecordTimeBar::computeScale(bool resetOrigin) {
    m_trackWidth = std::max(0, width() - m_leftMargin - m_rightMargin);
    m_usableWidth = m_trackWidth / kTrackQuantum * kTrackQuantum;
    m_centringOffset = m_trackWidth % kTrackQuantum / 2;
    if (m_usableWidth > 0) {
        m_pixelsPerSecond = float(m_usableWidth) / float(m_span);
        m_secondsPerPixel = float(m_span) / float(m_usableWidth);
    } else {
        m_pixelsPerSecond = 0;
        m_secondsPerPixel = 0;
    }
    const long long days = std::max(1LL, m_rangeStart.daysTo(m_rangeEnd));
    const long long total = kDaySeconds * days;
    m_majorCount = int(double(total) / double(m_span) * kMajorPerSpan);
    m_minorCount = kMinorPerMajor * m_majorCount;
    m_secsPerMajor = m_majorCount > 0 ? int(total / m_majorCount) : 0;
    m_secsPerMinor = m_minorCount > 0 ? int(total / m_minorCount) : 0;
    ++m_majorCount; // the closing tick at the right edge
    if (resetOrigin)
        m_origin = m_rangeStart;
}

bool RecordTimeBar::setDateRange(const VyDate& startDate, const VyDate& endDate) {
    if (!startDate.isValid()) {
        VY_GUI_LOG("invalid start date !!!\n");
        return false;
    }
    if (endDate.isValid() && endDate < startDate) {
        VY_GUI_LOG("end date %s before start date %s !!!\n", endDate.toString("yyyy/MM/dd").c_str(),
                   startDate.toString("yyyy/MM/dd").c_str());
        return false;
    }
    m_rangeStart = VyDateTime(startDate);
    m_rangeEnd = VyDateTime((endDate.isValid() ? endDate : startDate).addDays(1));
    m_origin = m_rangeStart;
    m_navVisible = m_rangeStart.daysTo(m_rangeEnd) >= 2;
    m_cursor = clampToRange(m_cursor);
    computeScale(true);
    update();
    return true;
}

bool RecordTimeBar::setSpan(uint32_t seconds) {
    if (seconds == 0) {
        VY_GUI_LOG("span 0 refused !!!\n");
        return false;
    }
    m_span = seconds;
    VyDateTime anchor = m_origin;
    if (m_multiChannel && m_selectedRow >= 0 && m_selectedRow < int(m_channels.size())) {
        const auto& segments = m_channels[size_t(m_selectedRow)].segments;
        VyDateTime earliest;
        for (const RecordSegment& s : segments) {
            if (s.start.isValid() && (!earliest.isValid() || s.start < earliest))
                earliest = s.start;
        }
        if (earliest.isValid())
            anchor = earliest;
    }
    computeScale(true);
    if (anchor < m_origin || anchor >= viewEnd())
        setOriginClamped(anchor);
    m_recentrePending = true;
    update();
    return true;
}

void RecordTimeBar::setChannels(const std::vector<RecordChannel>& channels,
                                uint32_t periodSeconds) {
    m_channels = channels;
    m_periodSeconds = periodSeconds;
    m_selectedRow = m_channels.empty() ? -1 : 0;
    m_firstRow = 0;
    updateScrollBar();
    update();
}

void RecordTimeBar::setMode(bool multiChannel, uint32_t mode) {
    m_multiChannel = multiChannel;
    m_mode = mode;
    switch (mode) {
    case 0:
        m_rowsPerPage = multiChannel ? 8 : 4;
        break;
    case 1:
    case 4:
    case 6:
    case 7:
    case 9:
    case 10:
        m_rowsPerPage = 1;
        break;
    case 2:
    case 5:
        m_rowsPerPage = 2;
        break;
    default: // 3, 8 and every mode above 10
        m_rowsPerPage = 4;
        break;
    }
    updateScrollBar();
    update();
}

void RecordTimeBar::selectChannel(int channel, int position) {
    m_selectedRow = -1;
    for (size_t i = 0; i < m_channels.size(); ++i) {
        if (m_channels[i].channel == channel) {
            m_selectedRow = int(i);
            break;
        }
    }
    m_blockIndex = position;
    if (m_selectedRow >= 0)
        scrollToRow(m_selectedRow);
    if (m_multiChannel && m_spanSource)
        setSpan(m_spanSource());
    update();
}

void RecordTimeBar::scrollToRow(int row) {
    // The scroll position names the last row of the page that holds `row`; the page shown
    // ends there.
    const int last = std::max(0, int(m_channels.size()) - 1);
    const int pages = (row + 1 + m_rowsPerPage - 1) / m_rowsPerPage;
    const int position = std::min(m_rowsPerPage * pages - 1, last);
    m_firstRow = std::max(0, position - m_rowsPerPage + 1);
    if (m_scrollBar != nullptr)
        m_scrollBar->setValue(m_firstRow);
}

void RecordTimeBar::setTypeFilter(uint32_t mask) {
    if (mask == m_typeFilter)
        return;
    m_typeFilter = mask;
    update();
}

void RecordTimeBar::setAnalyticsFilter(uint32_t mask) {
    if (mask == m_analyticsFilter)
        return;
    m_analyticsFilter = mask;
    update();
}

void RecordTimeBar::setHighlight(const RecordHighlight& period) {
    m_highlight = period;
    m_hasHighlight = period.start.isValid() && period.end.isValid() && period.start < period.end;
    update();
}

void RecordTimeBar::clearHighlight() {
    m_hasHighlight = false;
    update();
}

void RecordTimeBar::setDeviceFeatures(const DeviceFeatures& features) {
    m_features = features;
    update();
}

void RecordTimeBar::setCursorTime(const VyDateTime& time) {
    if (!time.isValid())
        return;
    const VyDateTime t = clampToRange(time);
    if (t == m_cursor)
        return;
    m_cursor = t;
    update();
}

void RecordTimeBar::setClipMode(bool on) {
    m_clipMode = on;
    m_clipStart = VyDateTime();
    m_clipEnd = VyDateTime();
    m_pendingClipTime = VyDateTime();
    m_pressedRow = -1;
    update();
}

void RecordTimeBar::setClipRange(const VyDateTime& start, const VyDateTime& end) {
    if (start.isValid() && end.isValid() && end < start) {
        m_clipStart = clampToRange(end);
        m_clipEnd = clampToRange(start);
    } else {
        m_clipStart = start.isValid() ? clampToRange(start) : VyDateTime();
        m_clipEnd = end.isValid() ? clampToRange(end) : VyDateTime();
    }
    update();
}

bool RecordTimeBar::isPreviousEnabled() const {
    return m_navVisible && m_origin > m_rangeStart;
}

bool RecordTimeBar::isNextEnabled() const {
    return m_navVisible && viewEnd() < m_rangeEnd;
}

void RecordTimeBar::showPrevious() {
    if (!isPreviousEnabled())
        return;
    setOriginClamped(m_origin.addSecs(-(long long)m_span));
    emitSignal(this, &viewMoved);
    update();
}

void RecordTimeBar::showNext() {
    if (!isNextEnabled())
        return;
    setOriginClamped(m_origin.addSecs(m_span));
    emitSignal(this, &viewMoved);
    update();
}

void RecordTimeBar::setOriginClamped(const VyDateTime& origin) {
    const VyDateTime latest = m_rangeEnd.addSecs(-(long long)m_span);
    VyDateTime o = origin;
    if (o > latest)
        o = latest;
    if (o < m_rangeStart)
        o = m_rangeStart;
    m_origin = o;
}

VyDateTime RecordTimeBar::clampToRange(const VyDateTime& time) const {
    if (!time.isValid() || time < m_rangeStart)
        return m_rangeStart;
    // The last second of the range: the range end itself is the next day's midnight.
    const VyDateTime last = m_rangeEnd.addSecs(-1);
    return time > last ? last : time;
}

int RecordTimeBar::timeToX(const VyDateTime& time) const {
    const long long secs = m_origin.secsTo(time);
    return int(float(m_leftMargin + m_centringOffset) + float(secs) * m_pixelsPerSecond);
}

VyDateTime RecordTimeBar::xToTime(int x) const {
    return m_origin.addSecs(
        (long long)(float(x - m_leftMargin - m_centringOffset) * m_secondsPerPixel));
}

int RecordTimeBar::firstTickX(int intervalSeconds) {
    if (m_recentrePending && m_span != kDaySeconds) {
        const VyDateTime dayStart(m_cursor.date());
        const long long half = m_span / 2;
        if (dayStart.secsTo(m_cursor) > half && m_cursor.secsTo(dayStart.addDays(1)) > half)
            m_origin = m_cursor.addSecs(-half);
    }
    m_recentrePending = false;
    const int trackLeft = m_leftMargin + m_centringOffset;
    if (intervalSeconds <= 0)
        return trackLeft;
    const long long rem = m_rangeStart.secsTo(m_origin) % intervalSeconds;
    if (rem == 0)
        return trackLeft;
    return trackLeft + int(std::trunc(float(intervalSeconds - rem) * m_pixelsPerSecond + 0.5f));
}

std::vector<RecordTimeBar::Tick> RecordTimeBar::ticks(int intervalSeconds) {
    std::vector<Tick> out;
    const int first = firstTickX(intervalSeconds);
    if (intervalSeconds <= 0 || m_usableWidth <= 0)
        return out;
    const long long rem = m_rangeStart.secsTo(m_origin) % intervalSeconds;
    const long long firstSecs = rem == 0 ? 0 : intervalSeconds - rem;
    const int trackLeft = m_leftMargin + m_centringOffset;
    out.push_back({first, m_origin.addSecs(firstSecs)});
    for (long long secs = firstSecs + intervalSeconds; secs <= m_span; secs += intervalSeconds)
        out.push_back({trackLeft + int(std::trunc(float(secs) * m_pixelsPerSecond + 0.5f)),
                       m_origin.addSecs(secs)});
    return out;
}

VyRect RecordTimeBar::trackRect() const {
    return VyRect(m_leftMargin + m_centringOffset, m_headerHeight, m_usableWidth,
                  std::max(0, height() - m_headerHeight - m_bottomHeight));
}

int RecordTimeBar::rowsShown() const {
    const int left = int(m_channels.size()) - m_firstRow;
    return std::max(0, std::min(left, m_rowsPerPage));
}

VyRect RecordTimeBar::rowBand(int pageRow) const {
    const int area = std::max(0, height() - m_headerHeight - m_bottomHeight);
    const int rowHeight = area / std::max(1, m_rowsPerPage);
    return VyRect(0, m_headerHeight + pageRow * rowHeight, std::max(0, width() - m_scrollBarWidth),
                  rowHeight);
}

VyRect RecordTimeBar::rowTrack(int pageRow) const {
    const VyRect band = rowBand(pageRow);
    const int pad = std::max(1, band.height() / 6);
    return VyRect(m_leftMargin + m_centringOffset, band.top + pad, m_usableWidth,
                  std::max(0, band.height() - 2 * pad));
}

int RecordTimeBar::rowAt(int y) const {
    for (int r = 0; r < rowsShown(); ++r) {
        const VyRect band = rowBand(r);
        if (y >= band.top && y < band.top + band.height())
            return r;
    }
    return -1;
}

VyRect RecordTimeBar::previousButtonRect() const {
    const int w = int(kNavButtonDesign * screenScale(true));
    const int h = int(kNavButtonDesign * screenScale(false));
    const int y = height() - m_bottomHeight + (m_bottomHeight - h) / 2;
    return VyRect(std::max(0, (m_leftMargin - w) / 2), y, w, h);
}

VyRect RecordTimeBar::nextButtonRect() const {
    const VyRect prev = previousButtonRect();
    return VyRect(width() - prev.width(), prev.top, prev.width(), prev.height());
}

VyRect RecordTimeBar::clipGrabBox(int markerX) const {
    const float sx = screenScale(true);
    const float sy = screenScale(false);
    const int w = int(kClipGrabWidthDesign * sx);
    const VyRect track = trackRect();
    const int top = track.top - int(kClipGrabAboveDesign * sy);
    const int bottom = track.top + track.height() + int(kClipGrabBelowDesign * sy);
    return VyRect(markerX - w / 2, top, w, bottom - top);
}

void RecordTimeBar::updateScrollBar() {
    const int count = int(m_channels.size());
    if (count > m_rowsPerPage) {
        if (m_scrollBar == nullptr) {
            m_scrollBar = new VyScrollBar(VyScrollBar::Vertical, this);
            connect(m_scrollBar, &m_scrollBar->valueChanged, this,
                    VY_SLOT(RecordTimeBar, onScrollBarValueChanged));
        }
        const VyRect band = rowBand(0);
        m_scrollBar->setGeometry(width() - m_scrollBarWidth, band.top, m_scrollBarWidth,
                                 band.height() * m_rowsPerPage);
        m_scrollBar->setRange(0, count - m_rowsPerPage);
        m_scrollBar->setPageStep(m_rowsPerPage);
        m_scrollBar->setValue(m_firstRow);
        m_scrollBar->show();
    } else if (m_scrollBar != nullptr) {
        delete m_scrollBar;
        m_scrollBar = nullptr;
    }
    m_firstRow = std::max(0, std::min(m_firstRow, count - m_rowsPerPage));
}

void RecordTimeBar::onScrollBarValueChanged() {
    if (m_scrollBar == nullptr || m_scrollBar->value() == m_firstRow)
        return;
    m_firstRow = m_scrollBar->value();
    update();
}

void RecordTimeBar::resizeEvent(VyResizeEvent*) {
    updateMetrics();
    computeScale(false);
    setOriginClamped(m_origin);
    updateScrollBar();
}
