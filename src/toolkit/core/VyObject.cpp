#include "toolkit/core/VyObject.h"

#include "toolkit/core/VyApplication.h"
#include "toolkit/core/VyPostedEventQueue.h"
#include "toolkit/core/VyQueuedSignalEvent.h"
#include "toolkit/events/VyEvent.h"
#include "toolkit/events/VyTimerEvent.h"

#include <algorithm>

VyObject::VyObject(VyObject* parent)
    : m_connections(this) {
    setParent(parent);
}

VyObject::~VyObject() {
    // Children go first, each already without a parent so that none of them touches this
    // half-destroyed object.
    while (!m_children.isEmpty()) {
        VyObject* child = m_children.takeFirst();
        if (!child)
            continue;
        child->m_parent = nullptr;
        delete child;
    }
    if (m_parent) {
        m_parent->m_children.removeAll(this);
        m_parent = nullptr;
    }
    VyApplication* app = VyApplication::instance();
    if (app && app != this)
        app->objectDestroyed(this);
    emitSignal(this, &destroyed);
    if (app && app != this) {
        if (m_timerCount != 0)
            app->unregisterTimers(this);
        // Always asked: the count is guarded by the queue's mutex, which the call takes.
        app->removePostedEvents(this);
    }
    // m_connections is destroyed next and cuts every connection in both directions.
}

int VyObject::postedEventCount() const {
    VyApplication* app = VyApplication::instance();
    VyPostedEventQueue* queue = app ? app->postedEvents() : nullptr;
    return m_postedEventCount + (queue ? queue->batchedCount(this) : 0);
}

void VyObject::setParent(VyObject* parent) {
    if (parent == m_parent)
        return;
    if (m_parent)
        m_parent->m_children.removeAll(this);
    m_parent = parent;
    if (m_parent)
        m_parent->m_children.append(this);
}

bool VyObject::blockSignals(bool block) {
    bool previous = m_signalsBlocked;
    m_signalsBlocked = block;
    return previous;
}

void VyObject::installEventFilter(VyObject* filter) {
    if (!filter)
        return;
    m_eventFilters.erase(std::remove_if(m_eventFilters.begin(), m_eventFilters.end(),
                                        [filter](const VyPointer<VyObject>& entry) {
                                            return entry.isNull() || entry == filter;
                                        }),
                         m_eventFilters.end());
    m_eventFilters.insert(m_eventFilters.begin(), VyPointer<VyObject>(filter));
}

void VyObject::removeEventFilter(VyObject* filter) {
    for (VyPointer<VyObject>& entry : m_eventFilters)
        if (entry == filter)
            entry.reset();
}

VyList<VyObject*> VyObject::eventFilters() const {
    VyList<VyObject*> live;
    for (const VyPointer<VyObject>& entry : m_eventFilters)
        if (entry)
            live.append(entry.data());
    return live;
}

void VyObject::deleteLater() {
    VyApplication::postEvent(this, std::make_unique<VyEvent>(VyEvent::DeferredDelete));
}

int VyObject::startTimer(int ms) {
    VyApplication* app = VyApplication::instance();
    if (!app)
        return 0;
    uint32_t id = app->registerTimer(ms, this, -1);
    if (id != 0)
        ++m_timerCount;
    return static_cast<int>(id);
}

void VyObject::killTimer(int id) {
    VyApplication* app = VyApplication::instance();
    if (app && app->unregisterTimer(static_cast<uint32_t>(id)) && m_timerCount > 0)
        --m_timerCount;
}

bool VyObject::event(VyEvent* e) {
    switch (e->type()) {
    case VyEvent::QueuedSignal: {
        auto* call = static_cast<VyQueuedSignalEvent*>(e);
        if (call->slot())
            call->slot()(call->sender(), call->receiver());
        break;
    }
    case VyEvent::ScreenChange:
        broadcastEvent(e);
        break;
    case VyEvent::Timer:
        timerEvent(static_cast<VyTimerEvent*>(e));
        break;
    default:
        break;
    }
    return true;
}

void VyObject::customEvent(VyEvent*) {}

bool VyObject::eventFilter(VyObject*, VyEvent*) {
    return false;
}

void VyObject::timerEvent(VyTimerEvent*) {}

void VyObject::broadcastEvent(VyEvent* e) {
    // A copy: a child may reparent or delete siblings while handling the event.
    VyList<VyObject*> children = m_children;
    for (VyObject* child : children)
        if (m_children.contains(child))
            VyApplication::sendEvent(child, e);
}
