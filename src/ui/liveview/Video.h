#pragma once
// One picture cell of a video screen. Besides its widget rectangle it keeps the rectangle
// its picture takes on the video output plane (inclusive, output pixels; -1 everywhere until
// a layout placed it). The cell itself is transparent: the display hardware shows the video
// plane wherever the interface plane's pixels have the overlay bit clear.
#include "runtime/VyRect.h"
#include "toolkit/core/VyWidget.h"

class Video : public VyWidget {
    VY_OBJECT(Video, VyWidget)
public:
    static constexpr int kNoChannel = -1;

    explicit Video(VyWidget* parent = nullptr);

    VyRect videoRect() const { return m_videoRect; }
    void setVideoRect(const VyRect& rect) { m_videoRect = rect; }
    // Whether the cell takes part in the current page (set by dealing, cleared when the
    // cell is dealt out).
    bool isVideoVisible() const { return m_videoVisible; }
    void setVideoVisible(bool visible) { m_videoVisible = visible; }

    // The channel (0-based) whose picture the cell shows, or kNoChannel.
    int channel() const { return m_channel; }
    virtual void setChannel(int channel);

    // Writes fully transparent pixels (overlay bit clear) into the rectangle, in the
    // coordinates of the widget being painted: the video plane shows there.
    static void clearToVideo(VyCanvas* canvas, const VyRect& rect);

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    VyRect m_videoRect = VyRect::fromEdges(-1, -1, -1, -1);
    int m_channel = kNoChannel;
    bool m_videoVisible = false;
};
