#pragma once
// A cell's digital zoom mode: laid over the cell, transparent except for its frame and a
// small overview in the corner that shows which part of the picture is on screen. The wheel
// zooms around the pointer, a drag with the left button pans, Escape or a right click leaves.
// Every change of the part shown is announced (regionChanged) for App to draw it.
#include "runtime/VyPoint.h"
#include "toolkit/core/VyWidget.h"
#include "ui/liveview/DigitalZoom.h"

class DigitalZoomView : public VyWidget {
    VY_OBJECT(DigitalZoomView, VyWidget)
public:
    explicit DigitalZoomView(VyWidget* parent = nullptr);

    // Starts over on the whole picture of `channel`, placed over `cellRect` (parent coordinates).
    void begin(int channel, const VyRect& cellRect);
    int channel() const { return m_channel; }
    const DigitalZoom& zoom() const { return m_zoom; }
    // The overview's rectangle and, inside it, the part shown (widget coordinates).
    VyRect overviewRect() const;
    VyRect overviewPart() const;

    VySignal regionChanged; // zoom().region(channel()) is new
    VySignal finished;      // Escape or a right click: the mode is over

protected:
    void paintEvent(VyPaintEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void keyPressEvent(VyKeyEvent* e) override;

private:
    void changed();

    DigitalZoom m_zoom;
    PreviewZoom m_sent;
    int m_channel = 0;
    VyPoint m_dragFrom;
    bool m_dragging = false;
};
