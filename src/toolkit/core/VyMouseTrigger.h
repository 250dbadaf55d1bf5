#pragma once
// An inactivity trigger: told the application's idle count (ticks without input), it calls
// onIdleTimeout once when the count passes its threshold and onActivity once when input
// brings the count back below it. Every trigger is in one process-wide list from
// construction to destruction. GUI thread only.
#include "runtime/VyGlobal.h"

#include <cstdint>

class VyMouseTrigger {
public:
    explicit VyMouseTrigger(int threshold);
    virtual ~VyMouseTrigger();
    VY_DISABLE_COPY_MOVE(VyMouseTrigger)

    // Input resumed after a time-out.
    virtual void onActivity() {}
    // The idle count passed the threshold.
    virtual void onIdleTimeout() {}

    // Hands the idle count to every enabled trigger in the list.
    static void idleCountChanged(int count);
    static int triggerCount();

    // Evaluates this trigger alone for the idle count.
    void update(int count);

    int threshold() const { return m_threshold; }
    void setThreshold(int ticks) { m_threshold = ticks; }
    bool isEnabled() const { return m_enabled != 0; }
    void setEnabled(bool enabled) { m_enabled = enabled ? 1 : 0; }
    bool isTimedOut() const { return m_timedOut != 0; }

protected:
    // For triggers that fire again after a further period (menus closed one by one).
    void setTimedOut(bool timedOut) { m_timedOut = timedOut ? 1 : 0; }

private:
    int32_t m_threshold;
    uint8_t m_enabled = 1;
    // Starts set: the first input after start-up counts as resumed activity.
    uint8_t m_timedOut = 1;
};
