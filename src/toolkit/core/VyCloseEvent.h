#pragma once
#include "toolkit/core/VyEvent.h"

class VyCloseEvent : public VyEvent {
public:
    VyCloseEvent()
        : VyEvent(Close) {}
};
