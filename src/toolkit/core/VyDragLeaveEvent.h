#pragma once
#include "toolkit/core/VyEvent.h"

// DragLeave (26).
class VyDragLeaveEvent : public VyEvent {
public:
    VyDragLeaveEvent()
        : VyEvent(DragLeave) {}
};
