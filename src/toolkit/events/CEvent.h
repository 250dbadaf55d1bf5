#pragma once
// The base of the recorder-level events (types 1000 and up). They bypass event filters
// and reach the receiver's customEvent.
#include "protocol/UiEventType.h"
#include "toolkit/events/VyEvent.h"
#include "toolkit/events/VyEventData.h"

#include <cstdint>

class CEvent : public VyEvent {
public:
    // The type numbers are UiEventType's.
    explicit CEvent(int type, int value = 0)
        : VyEvent(type)
        , param(value) {}

    // An owned block (such as an IPC message) travelling with the event; freed with the
    // event unless a consumer takes it. Forwarding:
    //     auto* next = new CEvent(type); next->setData(old->takeData());
    void setData(VyEventData data) { m_data = std::move(data); }
    void* data() const { return m_data.get(); }
    VyEventData takeData() { return std::move(m_data); }

    int32_t param;

private:
    VyEventData m_data;
};
