#pragma once
// The common ground of every screen of video cells (live, playback, preview panels): the
// geometry engine and the pointer routing. The cells are transparent for the pointer; the
// screen finds the cell under it, keeps an implicit grab on the pressed cell, hands the
// cell its events in its own coordinates and then calls the hook of the screen kind. A
// double click reaches only the hook. Events over no cell are accepted and dropped.
#include "runtime/VyPoint.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VyWidget.h"

#include "ui/liveview/Video.h"
class VideoLayout;

class VideoScreenBase : public VyWidget {
    VY_OBJECT(VideoScreenBase, VyWidget)
public:
    explicit VideoScreenBase(VyWidget* parent = nullptr);

    VideoLayout* videoLayout() const { return m_layout; }
    // The cell under a point in screen coordinates, or null.
    Video* cellAt(VyPoint pos) const;
    Video* pressedCell() const { return m_pressed.data(); }

protected:
    // The hooks, in this order; `pos` is in the cell's coordinates. Empty here.
    virtual void cellPressed(int button, Video* cell, VyPoint pos);
    virtual void cellMoved(int buttons, Video* cell, VyPoint pos);
    virtual void cellReleased(int button, Video* cell, VyPoint pos);
    virtual void cellDoubleClicked(int button, Video* cell, VyPoint pos);
    // Makes a cell when dealing needs more than the screen has; a plain picture cell here.
    virtual Video* createCell();

    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;
    void mouseDoubleClickEvent(VyMouseEvent* e) override;
    void wheelEvent(VyWheelEvent* e) override;
    void resizeEvent(VyResizeEvent* e) override;

    // Places the layout's content rectangle on this widget's place in its window.
    void syncContentRect();

private:
    // The pressed cell, or the one under the pointer when none is held.
    Video* grabbedOrUnder(VyPoint pos) const;

    VideoLayout* m_layout; // child
    VyPointer<Video> m_pressed;
};
