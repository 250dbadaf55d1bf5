#pragma once
#include "runtime/VyPoint.h"
#include "toolkit/events/VyEvent.h"

#include <cstdint>

// Wheel (6). `delta` is in multiples of 120 per notch.
class VyWheelEvent : public VyEvent {
public:
    static constexpr int kNotch = 120; // delta of one notch
    VyWheelEvent(VyPoint pos, VyPoint globalPos, int delta, uint8_t buttons)
        : VyEvent(Wheel)
        , m_pos(pos)
        , m_globalPos(globalPos)
        , m_delta(delta)
        , m_buttons(buttons) {}

    VyPoint pos() const { return m_pos; }
    void setPos(VyPoint pos) { m_pos = pos; }
    VyPoint globalPos() const { return m_globalPos; }
    int delta() const { return m_delta; }
    // Whole notches turned, at least one in the delta's direction (a fine-grained wheel
    // reports less than a notch at a time); 0 only for no delta.
    int notches() const {
        const int whole = m_delta / kNotch;
        return whole != 0 || m_delta == 0 ? whole : (m_delta > 0 ? 1 : -1);
    }
    uint8_t buttons() const { return m_buttons; }

private:
    VyPoint m_pos;
    VyPoint m_globalPos;
    int32_t m_delta;
    uint8_t m_buttons;
};
