#pragma once
// The bar under the playback video: for a page of channel rows, where recordings exist on a
// time axis, coloured by record type, with the cursor that chooses the playback position.
// It owns the time scale (one day, zoomable to two hours, one hour and thirty minutes), the
// conversion between time and pixels, the ticks and labels, the row paging and the day
// navigation. The playback window feeds it the segments App found and the zoom it chose.
//
// Geometry, top to bottom: the header with the tick labels and ticks, the channel rows
// (label column | track | scroll bar), the bottom band with the navigation buttons and the
// cursor time. The track is a whole multiple of 60 pixels, centred in the space left by
// the margins, so that every tick falls on a whole pixel at every span.
#include "model/RecordChannel.h"
#include "runtime/VyDateTime.h"
#include "runtime/VyRect.h"
#include "toolkit/core/VyWidget.h"

#include <cstdint>
#include <functional>
#include <vector>

class VyScrollBar;

// A stretch of time marked over the track (a found event, a tag).
struct RecordHighlight {
    VyDateTime start;
    VyDateTime end;
    uint32_t words[3] = {0, 0, 0}; // kept for the owner (channel, event id, flags)
    // [0] non-zero: draw in the colour [1..3] (RGB) with alpha [4]; [5], [6] kept.
    uint8_t colour[7] = {0, 0, 0, 0, 0, 0, 0};
};

