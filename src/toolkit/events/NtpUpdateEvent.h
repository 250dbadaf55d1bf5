#pragma once
// NTP update (1014): App's time-synchronisation result, in param and the data block.
#include "toolkit/events/CEvent.h"

class NtpUpdateEvent : public CEvent {
public:
    explicit NtpUpdateEvent(int param = 0)
        : CEvent(UiEventType::NtpUpdate, param) {}
};
