#pragma once
// A mutex and a condition variable that belong together. Timed waits run on the monotonic
// clock, so setting the wall clock (the recorder does, from NTP or the user) neither cuts
// a wait short nor stretches it.
//
// wait() and wait(ms) must be called with the mutex held; they release it while waiting
// and hold it again when they return. A wake-up may be spurious: callers re-check their
// condition in a loop.
#include "runtime/VyGlobal.h"

#include <pthread.h>

class VyWaitCondition {
public:
    VyWaitCondition();
    ~VyWaitCondition();
    VY_DISABLE_COPY_MOVE(VyWaitCondition)

    void lock();
    void unlock();
    bool tryLock();

    void wait();
    // Returns false when msecs passed without a wake-up.
    bool wait(unsigned long msecs);
    void wakeOne();
    void wakeAll();

    pthread_mutex_t* mutex() { return &m_mutex; }

private:
    pthread_mutex_t m_mutex;
    pthread_cond_t m_cond;
};
