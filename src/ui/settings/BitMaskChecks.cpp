#include "ui/settings/BitMaskChecks.h"

#include "toolkit/widgets/VyCheckBox.h"
#include "ui/UiLook.h"

#include <algorithm>

namespace {

constexpr int kBoxWidthDesign = 90; // pixels at 1920x1080, room for "64"

} // namespace

BitMaskChecks::BitMaskChecks(int count, VyWidget* parent)
    : CWidget(parent) {
    if (count > kMaxBits)
        count = kMaxBits;
    for (int i = 0; i < count; ++i) {
        auto* b = new VyCheckBox(VyString::number(i + 1), this);
        b->show();
        VyObject::connect(b, &b->toggled, this, VY_SLOT(BitMaskChecks, boxToggled));
        m_boxes.push_back(b);
    }
}

void BitMaskChecks::setMask(uint64_t mask) {
    for (size_t i = 0; i < m_boxes.size(); ++i) {
        const bool on = (mask >> i) & 1u;
        if (m_boxes[i]->isChecked() != on)
            m_boxes[i]->setChecked(on);
    }
}

uint64_t BitMaskChecks::mask() const {
    uint64_t m = 0;
    for (size_t i = 0; i < m_boxes.size(); ++i)
        if (m_boxes[i]->isChecked())
            m |= uint64_t(1) << i;
    return m;
}

void BitMaskChecks::boxToggled() {
    emitSignal(this, &toggled);
}

int BitMaskChecks::rowsFor(int width) const {
    const int columns = std::max(1, width / std::max(1, UiLook::scaledX(kBoxWidthDesign)));
    return std::max(1, (count() + columns - 1) / columns);
}

void BitMaskChecks::resizeEvent(VyResizeEvent*) {
    const int w = std::max(1, UiLook::scaledX(kBoxWidthDesign));
    const int columns = std::max(1, width() / w);
    const int rowHeight = height() / rowsFor(width());
    for (size_t i = 0; i < m_boxes.size(); ++i)
        m_boxes[i]->setGeometry(int(i) % columns * w, int(i) / columns * rowHeight, w, rowHeight);
}
