#pragma once
#include "toolkit/events/VyDropEvent.h"

// DragMove (25).
class VyDragMoveEvent : public VyDropEvent {
public:
    VyDragMoveEvent(VyPoint pos, int possibleActions, const VyMimeData* mimeData, uint8_t buttons,
                    int type = DragMove)
        : VyDropEvent(pos, possibleActions, mimeData, buttons, type) {}
};
