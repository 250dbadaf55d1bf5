#pragma once
// The details of the found recordings of one channel: a row per segment with its colour on
// the time bar and its start and end time. The wheel scrolls; a press chooses a segment,
// which the playback window plays from its start.
#include "model/RecordChannel.h"
#include "toolkit/core/VyWidget.h"

class PlaybackDetailsPanel : public VyWidget {
    VY_OBJECT(PlaybackDetailsPanel, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/playbackdetailspanel.ini";
    static constexpr int kRowDesign = 30; // pixels at 1920x1080

    explicit PlaybackDetailsPanel(VyWidget* parent = nullptr);

    void setChannel(const RecordChannel& channel);
    const RecordChannel& channel() const { return m_channel; }
    int rowHeight() const;
    int visibleRows() const;
    int firstRow() const { return m_first; }
    int selectedRow() const { return m_selected; }
    // The chosen segment; null when none is.
    const RecordSegment* selectedSegment() const;
    // The rectangle of a row on the page (widget coordinates); empty when not shown.
    VyRect rowRect(int row) const;

    VySignal segmentChosen;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;

private:
    void scrollTo(int first);

    RecordChannel m_channel;
    int m_first = 0;
    int m_selected = -1;
    vyargb m_background = 0xFF202226;
    vyargb m_border = 0xFF3C3F45;
    vyargb m_title = 0xFFFFFFFF;
    vyargb m_text = 0xFFC8CCD2;
    vyargb m_rowSelected = 0xFF0078BE;
};
