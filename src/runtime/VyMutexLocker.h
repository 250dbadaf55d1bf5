#pragma once
// Holds a lock for the lifetime of a scope. Works with anything that has lock() and
// unlock(), such as VyWaitCondition: VyMutexLocker locker(m_wait);
#include "runtime/VyGlobal.h"

template <typename Lockable>
class VyMutexLocker {
public:
    explicit VyMutexLocker(Lockable& lockable)
        : m_lockable(&lockable) {
        m_lockable->lock();
    }
    ~VyMutexLocker() { unlock(); }
    VY_DISABLE_COPY_MOVE(VyMutexLocker)

    // Releases early, for a scope that must deliver with no lock held.
    void unlock() {
        if (m_lockable) {
            m_lockable->unlock();
            m_lockable = nullptr;
        }
    }

private:
    Lockable* m_lockable;
};
