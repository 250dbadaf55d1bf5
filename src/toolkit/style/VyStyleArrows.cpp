// The small filled triangles of the controls' arrows.
#include <cmath>

#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"

VyList<VyRect> VyStyle::arrowSpans(ArrowDirection direction, const VyRect& rect) {
    VyList<VyRect> spans;
    if (rect.isEmpty())
        return spans;
    const bool vertical = direction == ArrowDown || direction == ArrowUp;
    // Lines run across the arrow; the triangle narrows by `step` at both ends of each line
    // until the apex. The last line (the apex row) is left out.
    const int across = vertical ? rect.width() : rect.height();
    const int along = vertical ? rect.height() : rect.width();
    const double step = static_cast<double>(across) / along * 0.5;
    const int first = vertical ? rect.left : rect.top;
    const int last = vertical ? rect.right : rect.bottom;
    for (int k = 0; k < along - 1; ++k) {
        const int inset = static_cast<int>(std::floor((k + 1) * step));
        const int from = first + inset;
        const int to = last - inset;
        if (from > to)
            break;
        switch (direction) {
        case ArrowDown:
            spans.append(VyRect::fromEdges(from, rect.top + k, to, rect.top + k));
            break;
        case ArrowUp:
            spans.append(VyRect::fromEdges(from, rect.bottom - k, to, rect.bottom - k));
            break;
        case ArrowRight:
            spans.append(VyRect::fromEdges(rect.left + k, from, rect.left + k, to));
            break;
        case ArrowLeft:
            spans.append(VyRect::fromEdges(rect.right - k, from, rect.right - k, to));
            break;
        }
    }
    return spans;
}

void VyStyle::drawArrow(VyCanvas* canvas, ArrowDirection direction, const VyRect& rect,
                        vyargb colour) const {
    if (!canvas)
        return;
    for (const VyRect& span : arrowSpans(direction, rect))
        canvas->fillRect(span, colour);
}
