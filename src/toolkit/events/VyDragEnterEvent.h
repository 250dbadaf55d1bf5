#pragma once
#include "toolkit/events/VyDragMoveEvent.h"

// DragEnter (24).
class VyDragEnterEvent : public VyDragMoveEvent {
public:
    VyDragEnterEvent(VyPoint pos, int possibleActions, const VyMimeData* mimeData, uint8_t buttons)
        : VyDragMoveEvent(pos, possibleActions, mimeData, buttons, DragEnter) {}
};
