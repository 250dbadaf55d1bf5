#pragma once
// Numbered check boxes standing for the bits of a mask: the channels an alarm records, the
// relay outputs it closes, the channels a user may watch. Box i is bit i and is labelled
// i + 1. They run in a row and wrap into as many rows as the width needs (64 channels do
// not fit one row), the widget's height shared among the rows.
#include "toolkit/widgets/CWidget.h"

#include <cstdint>
#include <vector>

class VyCheckBox;

class BitMaskChecks : public CWidget {
    VY_OBJECT(BitMaskChecks, CWidget)
public:
    static constexpr int kMaxBits = 64;

    BitMaskChecks(int count, VyWidget* parent);
    int count() const { return int(m_boxes.size()); }
    VyCheckBox* box(int bit) const { return m_boxes[size_t(bit)]; }
    // Bits beyond the count are ignored.
    void setMask(uint64_t mask);
    uint64_t mask() const;
    // Rows the boxes take at `width`.
    int rowsFor(int width) const;

    VySignal toggled;

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void boxToggled();
    std::vector<VyCheckBox*> m_boxes; // children
};
