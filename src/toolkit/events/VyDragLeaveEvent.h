#pragma once
#include "toolkit/events/VyEvent.h"

// DragLeave (26).
class VyDragLeaveEvent : public VyEvent {
public:
    VyDragLeaveEvent()
        : VyEvent(DragLeave) {}
};
