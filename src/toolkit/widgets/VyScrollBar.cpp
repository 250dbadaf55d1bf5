#include "toolkit/widgets/VyScrollBar.h"

#include <algorithm>

#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/events/VyTimerEvent.h"
#include "toolkit/style/VyStyle.h"

namespace {

constexpr int kMinSliderDesign = 24; // pixels at 1920x1080: the slider stays grabbable

} // namespace

VyScrollBar::VyScrollBar(VyWidget* parent)
    : VyScrollBar(Vertical, parent) {}

VyScrollBar::VyScrollBar(Orientation orientation, VyWidget* parent)
    : VyAbstractSlider(parent) {
    setOrientation(orientation);
    // A scroll bar serves a view; it is driven by the pointer, not by the key navigation.
    setFocusPolicy(NoFocus);
}

VyScrollBar::~VyScrollBar() {
    stopRepeat();
}

int VyScrollBar::length() const {
    return orientation() == Horizontal ? width() : height();
}

int VyScrollBar::along(VyPoint p) const {
    return orientation() == Horizontal ? p.x : p.y;
}

int VyScrollBar::sliderLength() const {
    const long long range = static_cast<long long>(maximum()) - minimum();
    const int len = length();
    const int minLen = std::min(len, VyStyle::instance()->scaled(kMinSliderDesign));
    if (range <= 0)
        return len;
    const long long proportional = static_cast<long long>(len) * pageStep() / (range + pageStep());
    return static_cast<int>(std::max<long long>(minLen, std::min<long long>(len, proportional)));
}

VyRect VyScrollBar::sliderRect() const {
    const long long range = static_cast<long long>(maximum()) - minimum();
    const int travel = length() - sliderLength();
    const int offset =
        range <= 0
            ? 0
            : static_cast<int>((static_cast<long long>(value()) - minimum()) * travel / range);
    if (orientation() == Horizontal)
        return VyRect(offset, 0, sliderLength(), height());
    return VyRect(0, offset, width(), sliderLength());
}

VySize VyScrollBar::sizeHint() const {
    const int t = VyStyle::instance()->scaled(kDesignThickness);
    return orientation() == Horizontal ? VySize(t * 10, t) : VySize(t, t * 10);
}

void VyScrollBar::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawScrollBar(canvas(), rect(), styleSlot(), orientation() == Horizontal,
                                       sliderRect());
}

void VyScrollBar::pageTowardsPointer() {
    const VyRect s = sliderRect();
    const int p = along(m_pressPos);
    const int from = orientation() == Horizontal ? s.left : s.top;
    const int to = orientation() == Horizontal ? s.right : s.bottom;
    if (p < from)
        triggerAction(PageStepSub);
    else if (p > to)
        triggerAction(PageStepAdd);
    else
        stopRepeat(); // the slider reached the pointer
}

void VyScrollBar::stopRepeat() {
    if (m_repeatTimer)
        killTimer(m_repeatTimer);
    m_repeatTimer = 0;
    m_repeating = false;
}

void VyScrollBar::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    m_pressPos = e->pos();
    const VyRect s = sliderRect();
    if (s.contains(e->pos())) {
        m_dragOffset = along(e->pos()) - (orientation() == Horizontal ? s.left : s.top);
        setSliderDown(true);
        return;
    }
    m_paging = true;
    pageTowardsPointer();
    stopRepeat();
    m_repeatTimer = startTimer(kRepeatDelayMs);
}

void VyScrollBar::mouseMoveEvent(VyMouseEvent* e) {
    if (m_paging) {
        e->accept();
        m_pressPos = e->pos();
        return;
    }
    if (!isSliderDown()) {
        e->ignore();
        return;
    }
    e->accept();
    const int travel = length() - sliderLength();
    const int before = value();
    if (travel > 0) {
        const int start = std::max(0, std::min(along(e->pos()) - m_dragOffset, travel));
        const long long range = static_cast<long long>(maximum()) - minimum();
        setValue(static_cast<int>(minimum() + (start * range * 2 + travel) / (2LL * travel)));
    }
    if (value() != before)
        emitSignal(this, &sliderMoved);
}

void VyScrollBar::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton) {
        e->ignore();
        return;
    }
    e->accept();
    m_paging = false;
    stopRepeat();
    setSliderDown(false);
}

void VyScrollBar::hideEvent(VyHideEvent*) {
    m_paging = false;
    stopRepeat();
}

void VyScrollBar::timerEvent(VyTimerEvent* e) {
    if (!m_repeatTimer || e->timerId() != m_repeatTimer)
        return;
    if (!m_repeating) {
        killTimer(m_repeatTimer);
        m_repeatTimer = startTimer(kRepeatIntervalMs);
        m_repeating = true;
    }
    pageTowardsPointer();
}
