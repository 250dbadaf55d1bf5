#include "ui/users/PatternWidget.h"

#include "runtime/VyIniSettings.h"
#include "runtime/VyResources.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "toolkit/style/VyStyle.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr uint8_t kLeftButton = 1;
constexpr int kGrid = 3;
} // namespace

PatternWidget::PatternWidget(VyWidget* parent)
    : CWidget(parent) {
    const VyIniSettings ini(VyResources::path(kStyleFile));
    auto colour = [&](const char* key, vyargb fallback) {
        const VyString k(key);
        return ini.value(k).isEmpty() ? fallback : ini.color(k).argb();
    };
    m_background = colour("PatternWidget/Background", m_background);
    m_point = colour("PatternWidget/Point/Normal", m_point);
    m_selected = colour("PatternWidget/Point/Selected", m_selected);
    m_errorColour = colour("PatternWidget/Point/Error", m_errorColour);
    m_line = colour("PatternWidget/Line/Color", m_line);
    if (const int w = ini.intValue(VyString("PatternWidget/Line/Width")); w > 0)
        m_lineWidth = w;
}

void PatternWidget::clear() {
    m_dots.clear();
    m_drawing = false;
    m_error = false;
    update();
}

VyPoint PatternWidget::dotCentre(int dot) const {
    const int i = dot - 1;
    return VyPoint(width() * (2 * (i % kGrid) + 1) / (2 * kGrid),
                   height() * (2 * (i / kGrid) + 1) / (2 * kGrid));
}

// A dot catches the pointer within a third of the cell, so a drag between two dots does
// not pick up the one beside the line by accident.
int PatternWidget::radius() const {
    return std::max(2, std::min(width(), height()) / (kGrid * 3));
}

int PatternWidget::dotAt(VyPoint pos) const {
    const int r = radius();
    for (int dot = 1; dot <= kGrid * kGrid; ++dot) {
        const VyPoint c = dotCentre(dot);
        const int dx = pos.x - c.x, dy = pos.y - c.y;
        if (dx * dx + dy * dy <= r * r)
            return dot;
    }
    return 0;
}

void PatternWidget::touch(VyPoint pos) {
    const int dot = dotAt(pos);
    if (dot == 0 || m_dots.find(char('0' + dot)) != std::string::npos)
        return;
    m_dots.push_back(char('0' + dot));
    update();
}

void PatternWidget::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != kLeftButton) {
        e->ignore();
        return;
    }
    m_dots.clear();
    m_error = false;
    m_drawing = true;
    touch(e->pos());
    e->accept();
}

void PatternWidget::mouseMoveEvent(VyMouseEvent* e) {
    if (m_drawing)
        touch(e->pos());
}

void PatternWidget::mouseReleaseEvent(VyMouseEvent* e) {
    if (!m_drawing || e->button() != kLeftButton)
        return;
    m_drawing = false;
    if (m_dots.empty())
        return;
    if (int(m_dots.size()) < kMinDots) {
        m_error = true;
        update();
        return;
    }
    emitSignal(this, &entered);
}

void PatternWidget::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), m_background);
    const vyargb lineColour = m_error ? m_errorColour : m_line;
    const int half = m_lineWidth / 2;
    for (size_t i = 1; i < m_dots.size(); ++i) {
        const VyPoint a = dotCentre(m_dots[i - 1] - '0'), b = dotCentre(m_dots[i] - '0');
        // A wide line as parallel one-pixel lines, across the direction it mostly runs.
        const bool steep = std::abs(b.y - a.y) > std::abs(b.x - a.x);
        for (int o = -half; o < m_lineWidth - half; ++o) {
            const int dx = steep ? o : 0, dy = steep ? 0 : o;
            c->drawLine(a.x + dx, a.y + dy, b.x + dx, b.y + dy, lineColour);
        }
    }
    const int r = std::max(2, radius() / 3);
    for (int dot = 1; dot <= kGrid * kGrid; ++dot) {
        const bool chosen = m_dots.find(char('0' + dot)) != std::string::npos;
        const vyargb colour = !chosen ? m_point : m_error ? m_errorColour : m_selected;
        const VyPoint centre = dotCentre(dot);
        for (int dy = -r; dy <= r; ++dy) {
            const int w = int(std::sqrt(double(r * r - dy * dy)));
            c->fillRect(VyRect(centre.x - w, centre.y + dy, 2 * w + 1, 1), colour);
        }
    }
}
