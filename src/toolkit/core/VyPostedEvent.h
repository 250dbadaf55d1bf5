#pragma once
#include "toolkit/events/VyEvent.h"

#include <memory>

class VyObject;

// One entry of the posted-event queue: the receiver and the event it owns until delivery.
struct VyPostedEvent {
    VyObject* receiver = nullptr;
    std::unique_ptr<VyEvent> event;
};
