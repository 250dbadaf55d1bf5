#include "toolkit/core/VyTimer.h"

#include "toolkit/events/VyTimerEvent.h"

VyTimer::VyTimer(VyObject* parent)
    : VyObject(parent) {}

VyTimer::~VyTimer() {
    stop();
}

void VyTimer::start() {
    if (m_timerId != 0)
        stop();
    m_timerId = startTimer(m_interval);
}

void VyTimer::start(int ms) {
    m_interval = ms;
    start();
}

void VyTimer::stop() {
    if (m_timerId != 0)
        killTimer(m_timerId);
    m_timerId = 0;
}

void VyTimer::timerEvent(VyTimerEvent* e) {
    if (m_timerId == 0 || e->timerId() != m_timerId)
        return;
    if (m_singleShot) {
        killTimer(m_timerId);
        m_timerId = 0;
    }
    emitSignal(this, &timeout);
}
