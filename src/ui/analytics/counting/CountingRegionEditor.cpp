#include "ui/analytics/counting/CountingRegionEditor.h"

#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"
#include "ui/UiLook.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kAspectWidth = 16, kAspectHeight = 9; // the cameras' pictures
constexpr int kGrabDesign = 14;                     // pixels at 1920x1080
constexpr int kHandleDesign = 10;
constexpr int kGridCells = 8;
constexpr vyargb kPicture = 0xFF15171A;
constexpr vyargb kGrid = 0xFF2A2D33;
constexpr vyargb kEdge = 0xFF464A52;
constexpr vyargb kRule = 0xFF28D070;
constexpr vyargb kHandle = 0xFFFFFFFF;
constexpr vyargb kInArrow = 0xFFF0C040;

} // namespace

CountingRegionEditor::CountingRegionEditor(VyWidget* parent)
    : CWidget(parent) {}

void CountingRegionEditor::setRule(const CountRule& rule) {
    m_rule = rule;
    m_rule.sanitise();
    m_grabbed = -1;
    update();
}

void CountingRegionEditor::setShape(uint8_t shape) {
    if (shape == m_rule.shape)
        return;
    m_rule.shape = shape == CountRule::kArea ? CountRule::kArea : CountRule::kLine;
    clearPoints();
}

void CountingRegionEditor::clearPoints() {
    m_rule.pointCount = 0;
    for (CountRule::Point& p : m_rule.points)
        p = {};
    m_grabbed = -1;
    update();
    emitSignal(this, &edited);
}

void CountingRegionEditor::setPicture(const VyBitmap& picture) {
    m_picture = picture;
    update();
}

VyRect CountingRegionEditor::pictureRect() const {
    int w = width(), h = height();
    if (int64_t(w) * kAspectHeight > int64_t(h) * kAspectWidth)
        w = h * kAspectWidth / kAspectHeight;
    else
        h = w * kAspectHeight / kAspectWidth;
    if (w < 2 || h < 2)
        return VyRect();
    return VyRect((width() - w) / 2, (height() - h) / 2, w, h);
}

CountRule::Point CountingRegionEditor::toPicture(VyPoint pos) const {
    const VyRect r = pictureRect();
    if (r.isEmpty())
        return {};
    const int x = std::max(r.left, std::min(r.right, pos.x)) - r.left;
    const int y = std::max(r.top, std::min(r.bottom, pos.y)) - r.top;
    // The last pixel is the picture's far edge, so a round trip keeps every point.
    const auto unit = [](int v, int span) {
        return uint16_t(
            span <= 1 ? 0 : (int64_t(v) * CountRule::kCoordRange + (span - 1) / 2) / (span - 1));
    };
    return {unit(x, r.width()), unit(y, r.height())};
}

VyPoint CountingRegionEditor::toWidget(CountRule::Point p) const {
    const VyRect r = pictureRect();
    const auto pixel = [](int v, int span) {
        return int((int64_t(std::min<int>(v, CountRule::kCoordRange)) * (span - 1) +
                    CountRule::kCoordRange / 2) /
                   CountRule::kCoordRange);
    };
    return VyPoint(r.left + pixel(p.x, r.width()), r.top + pixel(p.y, r.height()));
}

int CountingRegionEditor::pointNear(VyPoint pos) const {
    const int reach = UiLook::scaledX(kGrabDesign);
    int best = -1, bestDistance = 0;
    for (int i = 0; i < m_rule.pointCount; ++i) {
        const VyPoint p = toWidget(m_rule.points[i]);
        const int d = std::max(std::abs(p.x - pos.x), std::abs(p.y - pos.y));
        if (d <= reach && (best < 0 || d < bestDistance)) {
            best = i;
            bestDistance = d;
        }
    }
    return best;
}

