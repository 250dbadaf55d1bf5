#pragma once
#include "toolkit/events/VyEvent.h"

class VyShowEvent : public VyEvent {
public:
    VyShowEvent()
        : VyEvent(Show) {}
};