class RecordTimeBar : public VyWidget {
    VY_OBJECT(RecordTimeBar, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/recordtimebar.ini";
    static constexpr const char* kWidgetStyleFile = "style/uiwidget.ini";
    static constexpr const char* kPrevImage = "images/prev.png";
    static constexpr const char* kPrevDisabledImage = "images/prev_disable.png";
    static constexpr const char* kNextImage = "images/next.png";
    static constexpr const char* kNextDisabledImage = "images/next_disable.png";
    static constexpr const char* kEyeImage = "images/eye.png";
    static constexpr const char* kClipMarkerImage = "images/cut_top.png";
    static constexpr const char* kDropCursorImage = "cursor-image/cursor-drop.png";

    static constexpr uint32_t kDaySeconds = 86400;
    // The four zoom levels of the playback window's buttons, widest first.
    static constexpr uint32_t kSpans[4] = {86400, 7200, 3600, 1800};
    // Every span shows this many major intervals of kMinorPerMajor minor ones.
    static constexpr int kMajorPerSpan = 12;
    static constexpr int kMinorPerMajor = 5;
    // The track is cut to a whole multiple of this many pixels.
    static constexpr int kTrackQuantum = 60;

    // Metrics at 1920x1080, scaled by the screen's factors.
    static constexpr int kLabelColumnDesign = 60;
    static constexpr int kScrollBarDesign = 18;
    static constexpr int kRightGapDesign = 7;
    static constexpr int kHeaderDesign = 26;
    static constexpr int kBottomBandDesign = 22;
    static constexpr int kNavButtonDesign = 24;
    static constexpr int kClipGrabWidthDesign = 12;
    static constexpr int kClipGrabAboveDesign = 9;
    static constexpr int kClipGrabBelowDesign = 18;

    // Per-model switches of the device profile.
    struct DeviceFeatures {
        bool bit31Colour = false;      // bit 31 has its own colour (else it only counts as mixed)
        bool analyticsRecords = false; // the analytics filter applies to motion recordings
        bool busyCheck = false;        // a row change is refused while the screen is busy
    };

    explicit RecordTimeBar(VyWidget* parent = nullptr);
    ~RecordTimeBar() override;

    // False, and no change, for an invalid start or an end before it. An invalid end shows
    // the start day alone.
    bool setDateRange(const VyDate& startDate, const VyDate& endDate = VyDate());
    // Seconds across the visible track; 0 (no zoom button checked) is refused.
    bool setSpan(uint32_t seconds);
    void setChannels(const std::vector<RecordChannel>& channels, uint32_t periodSeconds = 0);
    void setMode(bool multiChannel, uint32_t mode);
    void selectChannel(int channel, int position = 0);
    void setTypeFilter(uint32_t mask);
    void setAnalyticsFilter(uint32_t mask);
    void setHighlight(const RecordHighlight& period);
    void clearHighlight();
    void setDeviceFeatures(const DeviceFeatures& features);
    // Asked before a press on a label column changes the row (devices with busyCheck).
    void setBusyProbe(std::function<bool()> probe) { m_busyProbe = std::move(probe); }
    // The span the playback window's zoom buttons stand for, re-applied by selectChannel.
    void setSpanSource(std::function<uint32_t()> source) { m_spanSource = std::move(source); }

    // The playback position, kept inside the range; follows playback without recentring.
    void setCursorTime(const VyDateTime& time);
    void setClipMode(bool on);
    void setClipRange(const VyDateTime& start, const VyDateTime& end);
    // Moves the view by one visible span (a day at the widest zoom), inside the range.
    void showPrevious();
    void showNext();

    int timeToX(const VyDateTime& time) const;
    VyDateTime xToTime(int x) const;

    // State.
    const VyDateTime& rangeStart() const { return m_rangeStart; }
    const VyDateTime& rangeEnd() const { return m_rangeEnd; }
    const VyDateTime& viewOrigin() const { return m_origin; }
    const VyDateTime& cursorTime() const { return m_cursor; }
    uint32_t span() const { return m_span; }
    float pixelsPerSecond() const { return m_pixelsPerSecond; }
    float secondsPerPixel() const { return m_secondsPerPixel; }
    int majorTickCount() const { return m_majorCount; }
    int minorTickCount() const { return m_minorCount; }
    int secondsPerMajorTick() const { return m_secsPerMajor; }
    int secondsPerMinorTick() const { return m_secsPerMinor; }
    int leftMargin() const { return m_leftMargin; }
    int rightMargin() const { return m_rightMargin; }
    int scrollBarWidth() const { return m_scrollBarWidth; }
    int headerHeight() const { return m_headerHeight; }
    int bottomBandHeight() const { return m_bottomHeight; }
    int centringOffset() const { return m_centringOffset; }
    int trackWidth() const { return m_trackWidth; }
    int usableWidth() const { return m_usableWidth; }
    const std::vector<RecordChannel>& channels() const { return m_channels; }
    int selectedRow() const { return m_selectedRow; }
    int firstVisibleRow() const { return m_firstRow; }
    int rowsPerPage() const { return m_rowsPerPage; }
    uint32_t mode() const { return m_mode; }
    bool isMultiChannel() const { return m_multiChannel; }
    uint32_t typeFilter() const { return m_typeFilter; }
    uint32_t analyticsFilter() const { return m_analyticsFilter; }
    bool clipMode() const { return m_clipMode; }
    const VyDateTime& clipStart() const { return m_clipStart; }
    const VyDateTime& clipEnd() const { return m_clipEnd; }
    const VyDateTime& pendingClipTime() const { return m_pendingClipTime; }
    int pressedRow() const { return m_pressedRow; }
    bool isRecentringPending() const { return m_recentrePending; }
    VyScrollBar* scrollBar() const { return m_scrollBar; }
    bool isPreviousVisible() const { return m_navVisible; }
    bool isPreviousEnabled() const;
    bool isNextEnabled() const;

    // Geometry, in widget coordinates.
    VyRect trackRect() const;           // header bottom to bottom band, track columns only
    VyRect rowBand(int pageRow) const;  // the full row, label column included
    VyRect rowTrack(int pageRow) const; // where the row's segments are drawn
    int rowsShown() const;
    VyRect previousButtonRect() const;
    VyRect nextButtonRect() const;
    // The box a press must hit to move a clip marker at this x.
    VyRect clipGrabBox(int markerX) const;

    // The x of the first tick of this interval, applying a pending recentring first.
    int firstTickX(int intervalSeconds);
    // Tick positions and times from the first tick to the track's right edge.
    struct Tick {
        int x;
        VyDateTime time;
    };
    std::vector<Tick> ticks(int intervalSeconds);

    // The fill colour (0xAARRGGBB) of a record-type region; kMixedRegion and kMode5Region
    // name the two regions without a bit.
    static constexpr int kMode5Region = 32;
    static constexpr int kMixedRegion = 33;
    static vyargb regionColour(int region);
    // The regions in the order they are filled (later ones cover earlier ones).
    static const std::vector<int>& fillOrder();
    // The rectangles of each region for the rows on the page, as the next paint fills them
    // (index: a bit 0..31, kMode5Region, kMixedRegion).
    std::vector<std::vector<VyRect>> recordRegions() const;
    // Whether a region is filled under the current filter, mode and device.
    bool isRegionFilled(int region) const;

    VySignal positionChosen;  // a press or key set the cursor (cursorTime())
    VySignal channelSelected; // the selected row changed by a press or key (selectedRow())
    VySignal clipChanged;     // a clip marker was dragged (clipStart(), clipEnd())
    VySignal playRequested;   // OK: play from the cursor
    VySignal spanChanged;     // the wheel zoomed (span())
    VySignal viewMoved;       // the navigation buttons moved the view (viewOrigin())

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

private:
    enum class Drag { None, Cursor, ClipStart, ClipEnd };

    void loadLook();
    void updateMetrics();
    void computeScale(bool resetOrigin);
    void updateNavigation();
    void updateScrollBar();
    void onScrollBarValueChanged();
    void scrollToRow(int row);
    void setOriginClamped(const VyDateTime& origin);
    VyDateTime clampToRange(const VyDateTime& time) const;
    VyDateTime viewEnd() const { return m_origin.addSecs(m_span); }
    int rowAt(int y) const; // page row, -1 outside the rows
    void beginDrag(Drag drag);
    void endDrag();
    void dragTo(int x);
    void moveCursorBy(long long seconds);
    void changeRow(int delta);
    uint32_t effectiveTypes(const RecordSegment& segment) const;
    bool isMixed(uint32_t types) const;

    void paintHeader(VyCanvas* c);
    void paintRows(VyCanvas* c);
    void paintOverlays(VyCanvas* c);
    void paintBottomBand(VyCanvas* c);

    struct Look {
        vyargb background = 0xFF181A1E;
        vyargb trackBackground = 0xFF24262B;
        vyargb border = 0xFF3C3F45;
        vyargb majorTick = 0xFFA0A6B0;
        vyargb minorTick = 0xFF5A606A;
        vyargb text = 0xFFC8CCD2;
        vyargb cursor = 0xFFFFC800;
        vyargb channelText = 0xFFC8CCD2;
        vyargb highlight = 0x500096DC;
    };
    Look m_look;

    VyDateTime m_rangeStart;
    VyDateTime m_rangeEnd;
    VyDateTime m_origin;
    VyDateTime m_cursor;
    uint32_t m_span = kDaySeconds;
    float m_pixelsPerSecond = 0;
    float m_secondsPerPixel = 0;
    int m_majorCount = 0;
    int m_minorCount = 0;
    int m_secsPerMajor = 0;
    int m_secsPerMinor = 0;
    int m_leftMargin = 0;
    uint8_t m_scrollBarWidth = 0;
    int m_rightMargin = 0;
    int m_headerHeight = 0;
    int m_bottomHeight = 0;
    int m_trackWidth = 0;
    int m_usableWidth = 0;
    int m_centringOffset = 0;
    bool m_recentrePending = false;

    std::vector<RecordChannel> m_channels;
    uint32_t m_periodSeconds = 0;
    int m_blockIndex = 0;
    int m_selectedRow = -1;
    int m_firstRow = 0;
    int m_rowsPerPage = 4;
    uint32_t m_mode = 0;
    bool m_multiChannel = false;
    uint32_t m_typeFilter = 0xFFFFFFFFu;
    uint32_t m_analyticsFilter = 0;
    bool m_hasHighlight = false;
    RecordHighlight m_highlight;

    bool m_clipMode = false;
    VyDateTime m_clipStart;
    VyDateTime m_clipEnd;
    VyDateTime m_pendingClipTime;
    int m_pressedRow = -1;
    bool m_movingClipStart = false;
    bool m_movingClipEnd = false;
    Drag m_drag = Drag::None;
    VyPoint m_pressPos;
    long long m_pressMs = 0;

    bool m_navVisible = false;
    DeviceFeatures m_features;
    std::function<bool()> m_busyProbe;
    std::function<uint32_t()> m_spanSource;
    VyScrollBar* m_scrollBar = nullptr; // a child while the list is longer than a page
};
