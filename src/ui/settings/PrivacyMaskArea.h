#pragma once
// The privacy masks over the picture: a drag with the left button draws a new mask (while
// one of the channel's PrivacyMaskBlock::kMasks is free), a click on a mask removes it.
// Both ends of a drag are clamped into the picture, so a drag past its edges stops there.
// The area edits the page's masks and never owns them.
#include "protocol/PrivacyMaskBlock.h"
#include "runtime/VyPoint.h"
#include "toolkit/widgets/CWidget.h"

class PrivacyMaskArea : public CWidget {
    VY_OBJECT(PrivacyMaskArea, CWidget)
public:
    explicit PrivacyMaskArea(VyWidget* parent = nullptr);
    // PrivacyMaskBlock::kMasks masks, or null (input ignored).
    void setMasks(PrivacyMaskBlock::Mask* masks) {
        m_masks = masks;
        update();
    }
    int usedCount() const;

    // The mask between two points of an area of `width` x `height` pixels, in thousandths of
    // the picture; each point is clamped into the area first. Width or height 0: too thin to
    // be a mask (below PrivacyMaskBlock::kMinSide).
    static PrivacyMaskBlock::Mask maskFrom(VyPoint a, VyPoint b, int width, int height);

    VySignal masksEdited;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;

private:
    VyRect pixels(const PrivacyMaskBlock::Mask& m) const;

    PrivacyMaskBlock::Mask* m_masks = nullptr; // the page's, never owned
    bool m_dragging = false;
    VyPoint m_press, m_current;
};
