#include "runtime/VyWaitCondition.h"

#include "runtime/VyLog.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <ctime>

namespace {

constexpr long kNSecsPerSec = 1000000000L;
// Longer waits are cut to this (about 31 years) so that the deadline cannot overflow. 64 bits
// wide: `unsigned long` holds only 49 days where it is 32 bits.
constexpr uint64_t kMaxWaitMs = 1000000000000ULL;

void check(int rc, const char* what) {
    if (rc != 0)
        vyFrameworkLog("VyWaitCondition: %s failed: %s !!!\n", what, strerror(rc));
}

} // namespace

VyWaitCondition::VyWaitCondition() {
    check(pthread_mutex_init(&m_mutex, nullptr), "pthread_mutex_init");
    pthread_condattr_t attr;
    check(pthread_condattr_init(&attr), "pthread_condattr_init");
    check(pthread_condattr_setclock(&attr, CLOCK_MONOTONIC), "pthread_condattr_setclock");
    check(pthread_cond_init(&m_cond, &attr), "pthread_cond_init");
    pthread_condattr_destroy(&attr);
}

VyWaitCondition::~VyWaitCondition() {
    pthread_cond_destroy(&m_cond);
    pthread_mutex_destroy(&m_mutex);
}

void VyWaitCondition::lock() {
    check(pthread_mutex_lock(&m_mutex), "pthread_mutex_lock");
}

void VyWaitCondition::unlock() {
    check(pthread_mutex_unlock(&m_mutex), "pthread_mutex_unlock");
}

bool VyWaitCondition::tryLock() {
    return pthread_mutex_trylock(&m_mutex) == 0;
}

void VyWaitCondition::wait() {
    check(pthread_cond_wait(&m_cond, &m_mutex), "pthread_cond_wait");
}

bool VyWaitCondition::wait(unsigned long msecs) {
    const uint64_t ms = std::min<uint64_t>(msecs, kMaxWaitMs);
    timespec deadline{};
    clock_gettime(CLOCK_MONOTONIC, &deadline);
    deadline.tv_sec += static_cast<time_t>(ms / 1000);
    deadline.tv_nsec += static_cast<long>(ms % 1000) * 1000000L;
    if (deadline.tv_nsec >= kNSecsPerSec) {
        deadline.tv_sec += 1;
        deadline.tv_nsec -= kNSecsPerSec;
    }
    const int rc = pthread_cond_timedwait(&m_cond, &m_mutex, &deadline);
    if (rc == ETIMEDOUT)
        return false;
    check(rc, "pthread_cond_timedwait");
    return true;
}

void VyWaitCondition::wakeOne() {
    check(pthread_cond_signal(&m_cond), "pthread_cond_signal");
}

void VyWaitCondition::wakeAll() {
    check(pthread_cond_broadcast(&m_cond), "pthread_cond_broadcast");
}
