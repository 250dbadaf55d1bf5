#include "ui/liveview/Video.h"

#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyFbCanvas.h"

Video::Video(VyWidget* parent)
    : VyWidget(parent) {
    // The screen routes the pointer (press, grab, hooks); the cell gets it from there.
    setAttribute(TransparentForMouse);
}

void Video::setChannel(int channel) {
    if (m_channel == channel)
        return;
    m_channel = channel;
    update();
}

void Video::clearToVideo(VyCanvas* canvas, const VyRect& rect) {
    // Window surfaces are always ARGB1555 canvases; fillRaw skips the origin and blending.
    auto* fb = static_cast<VyFbCanvas*>(canvas);
    if (fb != nullptr)
        fb->fillRaw(rect.translated(fb->origin()), 0);
}

void Video::paintEvent(VyPaintEvent* e) {
    for (const VyRect& r : e->region().rects())
        clearToVideo(canvas(), r);
}
