#include "toolkit/core/VyThread.h"

#include "runtime/VyLog.h"

#include <cstring>

VyThread::~VyThread() {
    terminate();
}

void* VyThread::entry(void* self) {
    auto* thread = static_cast<VyThread*>(self);
    thread->run();
    thread->m_finished.store(true);
    return nullptr;
}

void VyThread::start() {
    if (m_handle != 0) {
        if (!m_finished.load())
            return;
        wait();
    }
    m_finished.store(false);
    pthread_t handle;
    int rc = pthread_create(&handle, nullptr, &VyThread::entry, this);
    if (rc != 0) {
        vyFrameworkLog("pthread_create failed: %s !!!\n", std::strerror(rc));
        return;
    }
    m_handle = handle;
}

void VyThread::terminate() {
    if (m_handle == 0)
        return;
    if (!m_finished.load() && pthread_cancel(m_handle) != 0)
        return;
    if (pthread_join(m_handle, nullptr) == 0)
        m_handle = 0;
}

void VyThread::wait() {
    if (m_handle == 0)
        return;
    if (pthread_join(m_handle, nullptr) == 0)
        m_handle = 0;
}
