#pragma once
// The root of every toolkit class: owns its children, carries the connection table of its
// signals, accepts event filters and receives events.
#include "runtime/VyGlobal.h"
#include "runtime/VyList.h"
#include "runtime/VyString.h"
#include "toolkit/core/Connection.h"
#include "toolkit/core/ConnectionList.h"
#include "toolkit/core/VyPointer.h"
#include "toolkit/core/VySignal.h"
#include "toolkit/core/VySignalMapper.h"
#include "toolkit/core/VySlot.h"

#include <cstdint>
#include <cstring>
#include <vector>

class VyEvent;
class VyTimerEvent;

// One line at the top of every class derived from VyObject, naming the class and its
// direct base: className() answers the name, inherits() compares up the chain.
#define VY_OBJECT(Class, Base)                                                                     \
public:                                                                                            \
    VyString className() const override {                                                          \
        return VyString(#Class);                                                                   \
    }                                                                                              \
    bool inherits(const char* name) const override {                                               \
        return std::strcmp(name, #Class) == 0 || Base::inherits(name);                             \
    }                                                                                              \
                                                                                                   \
private:

class VyObject {
public:
    explicit VyObject(VyObject* parent = nullptr);
    VY_DISABLE_COPY_MOVE(VyObject)

    // Virtual operations, in this order: className, destructor, inherits, isWidgetType,
    // event, customEvent, eventFilter, timerEvent, broadcastEvent.
    virtual VyString className() const { return VyString("VyObject"); }
    virtual ~VyObject();
    virtual bool inherits(const char* name) const { return std::strcmp(name, "VyObject") == 0; }
    virtual bool isWidgetType() const { return false; }
    // Runs queued slots (QueuedSignal), forwards ScreenChange to the children and timers to
    // timerEvent; ignores everything else. Always true.
    virtual bool event(VyEvent* e);
    // Every event of type User (1000) and above lands here, past filters and event().
    virtual void customEvent(VyEvent* e);
    virtual bool eventFilter(VyObject* watched, VyEvent* e);
    virtual void timerEvent(VyTimerEvent* e);
    // Sends the event synchronously to each child, in children order.
    virtual void broadcastEvent(VyEvent* e);

    VySignal destroyed;

    VyObject* parent() const { return m_parent; }
    void setParent(VyObject* parent);
    const VyList<VyObject*>& children() const { return m_children; }
    const VyString& objectName() const { return m_objectName; }
    void setObjectName(const VyString& name) { m_objectName = name; }
    bool signalsBlocked() const { return m_signalsBlocked; }
    // Returns the previous state.
    bool blockSignals(bool block);

    void installEventFilter(VyObject* filter);
    void removeEventFilter(VyObject* filter);
    // The installed filters that are still alive, most recently installed first.
    VyList<VyObject*> eventFilters() const;

    // Posts a DeferredDelete to this object. Widgets are deleted by the dispatcher when it
    // arrives; other objects ignore it and must be deleted explicitly.
    void deleteLater();

    // Timers of the application's timer service, delivered as Timer events to timerEvent.
    int startTimer(int ms);
    void killTimer(int id);
    int timerCount() const { return m_timerCount; }
    // Events for this object now waiting in the application's queue, including those the
    // GUI thread has already taken into its batch. The count is guarded by the queue's
    // mutex; read it only from the GUI thread when no other thread posts.
    int postedEventCount() const;

    // False when the same (receiver, slot) pair is already connected to the signal, queued
    // or not; the first connection keeps its mode.
    static bool connect(VyObject* sender, const VySignal* signal, VyObject* receiver, VySlot slot,
                        bool queued = false);
    // Removes the first connection with that receiver and slot; false if there was none.
    static bool disconnect(VyObject* sender, const VySignal* signal, VyObject* receiver,
                           VySlot slot);
    // Calls every slot connected to the signal, in connection order. Never allocates for a
    // direct connection; a queued one posts an event.
    static void emitSignal(VyObject* sender, const VySignal* signal) {
        // Inline: a signal nobody listens to costs one load, and a direct call costs little
        // more than the slot's own indirect call.
        ConnectionList* list = signal->m_list;
        if (!list || sender->m_signalsBlocked)
            return;
        ++list->emitDepth;
        // Indexed, and the array and its length are read again after every call: a slot
        // may connect more receivers (which then run in this same emission and may move
        // the array), and a slot that destroys the sender empties the list, which ends
        // the loop.
        const std::vector<Connection>& connections = list->connections.toStdVector();
        for (size_t i = 0;; ++i) {
            // Compared as pointers: no division by the record size on every step.
            const Connection* c = connections.data() + i;
            if (c >= connections.data() + connections.size())
                break;
            if (c->queued == 0)
                c->slot(sender, c->receiver);
            else
                postQueued(sender, *c);
        }
        if (--list->emitDepth == 0 && (!list->sender || list->hasDeadConnections))
            finishEmission(sender, list);
    }
    // Number of connections of the signal (dead ones excluded).
    static int receivers(const VyObject* sender, const VySignal* signal);

protected:
    // Called by VyApplication and the timer members; kept here so the counters stay in one
    // place with their meaning.
    friend class VyApplication;
    friend class VyPostedEventQueue;
    friend class VySignalMapper;

private:
    // The rare parts of an emission, out of line: a queued call (or a cut connection,
    // skipped), and freeing what the emission left behind.
    static void postQueued(VyObject* sender, const Connection& c);
    static void finishEmission(VyObject* sender, ConnectionList* list);
    static void dropList(VyObject* sender, const VySignal* signal, ConnectionList* list);
    void removeSenderConnectionsTo(VyObject* receiver);

    VyList<VyObject*> m_children;
    // Most recently installed first. Removed and deleted filters leave a null entry until
    // the next install, so that a filter may remove or delete itself while events are
    // being filtered; a deleted one is cleared by its guard whatever its signal state.
    std::vector<VyPointer<VyObject>> m_eventFilters;
    VyString m_objectName;
    VySignalMapper m_connections;
    VyObject* m_parent = nullptr;
    int32_t m_timerCount = 0;
    int32_t m_postedEventCount = 0;
    bool m_signalsBlocked = false;
};
