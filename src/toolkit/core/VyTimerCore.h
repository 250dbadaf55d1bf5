#pragma once
// The timer thread: keeps the registered timers ordered by deadline, sleeps until the
// nearest one and posts a Timer event to each receiver whose deadline has passed.
//
// Lock order: this core's mutex, then the application's queue mutex (firing posts while
// holding it); never the reverse.
#include "runtime/VyList.h"
#include "toolkit/core/TimerRecord.h"
#include "toolkit/core/VyThread.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <pthread.h>
#include <unordered_map>

class VyObject;

class VyTimerCore : public VyThread {
public:
    // Monotonic time in nanoseconds. Tests pass a clock of their own and drive fireExpired()
    // by hand instead of starting the thread.
    using Clock = std::function<int64_t()>;
    static int64_t monotonicNanoseconds();

    explicit VyTimerCore(Clock clock = &monotonicNanoseconds);
    ~VyTimerCore() override;

    // Returns the new id (never 0). An interval below 1 ms counts as 1 ms.
    uint32_t registerTimer(int ms, VyObject* receiver, int repeat);
    // Unknown ids are reported and refused. Events already posted stay queued.
    bool unregisterTimer(uint32_t id);
    // Returns how many timers of the receiver went.
    int unregisterTimers(VyObject* receiver);

    // Posts one Timer event per expired timer and reschedules it from now (missed periods
    // are not caught up). Returns the nearest remaining deadline, or -1 without timers.
    int64_t fireExpired();

    // Ends the thread loop and joins it.
    void stop();

    int timerCount() const;
    // Times the thread woke up and looked at the list, for measuring idle behaviour.
    uint64_t wakeups() const { return m_wakeups.load(std::memory_order_relaxed); }

    void run() override;

private:
    int64_t fireExpiredLocked();
    void insertByDeadline(TimerRecord* record);
    void removeFromList(TimerRecord* record);

    Clock m_clock;
    // Guards everything below (except the atomics); the condition wakes the thread when
    // the list changes. The condition times out on the monotonic clock, the same one the
    // deadlines use.
    mutable pthread_mutex_t m_mutex;
    pthread_cond_t m_condition;
    // Ordered by deadline; equal deadlines in registration order.
    VyList<TimerRecord*> m_timerList;
    std::unordered_map<uint32_t, std::unique_ptr<TimerRecord>> m_timersById;
    int64_t m_currentTime = 0; // ns
    uint32_t m_lastId = 0;
    bool m_stopRequested = false;
    std::atomic<uint64_t> m_wakeups{0};
};
