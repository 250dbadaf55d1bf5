#include "ui/liveview/VideoScreenBase.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "ui/liveview/Video.h"
#include "ui/liveview/VideoLayout.h"

VideoScreenBase::VideoScreenBase(VyWidget* parent)
    : VyWidget(parent)
    , m_layout(new VideoLayout(this)) {}

Video* VideoScreenBase::cellAt(VyPoint pos) const {
    return m_layout->cellAt(pos);
}

void VideoScreenBase::cellPressed(int, Video*, VyPoint) {}
void VideoScreenBase::cellMoved(int, Video*, VyPoint) {}
void VideoScreenBase::cellReleased(int, Video*, VyPoint) {}
void VideoScreenBase::cellDoubleClicked(int, Video*, VyPoint) {}

Video* VideoScreenBase::createCell() {
    return new Video(this);
}

void VideoScreenBase::syncContentRect() {
    const VyPoint origin = mapToWindow(VyPoint(0, 0));
    m_layout->setContentRect(VyRect(origin, size()));
}

void VideoScreenBase::resizeEvent(VyResizeEvent*) {
    syncContentRect();
    m_layout->activate();
}

Video* VideoScreenBase::grabbedOrUnder(VyPoint pos) const {
    Video* cell = m_pressed.data();
    return cell != nullptr ? cell : cellAt(pos);
}

void VideoScreenBase::mousePressEvent(VyMouseEvent* e) {
    e->accept();
    Video* cell = cellAt(e->pos());
    m_pressed.reset(cell);
    if (cell == nullptr)
        return;
    const VyPoint local = e->pos() - cell->geometry().topLeft();
    VyMouseEvent press(VyEvent::MouseButtonPress, local, e->globalPos(), e->button(), e->buttons());
    VyApplication::sendEvent(cell, &press);
    // The cell's handler may have deleted it.
    if (m_pressed.data() == cell)
        cellPressed(e->button(), cell, local);
}

void VideoScreenBase::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    Video* cell = grabbedOrUnder(e->pos());
    if (cell == nullptr)
        return;
    VyPointer<Video> guard(cell);
    const VyPoint local = e->pos() - cell->geometry().topLeft();
    VyMouseEvent move(VyEvent::MouseMove, local, e->globalPos(), e->button(), e->buttons());
    VyApplication::sendEvent(cell, &move);
    if (!guard.isNull())
        cellMoved(e->buttons(), cell, local);
}

void VideoScreenBase::mouseReleaseEvent(VyMouseEvent* e) {
    e->accept();
    Video* cell = grabbedOrUnder(e->pos());
    m_pressed.reset(nullptr);
    if (cell == nullptr)
        return;
    VyPointer<Video> guard(cell);
    const VyPoint local = e->pos() - cell->geometry().topLeft();
    VyMouseEvent release(VyEvent::MouseButtonRelease, local, e->globalPos(), e->button(),
                         e->buttons());
    VyApplication::sendEvent(cell, &release);
    if (!guard.isNull())
        cellReleased(e->button(), cell, local);
}

void VideoScreenBase::mouseDoubleClickEvent(VyMouseEvent* e) {
    e->accept();
    Video* cell = cellAt(e->pos());
    if (cell != nullptr)
        cellDoubleClicked(e->button(), cell, e->pos() - cell->geometry().topLeft());
}

void VideoScreenBase::wheelEvent(VyWheelEvent* e) {
    e->accept();
    Video* cell = cellAt(e->pos());
    if (cell == nullptr)
        return;
    VyWheelEvent wheel(e->pos() - cell->geometry().topLeft(), e->globalPos(), e->delta(),
                       e->buttons());
    VyApplication::sendEvent(cell, &wheel);
}
