#pragma once
#include "toolkit/core/VySlot.h"

#include <cstdint>

// One (receiver, slot) pair connected to one signal of a sender. Held by value in its
// ConnectionList so that an emission walks one contiguous array.
struct Connection {
    // A connection cut while its signal is being emitted stays in place until the
    // emission ends, with a null receiver and slot and this mode, so that the emission
    // loop needs one test (direct or not) to skip it.
    static constexpr int32_t kCut = -1;

    VyObject* receiver = nullptr;
    VySlot slot = nullptr;
    // 0 = the slot is called during emission; otherwise it is posted to the receiver as
    // a QueuedSignal event and runs when the GUI thread dispatches it.
    int32_t queued = 0;
};
