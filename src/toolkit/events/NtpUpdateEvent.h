#pragma once
// NTP update (1014): App's time-synchronisation result, in param and the data block.
#include "toolkit/events/CEvent.h"

class NtpUpdateEvent : public CEvent {
public:
    explicit NtpUpdateEvent(int value = 0)
        : CEvent(UiEventType::NtpUpdate, value) {}
};
