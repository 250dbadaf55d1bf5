#pragma once
#include "toolkit/core/VyEvent.h"

class VyHideEvent : public VyEvent {
public:
    VyHideEvent()
        : VyEvent(Hide) {}
};
