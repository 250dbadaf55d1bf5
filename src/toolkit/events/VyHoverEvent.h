#pragma once
#include "runtime/VyPoint.h"
#include "toolkit/events/VyEvent.h"

// HoverEnter (19, oldPos undefined) and HoverLeave (20, pos undefined).
class VyHoverEvent : public VyEvent {
public:
    static constexpr VyPoint kUndefined{-1, -1};

    VyHoverEvent(int type, VyPoint pos, VyPoint oldPos)
        : VyEvent(type)
        , m_pos(pos)
        , m_oldPos(oldPos) {}

    VyPoint pos() const { return m_pos; }
    VyPoint oldPos() const { return m_oldPos; }

private:
    VyPoint m_pos;
    VyPoint m_oldPos;
};
