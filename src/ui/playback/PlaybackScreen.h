#pragma once
// The video area of the playback window: the cells of the split, each framed, with its
// channel number and the playback time of its picture. App draws the decoded video on the
// video plane beneath; while it does, the cells stay see-through except for their frames and
// texts (otherwise they are dark: the plane may still hold live pictures). A press selects a
// cell; a double press toggles full screen of the window.
#include "runtime/VyDateTime.h"
#include "toolkit/core/VyWidget.h"

#include <vector>

class PlaybackScreen : public VyWidget {
    VY_OBJECT(PlaybackScreen, VyWidget)
public:
    static constexpr const char* kStyleFile = "style/playbackscreen.ini";

    explicit PlaybackScreen(VyWidget* parent = nullptr);

    // One channel per cell, -1 for an empty cell; the split follows the count.
    void setChannels(const std::vector<int>& channels);
    const std::vector<int>& channels() const { return m_channels; }
    std::vector<VyRect> cellRects() const;
    void setTime(const VyDateTime& time);
    const VyDateTime& time() const { return m_time; }
    int selectedCell() const { return m_selected; }
    void setSelectedCell(int cell);
    // App draws playback video under the cells.
    void setVideoShown(bool shown);
    bool isVideoShown() const { return m_videoShown; }

    VySignal cellSelected;
    VySignal fullScreenRequested;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseDoubleClickEvent(VyMouseEvent* e) override;

private:
    std::vector<int> m_channels;
    VyDateTime m_time;
    int m_selected = 0;
    bool m_videoShown = false;
    vyargb m_background = 0xFF000000;
    vyargb m_border = 0xFF3C3F45;
    vyargb m_borderSelected = 0xFF00C878;
    vyargb m_noVideo = 0xFF6E7278;
    vyargb m_timeColour = 0xFFFFFFFF;
};
