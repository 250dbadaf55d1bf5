#pragma once
// A POSIX thread whose body is the virtual run(). A subclass that keeps state used by run()
// must end the thread in its own destructor (the base destructor runs too late for that).
#include "runtime/VyGlobal.h"

#include <atomic>
#include <pthread.h>

class VyThread {
public:
    VyThread() = default;
    virtual ~VyThread();
    VY_DISABLE_COPY_MOVE(VyThread)

    // The thread body; empty by default.
    virtual void run() {}

    // Does nothing while the thread runs; a thread whose run() returned is joined and
    // started again.
    void start();
    // Cancels a running thread and joins it.
    void terminate();
    // Joins the thread after run() returns on its own.
    void wait();
    bool isRunning() const { return m_handle != 0 && !m_finished.load(); }

private:
    static void* entry(void* self);

    // Non-zero from start() until the thread is joined; touched only by the thread that
    // starts, waits and terminates.
    pthread_t m_handle = 0;
    std::atomic<bool> m_finished{false};
};
