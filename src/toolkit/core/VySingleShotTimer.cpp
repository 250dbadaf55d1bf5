#include "toolkit/core/VySingleShotTimer.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/events/VyTimerEvent.h"

VySingleShotTimer::VySingleShotTimer(VyObject* parent)
    : VyObject(parent) {}

VySingleShotTimer::~VySingleShotTimer() {
    VyApplication* app = VyApplication::instance();
    for (const auto& entry : m_receivers) {
        if (app)
            app->unregisterTimer(entry.first);
        disconnect(entry.second, &entry.second->destroyed, this,
                   VY_SLOT(VySingleShotTimer, receiverDestroyed));
    }
    m_receivers.clear();
    m_slots.clear();
}

int VySingleShotTimer::singleShot(int ms, VyObject* receiver, VySlot slot) {
    VyApplication* app = VyApplication::instance();
    if (!app || !app->singleShotTimer())
        return 0;
    return app->singleShotTimer()->schedule(ms, receiver, slot);
}

bool VySingleShotTimer::cancel(int timerId) {
    VyApplication* app = VyApplication::instance();
    return app && app->singleShotTimer() && app->singleShotTimer()->unschedule(timerId);
}

int VySingleShotTimer::schedule(int ms, VyObject* receiver, VySlot slot) {
    VyApplication* app = VyApplication::instance();
    if (!app || !receiver || !slot)
        return 0;
    // repeat 0: the timer thread drops the record after its one expiry.
    uint32_t id = app->registerTimer(ms, this, 0);
    m_receivers.insert(id, receiver);
    m_slots.insert(id, slot);
    // Refused (and harmless) when the receiver already has a pending call.
    connect(receiver, &receiver->destroyed, this, VY_SLOT(VySingleShotTimer, receiverDestroyed));
    return static_cast<int>(id);
}

bool VySingleShotTimer::unschedule(int timerId) {
    uint32_t id = static_cast<uint32_t>(timerId);
    if (!m_receivers.contains(id))
        return false;
    VyApplication* app = VyApplication::instance();
    if (app)
        app->unregisterTimer(id);
    forget(id);
    return true;
}

void VySingleShotTimer::timerEvent(VyTimerEvent* e) {
    uint32_t id = static_cast<uint32_t>(e->timerId());
    if (!m_receivers.contains(id))
        return; // cancelled after the expiry was queued
    VyObject* receiver = m_receivers.value(id);
    VySlot slot = m_slots.value(id);
    forget(id);
    slot(this, receiver);
}

void VySingleShotTimer::receiverDestroyed(VyObject* receiver) {
    VyApplication* app = VyApplication::instance();
    for (auto it = m_receivers.begin(); it != m_receivers.end();) {
        if (it->second != receiver) {
            ++it;
            continue;
        }
        if (app)
            app->unregisterTimer(it->first);
        m_slots.remove(it->first);
        it = m_receivers.erase(it);
    }
}

void VySingleShotTimer::forget(uint32_t id) {
    VyObject* receiver = m_receivers.take(id);
    m_slots.remove(id);
    for (const auto& entry : m_receivers)
        if (entry.second == receiver)
            return; // still has another pending call
    disconnect(receiver, &receiver->destroyed, this, VY_SLOT(VySingleShotTimer, receiverDestroyed));
}
