#pragma once
// One-off calls of (receiver, slot) after a delay, through the application's timer
// service. A receiver that dies first takes its pending calls with it.
#include "runtime/VyMap.h"
#include "toolkit/core/VyObject.h"

#include <cstdint>

class VySingleShotTimer : public VyObject {
    VY_OBJECT(VySingleShotTimer, VyObject)
public:
    explicit VySingleShotTimer(VyObject* parent = nullptr);
    ~VySingleShotTimer() override;

    // Calls slot(this, receiver) once, ms milliseconds from now, on the GUI thread.
    // Returns the timer id, 0 when there is no application.
    static int singleShot(int ms, VyObject* receiver, VySlot slot);
    // Cancels one pending call; false if it already ran or never existed.
    static bool cancel(int timerId);

    int schedule(int ms, VyObject* receiver, VySlot slot);
    bool unschedule(int timerId);
    int pendingCount() const { return m_receivers.size(); }

protected:
    void timerEvent(VyTimerEvent* e) override;

private:
    void receiverDestroyed(VyObject* receiver);
    void forget(uint32_t id);

    // Both keyed by timer id.
    VyMap<uint32_t, VyObject*> m_receivers;
    VyMap<uint32_t, VySlot> m_slots;
};
