#pragma once
#include <cstdint>

class VyObject;

// One registered timer of the timer thread.
struct TimerRecord {
    int64_t interval = 0; // ns
    int64_t deadline = 0; // ns on the monotonic clock
    uint32_t id = 0;
    VyObject* receiver = nullptr;
    // Negative: forever; positive: further expiries after the next one; 0: the next expiry
    // is the last.
    int32_t repeat = -1;
};
