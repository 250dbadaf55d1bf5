#pragma once
// The canvas's clip narrowed to a rectangle in drawing coordinates for the life of the scope;
// the clip before it comes back when the scope ends.
#include "toolkit/graphics/VyCanvas.h"

class VyClipScope {
public:
    VyClipScope(VyCanvas* canvas, const VyRect& rect)
        : m_canvas(canvas)
        , m_saved(canvas->clipRect()) {
        const VyPoint o = canvas->origin();
        canvas->setClipRect(m_saved.intersected(rect.translated(o.x, o.y)));
    }
    ~VyClipScope() { m_canvas->setClipRect(m_saved); }
    VyClipScope(const VyClipScope&) = delete;
    VyClipScope& operator=(const VyClipScope&) = delete;

private:
    VyCanvas* m_canvas;
    VyRect m_saved;
};
