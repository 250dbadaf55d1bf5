#include "ui/liveview/DigitalZoomView.h"

#include "toolkit/events/VyKeyEvent.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyPaintEvent.h"
#include "toolkit/events/VyWheelEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/UiLook.h"
#include "ui/liveview/LiveViewLook.h"
#include "ui/liveview/Video.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr int kOverviewDivisor = 5; // the overview is this much smaller than the cell
constexpr int kOverviewMarginPx = 8;
constexpr vyargb kOverviewFill = 0xFF101114;
constexpr vyargb kOverviewLine = 0xFF8C929C;
constexpr vyargb kPartLine = 0xFF00C878;
constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
} // namespace

DigitalZoomView::DigitalZoomView(VyWidget* parent)
    : VyWidget(parent) {
    setFocusPolicy(StrongFocus);
}

void DigitalZoomView::begin(int channel, const VyRect& cellRect) {
    m_channel = channel;
    m_zoom.reset();
    m_sent = m_zoom.region(channel);
    m_dragging = false;
    setGeometry(cellRect);
    update();
}

VyRect DigitalZoomView::overviewRect() const {
    const int w = std::max(8, width() / kOverviewDivisor);
    const int h = std::max(8, height() / kOverviewDivisor);
    const int m = UiLook::scaledX(kOverviewMarginPx);
    return VyRect(width() - w - m, m, w, h);
}

VyRect DigitalZoomView::overviewPart() const {
    const VyRect o = overviewRect();
    const PreviewZoom z = m_zoom.region(m_channel);
    const auto x = [&](int v) { return o.left + int(int64_t(v) * o.width() / PreviewZoom::kFull); };
    const auto y = [&](int v) { return o.top + int(int64_t(v) * o.height() / PreviewZoom::kFull); };
    return VyRect::fromEdges(x(z.left), y(z.top), std::max(x(z.left), x(z.right) - 1),
                             std::max(y(z.top), y(z.bottom) - 1));
}

void DigitalZoomView::changed() {
    const PreviewZoom now = m_zoom.region(m_channel);
    if (std::memcmp(&now, &m_sent, sizeof now) == 0)
        return;
    m_sent = now;
    update();
    emitSignal(this, &regionChanged);
}

void DigitalZoomView::wheelEvent(VyWheelEvent* e) {
    e->accept();
    if (width() <= 0 || height() <= 0)
        return;
    m_zoom.zoomAround(double(e->pos().x) / width(), double(e->pos().y) / height(), e->notches());
    changed();
}

void DigitalZoomView::mousePressEvent(VyMouseEvent* e) {
    e->accept();
    if (e->button() == kLeftButton) {
        m_dragging = true;
        m_dragFrom = e->pos();
    }
}

void DigitalZoomView::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    if (!m_dragging || width() <= 0 || height() <= 0)
        return;
    const VyPoint p = e->pos();
    m_zoom.panBy(double(p.x - m_dragFrom.x) / width(), double(p.y - m_dragFrom.y) / height());
    m_dragFrom = p;
    changed();
}

void DigitalZoomView::mouseReleaseEvent(VyMouseEvent* e) {
    e->accept();
    if (e->button() == kRightButton) {
        emitSignal(this, &finished);
        return;
    }
    m_dragging = false;
}

void DigitalZoomView::keyPressEvent(VyKeyEvent* e) {
    if (e->key() != VyKeyEvent::KeyEscape) {
        VyWidget::keyPressEvent(e);
        return;
    }
    e->accept();
    emitSignal(this, &finished);
}

void DigitalZoomView::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    if (c == nullptr)
        return;
    Video::clearToVideo(c, rect());
    c->setPenWidth(2);
    c->drawRect(rect(), LiveViewLook::opaque(LiveViewLook::instance().borderNormalSelected));
    const VyRect o = overviewRect();
    c->fillRect(o, kOverviewFill);
    c->setPenWidth(1);
    c->drawRect(o, kOverviewLine);
    c->drawRect(overviewPart(), kPartLine);
}
