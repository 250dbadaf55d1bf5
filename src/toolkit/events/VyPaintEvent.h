#pragma once
#include "runtime/VyRegion.h"
#include "toolkit/events/VyEvent.h"

// Paint (7). Each event carries its own copy of the region to repaint, in the receiving
// widget's coordinates, so a handler may keep or change it freely.
class VyPaintEvent : public VyEvent {
public:
    explicit VyPaintEvent(const VyRegion& region)
        : VyEvent(Paint)
        , m_region(region) {}

    const VyRegion& region() const { return m_region; }

private:
    VyRegion m_region;
};