void CountingRegionEditor::mousePressEvent(VyMouseEvent* e) {
    e->accept();
    if (e->button() != 1 || pictureRect().isEmpty())
        return;
    m_grabbed = pointNear(e->pos());
    if (m_grabbed >= 0)
        return;
    const int most = m_rule.shape == CountRule::kArea ? CountRule::kMaxPoints : 2;
    if (m_rule.pointCount >= most) {
        if (m_rule.shape == CountRule::kArea)
            return;            // a full area is edited by moving its corners
        m_rule.pointCount = 0; // a new line replaces the old one
    }
    m_rule.points[m_rule.pointCount] = toPicture(e->pos());
    m_grabbed = m_rule.pointCount++;
    update();
    emitSignal(this, &edited);
}

void CountingRegionEditor::mouseMoveEvent(VyMouseEvent* e) {
    e->accept();
    if (m_grabbed < 0 || m_grabbed >= m_rule.pointCount || (e->buttons() & 1) == 0)
        return;
    const CountRule::Point p = toPicture(e->pos());
    CountRule::Point& q = m_rule.points[m_grabbed];
    if (p.x == q.x && p.y == q.y)
        return;
    q = p;
    update();
    emitSignal(this, &edited);
}

void CountingRegionEditor::mouseReleaseEvent(VyMouseEvent* e) {
    e->accept();
    m_grabbed = -1;
}

void CountingRegionEditor::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    const VyRect r = pictureRect();
    if (r.isEmpty())
        return;
    if (!m_picture.isNull()) {
        c->drawImage(r, m_picture);
    } else {
        c->fillRect(r, kPicture);
        for (int i = 1; i < kGridCells; ++i) {
            c->fillRect(VyRect(r.left + r.width() * i / kGridCells, r.top, 1, r.height()), kGrid);
            c->fillRect(VyRect(r.left, r.top + r.height() * i / kGridCells, r.width(), 1), kGrid);
        }
    }
    c->drawRect(r, kEdge);
    const int n = m_rule.pointCount;
    const int pen = c->penWidth();
    c->setPenWidth(UiLook::scaledX(3));
    for (int i = 1; i < n; ++i) {
        const VyPoint a = toWidget(m_rule.points[i - 1]), b = toWidget(m_rule.points[i]);
        c->drawLine(a.x, a.y, b.x, b.y, kRule);
    }
    if (m_rule.shape == CountRule::kArea && n >= 3) {
        const VyPoint a = toWidget(m_rule.points[n - 1]), b = toWidget(m_rule.points[0]);
        c->drawLine(a.x, a.y, b.x, b.y, kRule);
    }
    c->setPenWidth(pen);
    if (m_rule.shape == CountRule::kLine && n == 2) {
        // "In" crosses from the line's left to its right: an arrow from the middle shows it.
        const VyPoint a = toWidget(m_rule.points[0]), b = toWidget(m_rule.points[1]);
        const int mx = (a.x + b.x) / 2, my = (a.y + b.y) / 2;
        const int dx = b.x - a.x, dy = b.y - a.y;
        const int len = std::max(1, std::max(std::abs(dx), std::abs(dy)));
        const int arm = UiLook::scaledX(48);
        // The right-hand normal of (dx, dy) on a screen whose y grows downwards.
        const VyPoint tip(mx - dy * arm / len, my + dx * arm / len);
        c->setPenWidth(UiLook::scaledX(2));
        c->drawLine(mx, my, tip.x, tip.y, kInArrow);
        c->setPenWidth(pen);
        const int head = UiLook::scaledX(10);
        c->fillRect(VyRect(tip.x - head / 2, tip.y - head / 2, head, head), kInArrow);
    }
    const int h = UiLook::scaledX(kHandleDesign);
    for (int i = 0; i < n; ++i) {
        const VyPoint p = toWidget(m_rule.points[i]);
        c->fillRect(VyRect(p.x - h / 2, p.y - h / 2, h, h), kHandle);
    }
}
