#include "ui/settings/PrivacyMaskArea.h"

#include "runtime/VyLog.h"
#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/graphics/VyCanvas.h"

#include <algorithm>

namespace {

constexpr uint8_t kLeftButton = 1;
constexpr vyargb kPicture = 0xFF101418; // where the live picture would be
constexpr vyargb kMask = 0xFF000000;    // what App blacks out
constexpr vyargb kMaskEdge = 0xFFE0A030;
constexpr vyargb kBand = 0xFFFFFFFF;

} // namespace

PrivacyMaskArea::PrivacyMaskArea(VyWidget* parent)
    : CWidget(parent) {}

int PrivacyMaskArea::usedCount() const {
    if (m_masks == nullptr)
        return 0;
    return int(std::count_if(m_masks, m_masks + PrivacyMaskBlock::kMasks,
                             [](const PrivacyMaskBlock::Mask& m) { return m.used(); }));
}

PrivacyMaskBlock::Mask PrivacyMaskArea::maskFrom(VyPoint a, VyPoint b, int width, int height) {
    if (width <= 0 || height <= 0)
        return {};
    // Pixel columns 0..width map onto 0..kSpan: the right edge of the last column is kSpan.
    auto toSpan = [](int v, int extent) {
        return int(std::clamp(v, 0, extent) * PrivacyMaskBlock::kSpan / extent);
    };
    const int x0 = toSpan(std::min(a.x, b.x), width), x1 = toSpan(std::max(a.x, b.x), width);
    const int y0 = toSpan(std::min(a.y, b.y), height), y1 = toSpan(std::max(a.y, b.y), height);
    if (x1 - x0 < PrivacyMaskBlock::kMinSide || y1 - y0 < PrivacyMaskBlock::kMinSide)
        return {};
    return {uint16_t(x0), uint16_t(y0), uint16_t(x1 - x0), uint16_t(y1 - y0)};
}

VyRect PrivacyMaskArea::pixels(const PrivacyMaskBlock::Mask& m) const {
    const int s = PrivacyMaskBlock::kSpan;
    const int left = std::min<int>(m.x, s), top = std::min<int>(m.y, s);
    const int right = std::min(s, m.x + m.width), bottom = std::min(s, m.y + m.height);
    return VyRect::fromEdges(left * width() / s, top * height() / s, right * width() / s - 1,
                             bottom * height() / s - 1);
}

void PrivacyMaskArea::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != kLeftButton || m_masks == nullptr) {
        e->ignore();
        return;
    }
    m_dragging = true;
    m_press = m_current = e->pos();
    e->accept();
}

void PrivacyMaskArea::mouseMoveEvent(VyMouseEvent* e) {
    if (!m_dragging) {
        e->ignore();
        return;
    }
    m_current = e->pos();
    update();
}

void PrivacyMaskArea::mouseReleaseEvent(VyMouseEvent* e) {
    if (!m_dragging || e->button() != kLeftButton || m_masks == nullptr) {
        e->ignore();
        return;
    }
    m_dragging = false;
    m_current = e->pos();
    const PrivacyMaskBlock::Mask drawn = maskFrom(m_press, m_current, width(), height());
    bool changed = false;
    if (!drawn.used()) {
        // A click: the newest mask under it goes.
        for (int i = PrivacyMaskBlock::kMasks - 1; i >= 0 && !changed; --i) {
            if (m_masks[i].used() && pixels(m_masks[i]).contains(m_press.x, m_press.y)) {
                m_masks[i] = {};
                changed = true;
            }
        }
    } else {
        auto* free = std::find_if(m_masks, m_masks + PrivacyMaskBlock::kMasks,
                                  [](const PrivacyMaskBlock::Mask& m) { return !m.used(); });
        if (free == m_masks + PrivacyMaskBlock::kMasks) {
            VY_GUI_LOG("all %d privacy masks are in use, the new one is dropped\n",
                       PrivacyMaskBlock::kMasks);
        } else {
            *free = drawn;
            changed = true;
        }
    }
    update();
    if (changed)
        emitSignal(this, &masksEdited);
}

void PrivacyMaskArea::paintEvent(VyPaintEvent*) {
    VyCanvas* c = canvas();
    c->fillRect(rect(), kPicture);
    if (m_masks != nullptr) {
        for (int i = 0; i < PrivacyMaskBlock::kMasks; ++i) {
            if (!m_masks[i].used())
                continue;
            const VyRect r = pixels(m_masks[i]);
            c->fillRect(r, kMask);
            c->drawRect(r, kMaskEdge);
        }
    }
    if (m_dragging) {
        const VyRect band =
            VyRect::fromEdges(std::clamp(std::min(m_press.x, m_current.x), 0, width() - 1),
                              std::clamp(std::min(m_press.y, m_current.y), 0, height() - 1),
                              std::clamp(std::max(m_press.x, m_current.x), 0, width() - 1),
                              std::clamp(std::max(m_press.y, m_current.y), 0, height() - 1));
        c->drawRect(band, kBand);
    }
}
