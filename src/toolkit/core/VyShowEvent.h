#pragma once
#include "toolkit/core/VyEvent.h"

class VyShowEvent : public VyEvent {
public:
    VyShowEvent()
        : VyEvent(Show) {}
};
