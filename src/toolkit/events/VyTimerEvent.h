#pragma once
#include "toolkit/events/VyEvent.h"

#include <cstdint>

// Timer (9), posted by the timer thread for each expiry.
class VyTimerEvent : public VyEvent {
public:
    explicit VyTimerEvent(int timerId)
        : VyEvent(Timer)
        , m_timerId(timerId) {}

    int timerId() const { return m_timerId; }

private:
    int32_t m_timerId;
};
