#pragma once
#include "runtime/VyPoint.h"
#include "toolkit/events/VyEvent.h"

#include <cstdint>

// RawMouse (1): one sample from the mouse reader (or App's remote pointer), posted to the
// application, which turns consecutive samples into press, release, move and wheel events.
class VyRawMouseEvent : public VyEvent {
public:
    VyRawMouseEvent(int x, int y, int buttons, int wheel)
        : VyEvent(RawMouse)
        , m_x(x)
        , m_y(y)
        , m_buttons(buttons)
        , m_wheel(wheel) {}

    VyPoint pos() const { return {m_x, m_y}; }
    int x() const { return m_x; }
    int y() const { return m_y; }
    // 1 = left, 2 = right, 4 = middle.
    int buttons() const { return m_buttons; }
    // Multiples of 120; positive is the device's positive direction.
    int wheel() const { return m_wheel; }

private:
    int32_t m_x;
    int32_t m_y;
    int32_t m_buttons;
    int32_t m_wheel;
};
