#pragma once
#include "toolkit/core/VySlot.h"

#include <cstdint>

// One (receiver, slot) pair connected to one signal of a sender.
struct Connection {
    VyObject* receiver = nullptr;
    VySlot slot = nullptr;
    // 0 = the slot is called during emission; otherwise it is posted to the receiver as
    // a QueuedSignal event and runs when the GUI thread dispatches it.
    int32_t queued = 0;
};
