#include "toolkit/core/VyTimerCore.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyApplication.h"
#include "toolkit/events/VyTimerEvent.h"

#include <ctime>

namespace {

constexpr int64_t kNanosPerMilli = 1000000;     // ns per ms
constexpr int64_t kNanosPerSecond = 1000000000; // ns per s

// Unlocks on scope exit, also when the thread is cancelled inside a wait.
class MutexLocker {
public:
    explicit MutexLocker(pthread_mutex_t* mutex)
        : m_mutex(mutex) {
        pthread_mutex_lock(m_mutex);
    }
    ~MutexLocker() { pthread_mutex_unlock(m_mutex); }
    MutexLocker(const MutexLocker&) = delete;
    MutexLocker& operator=(const MutexLocker&) = delete;

private:
    pthread_mutex_t* m_mutex;
};

} // namespace

int64_t VyTimerCore::monotonicNanoseconds() {
    timespec ts;
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<int64_t>(ts.tv_sec) * kNanosPerSecond + ts.tv_nsec;
}

VyTimerCore::VyTimerCore(Clock clock)
    : m_clock(clock ? std::move(clock) : Clock(&monotonicNanoseconds)) {
    pthread_mutex_init(&m_mutex, nullptr);
    // The deadlines live on the monotonic clock, so the wait must time out on it too: a
    // wall-clock jump (NTP, the user setting the time) must not stall or rush the timers.
    pthread_condattr_t attr;
    pthread_condattr_init(&attr);
    pthread_condattr_setclock(&attr, CLOCK_MONOTONIC);
    pthread_cond_init(&m_condition, &attr);
    pthread_condattr_destroy(&attr);
}

VyTimerCore::~VyTimerCore() {
    stop();
    pthread_cond_destroy(&m_condition);
    pthread_mutex_destroy(&m_mutex);
}

void VyTimerCore::stop() {
    {
        MutexLocker lock(&m_mutex);
        m_stopRequested = true;
        pthread_cond_signal(&m_condition);
    }
    wait();
}

uint32_t VyTimerCore::registerTimer(int ms, VyObject* receiver, int repeat) {
    auto record = std::make_unique<TimerRecord>();
    record->interval = ms < 1 ? kNanosPerMilli : static_cast<int64_t>(ms) * kNanosPerMilli;
    record->receiver = receiver;
    record->repeat = repeat;
    uint32_t id;
    {
        MutexLocker lock(&m_mutex);
        record->deadline = m_clock() + record->interval;
        do {
            id = ++m_lastId;
        } while (id == 0 || m_timersById.count(id) != 0);
        record->id = id;
        insertByDeadline(record.get());
        m_timersById.emplace(id, std::move(record));
        pthread_cond_signal(&m_condition);
    }
    return id;
}

bool VyTimerCore::unregisterTimer(uint32_t id) {
    std::unique_ptr<TimerRecord> record;
    {
        MutexLocker lock(&m_mutex);
        auto it = m_timersById.find(id);
        if (it == m_timersById.end()) {
            vyFrameworkLog("unregisterTimer(timer_id=%u), invalid timer id !!!\n", id);
            return false;
        }
        record = std::move(it->second);
        m_timersById.erase(it);
        removeFromList(record.get());
        pthread_cond_signal(&m_condition);
    }
    return true;
}

int VyTimerCore::unregisterTimers(VyObject* receiver) {
    int removed = 0;
    MutexLocker lock(&m_mutex);
    for (int i = m_timerList.size() - 1; i >= 0; --i) {
        TimerRecord* record = m_timerList.at(i);
        if (record->receiver != receiver)
            continue;
        m_timerList.removeAt(i);
        m_timersById.erase(record->id);
        ++removed;
    }
    if (removed)
        pthread_cond_signal(&m_condition);
    return removed;
}

int VyTimerCore::timerCount() const {
    MutexLocker lock(&m_mutex);
    return static_cast<int>(m_timersById.size());
}

int64_t VyTimerCore::fireExpired() {
    MutexLocker lock(&m_mutex);
    return fireExpiredLocked();
}

int64_t VyTimerCore::fireExpiredLocked() {
    m_currentTime = m_clock();
    while (!m_timerList.isEmpty() && m_timerList.first()->deadline <= m_currentTime) {
        TimerRecord* record = m_timerList.takeFirst();
        // The queue's mutex is taken inside ours: the one lock order of the two.
        VyApplication::postEvent(record->receiver,
                                 std::make_unique<VyTimerEvent>(static_cast<int>(record->id)));
        record->deadline = m_currentTime + record->interval;
        if (record->repeat < 0) {
            insertByDeadline(record);
        } else if (record->repeat > 0) {
            --record->repeat;
            insertByDeadline(record);
        } else {
            m_timersById.erase(record->id);
        }
    }
    return m_timerList.isEmpty() ? -1 : m_timerList.first()->deadline;
}

void VyTimerCore::insertByDeadline(TimerRecord* record) {
    // From the tail: new and rescheduled timers mostly belong near the end, and equal
    // deadlines keep their registration order.
    int i = m_timerList.size();
    while (i > 0 && m_timerList.at(i - 1)->deadline > record->deadline)
        --i;
    m_timerList.insert(i, record);
}

void VyTimerCore::removeFromList(TimerRecord* record) {
    m_timerList.removeOne(record);
}

void VyTimerCore::run() {
    MutexLocker lock(&m_mutex);
    while (!m_stopRequested) {
        m_wakeups.fetch_add(1, std::memory_order_relaxed);
        int64_t next = fireExpiredLocked();
        if (m_stopRequested)
            break;
        if (next < 0) {
            pthread_cond_wait(&m_condition, &m_mutex);
        } else {
            timespec until;
            until.tv_sec = static_cast<time_t>(next / kNanosPerSecond);
            until.tv_nsec = static_cast<long>(next % kNanosPerSecond);
            pthread_cond_timedwait(&m_condition, &m_mutex, &until);
        }
    }
}
