#pragma once
// A repeating or single-shot timer that emits `timeout`.
#include "toolkit/core/VyObject.h"

class VyTimer : public VyObject {
    VY_OBJECT(VyTimer, VyObject)
public:
    explicit VyTimer(VyObject* parent = nullptr);
    ~VyTimer() override;

    VySignal timeout;

    void setInterval(int ms) { m_interval = ms; }
    int interval() const { return m_interval; }
    void setSingleShot(bool singleShot) { m_singleShot = singleShot; }
    bool isSingleShot() const { return m_singleShot; }
    bool isActive() const { return m_timerId != 0; }
    int timerId() const { return m_timerId; }

    // Restarts when already active.
    void start();
    void start(int ms);
    void stop();

protected:
    // Expiries of a timer that was stopped or restarted in the meantime may still be
    // queued; they carry an old id and are dropped here.
    void timerEvent(VyTimerEvent* e) override;

private:
    int m_timerId = 0;
    int m_interval = 0; // ms
    bool m_singleShot = false;
};
