#pragma once
#include "toolkit/core/VySlot.h"
#include "toolkit/events/VyEvent.h"

// QueuedSignal (30): a queued connection's slot call, run by the receiver's event(). The
// sender is not checked again on delivery; only a sender that is also the receiver takes
// its queued calls with it when it dies.
class VyQueuedSignalEvent : public VyEvent {
public:
    VyQueuedSignalEvent(VyObject* sender, VyObject* receiver, VySlot call)
        : VyEvent(QueuedSignal)
        , m_sender(sender)
        , m_receiver(receiver)
        , m_slot(call) {}

    VyObject* sender() const { return m_sender; }
    VyObject* receiver() const { return m_receiver; }
    VySlot slot() const { return m_slot; }

private:
    VyObject* m_sender;
    VyObject* m_receiver;
    VySlot m_slot;
};
