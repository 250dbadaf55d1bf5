#include "ui/liveview/DigitalZoom.h"

#include <algorithm>
#include <cmath>

void DigitalZoom::zoomAround(double fx, double fy, int notches) {
    if (notches == 0)
        return;
    fx = std::clamp(fx, 0.0, 1.0);
    fy = std::clamp(fy, 0.0, 1.0);
    // The picture point under the pointer, before and after.
    const double px = m_left + fx * size();
    const double py = m_top + fy * size();
    m_factor = std::clamp(m_factor * std::pow(kNotchFactor, notches), 1.0, kMaxFactor);
    m_left = px - fx * size();
    m_top = py - fy * size();
    clampIntoPicture();
}

void DigitalZoom::panBy(double dx, double dy) {
    // Dragging right shows what lies further left in the picture.
    m_left -= dx * size();
    m_top -= dy * size();
    clampIntoPicture();
}

void DigitalZoom::reset() {
    m_factor = 1.0;
    m_left = m_top = 0.0;
}

void DigitalZoom::clampIntoPicture() {
    const double room = 1.0 - size();
    m_left = std::clamp(m_left, 0.0, room);
    m_top = std::clamp(m_top, 0.0, room);
}

PreviewZoom DigitalZoom::region(int channel) const {
    PreviewZoom z;
    z.channel = uint8_t(std::max(0, channel));
    const double full = PreviewZoom::kFull;
    const auto edge = [full](double f) {
        return uint16_t(std::clamp(std::lround(f * full), 0L, long(PreviewZoom::kFull)));
    };
    // Width from the factor, not from two rounded edges, so every region of one factor has
    // the same size on the wire.
    const uint16_t span = std::max<uint16_t>(1, edge(size()));
    z.left = std::min<uint16_t>(edge(m_left), uint16_t(PreviewZoom::kFull - span));
    z.top = std::min<uint16_t>(edge(m_top), uint16_t(PreviewZoom::kFull - span));
    z.right = uint16_t(z.left + span);
    z.bottom = uint16_t(z.top + span);
    return z;
}
