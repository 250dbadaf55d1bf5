#include "toolkit/core/EventLoop.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyPointer.h"

EventLoop::EventLoop(VyObject* parent)
    : VyObject(parent) {}

int EventLoop::exec() {
    VyApplication* app = VyApplication::instance();
    if (m_running || !app)
        return 1;
    m_running = true;
    // The loop object may be deleted by a handler it runs; the guard notices.
    VyPointer<EventLoop> self(this);
    while (self && m_running && !app->isQuitting())
        app->processOneEvent();
    return 0;
}
