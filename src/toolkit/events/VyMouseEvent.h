#pragma once
#include "runtime/VyPoint.h"
#include "toolkit/events/VyEvent.h"

#include <cstdint>

// MouseButtonPress, MouseButtonRelease, MouseButtonDblClick and MouseMove. Button bits:
// 1 = left, 2 = right, 4 = middle. `button` is the one that changed (0 for a move),
// `buttons` the state after the change.
class VyMouseEvent : public VyEvent {
public:
    enum Button : uint8_t { NoButton = 0, LeftButton = 1, RightButton = 2, MidButton = 4 };

    VyMouseEvent(int type, VyPoint pos, VyPoint globalPos, uint8_t button, uint8_t buttons)
        : VyEvent(type)
        , m_pos(pos)
        , m_globalPos(globalPos)
        , m_button(button)
        , m_buttons(buttons) {}

    // In the receiver's coordinates; the dispatcher rewrites it while the event climbs
    // to the parents.
    VyPoint pos() const { return m_pos; }
    void setPos(VyPoint pos) { m_pos = pos; }
    int x() const { return m_pos.x; }
    int y() const { return m_pos.y; }
    VyPoint globalPos() const { return m_globalPos; }
    uint8_t button() const { return m_button; }
    uint8_t buttons() const { return m_buttons; }

private:
    VyPoint m_pos;
    VyPoint m_globalPos;
    uint8_t m_button;
    uint8_t m_buttons;
};
