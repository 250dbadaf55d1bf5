#pragma once
#include "toolkit/events/VyEvent.h"

class VyHideEvent : public VyEvent {
public:
    VyHideEvent()
        : VyEvent(Hide) {}
};
