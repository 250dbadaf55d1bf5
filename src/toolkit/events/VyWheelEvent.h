#pragma once
#include "runtime/VyPoint.h"
#include "toolkit/events/VyEvent.h"

#include <cstdint>

// Wheel (6). `delta` is in multiples of 120 per notch.
class VyWheelEvent : public VyEvent {
public:
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
    uint8_t buttons() const { return m_buttons; }

private:
    VyPoint m_pos;
    VyPoint m_globalPos;
    int32_t m_delta;
    uint8_t m_buttons;
};
