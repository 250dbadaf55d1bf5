#pragma once
// A row of numbered check boxes standing for the bits of a mask: the channels an alarm
// records, the relay outputs it closes. Box i is bit i and is labelled i + 1.
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

    VySignal toggled;

protected:
    void resizeEvent(VyResizeEvent* e) override;

private:
    void boxToggled();
    std::vector<VyCheckBox*> m_boxes; // children
};
