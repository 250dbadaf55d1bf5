#pragma once
#include "toolkit/events/VyEvent.h"

class VyCloseEvent : public VyEvent {
public:
    VyCloseEvent()
        : VyEvent(Close) {}
};
