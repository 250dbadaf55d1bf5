#include "toolkit/widgets/VySlider.h"

#include <algorithm>

#include "toolkit/events/VyMouseEvent.h"
#include "toolkit/style/VyStyle.h"

VySlider::VySlider(VyWidget* parent)
    : VyAbstractSlider(parent) {}

VySlider::VySlider(Orientation orientation, VyWidget* parent)
    : VyAbstractSlider(parent) {
    setOrientation(orientation);
}

int VySlider::handleLength() const {
    const int side = orientation() == Horizontal ? height() : width();
    return std::max(1, std::min(VyStyle::instance()->sliderHandleLength(), side));
}

int VySlider::span() const {
    const int length = orientation() == Horizontal ? width() : height();
    return std::max(0, length - handleLength());
}

int VySlider::along(VyPoint p) const {
    // Vertical sliders grow upwards: the minimum sits at the bottom.
    return orientation() == Horizontal ? p.x : height() - 1 - p.y;
}

VyRect VySlider::handleRect() const {
    const long long range = static_cast<long long>(maximum()) - minimum();
    const int offset =
        range <= 0
            ? 0
            : static_cast<int>((static_cast<long long>(value()) - minimum()) * span() / range);
    const int len = handleLength();
    if (orientation() == Horizontal)
        return VyRect(offset, (height() - len) / 2, len, len);
    return VyRect((width() - len) / 2, height() - len - offset, len, len);
}

int VySlider::valueAt(int position) const {
    const int s = span();
    if (s <= 0)
        return minimum();
    const int p = std::max(0, std::min(position - handleLength() / 2, s));
    const long long range = static_cast<long long>(maximum()) - minimum();
    // Round to the nearest value so that a drag lands on the value under the pointer.
    return static_cast<int>(minimum() + (p * range * 2 + s) / (2LL * s));
}

VySize VySlider::sizeHint() const {
    const int len = VyStyle::instance()->sliderHandleLength();
    return orientation() == Horizontal ? VySize(len * 8, len) : VySize(len, len * 8);
}

void VySlider::paintEvent(VyPaintEvent*) {
    VyStyle::instance()->drawSlider(canvas(), rect(), styleSlot(), orientation() == Horizontal,
                                    handleRect());
}

void VySlider::mousePressEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isEnabled()) {
        e->ignore();
        return;
    }
    e->accept();
    const VyRect handle = handleRect();
    if (handle.contains(e->pos())) {
        const int centre = orientation() == Horizontal
                               ? handle.left + handle.width() / 2
                               : height() - 1 - (handle.top + handle.height() / 2);
        m_dragOffset = along(e->pos()) - centre;
        setSliderDown(true);
        return;
    }
    // A click beside the handle pages towards it.
    const int handleCentre = orientation() == Horizontal
                                 ? handle.left + handle.width() / 2
                                 : height() - 1 - (handle.top + handle.height() / 2);
    triggerAction(along(e->pos()) > handleCentre ? PageStepAdd : PageStepSub);
}

void VySlider::mouseMoveEvent(VyMouseEvent* e) {
    if (!isSliderDown()) {
        e->ignore();
        return;
    }
    e->accept();
    const int before = value();
    setValue(valueAt(along(e->pos()) - m_dragOffset));
    if (value() != before)
        emitSignal(this, &sliderMoved);
}

void VySlider::mouseReleaseEvent(VyMouseEvent* e) {
    if (e->button() != VyMouseEvent::LeftButton || !isSliderDown()) {
        e->ignore();
        return;
    }
    e->accept();
    setSliderDown(false);
}
