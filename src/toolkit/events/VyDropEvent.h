#pragma once
#include "runtime/VyPoint.h"
#include "toolkit/events/VyEvent.h"

#include <cstdint>

class VyMimeData;

// Drop (27) and the base of the drag-move and drag-enter events.
class VyDropEvent : public VyEvent {
public:
    enum DropAction : int32_t {
        IgnoreAction = 0,
        CopyAction = 1,
        MoveAction = 2,
        LinkAction = 4,
    };

    VyDropEvent(VyPoint pos, int possibleActions, const VyMimeData* mimeData, uint8_t buttons,
                int type = Drop)
        : VyEvent(type)
        , m_pos(pos)
        , m_buttons(buttons)
        , m_possibleActions(possibleActions)
        , m_dropAction(CopyAction)
        , m_defaultAction(CopyAction)
        , m_mimeData(mimeData) {}

    VyPoint pos() const { return m_pos; }
    void setPos(VyPoint pos) { m_pos = pos; }
    uint8_t buttons() const { return m_buttons; }
    int possibleActions() const { return m_possibleActions; }
    int dropAction() const { return m_dropAction; }
    void setDropAction(int action) { m_dropAction = action; }
    int defaultAction() const { return m_defaultAction; }
    const VyMimeData* mimeData() const { return m_mimeData; }

private:
    VyPoint m_pos;
    uint8_t m_buttons;
    int32_t m_possibleActions; // bit mask of DropAction
    int32_t m_dropAction;
    int32_t m_defaultAction;
    const VyMimeData* m_mimeData;
};
