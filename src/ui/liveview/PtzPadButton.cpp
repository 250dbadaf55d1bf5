#include "ui/liveview/PtzPadButton.h"

#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/graphics/VyCanvas.h"

#include <algorithm>
#include <cmath>

PtzPadButton::PtzPadButton(int dx, int dy, VyWidget* parent)
    : VyAbstractButton(parent)
    , m_dx(dx)
    , m_dy(dy) {
    setFocusPolicy(StrongFocus);
}

void PtzPadButton::setColours(vyargb normal, vyargb hover, vyargb background) {
    m_normal = normal;
    m_hover = hover;
    m_background = background;
    update();
}

void PtzPadButton::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    c->fillRect(rect(), m_background);
    const bool lit = isDown() || isHovered() || hasFocus();
    const vyargb colour = lit ? m_hover : m_normal;
    if (hasFocus()) {
        c->setPenWidth(1);
        c->drawRect(rect(), m_hover);
    }
    // The tip lies one radius out along the direction, the base across it half a radius
    // behind the centre: the same triangle for the straight and the diagonal arrows.
    const double len = std::sqrt(double(m_dx * m_dx + m_dy * m_dy));
    if (len == 0.0)
        return;
    const double ux = m_dx / len;
    const double uy = m_dy / len;
    const double cx = width() / 2.0;
    const double cy = height() / 2.0;
    const double r = std::max(3, std::min(width(), height()) * 3 / 10);
    const auto at = [](double x, double y) {
        return VyPoint(int(std::lround(x)), int(std::lround(y)));
    };
    const double bx = cx - ux * r / 2;
    const double by = cy - uy * r / 2;
    const double half = r * 0.85;
    c->fillTriangle(at(cx + ux * r, cy + uy * r), at(bx - uy * half, by + ux * half),
                    at(bx + uy * half, by - ux * half), colour);
}
