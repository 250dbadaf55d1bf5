#pragma once
// The application's posted-event queue: filled from any thread, emptied by the GUI thread.
// It owns every queued event until the entry is taken.
#include "runtime/VyGlobal.h"
#include "toolkit/core/VyPostedEvent.h"

#include <condition_variable>
#include <deque>
#include <mutex>

class VyPostedEventQueue {
public:
    VyPostedEventQueue() = default;
    // Deletes whatever is still queued, undelivered.
    ~VyPostedEventQueue();
    VY_DISABLE_COPY_MOVE(VyPostedEventQueue)

    // Takes ownership. LayoutRequest goes to the head so that layouts run before the
    // paints they cause. Counts the event in the receiver's postedEventCount.
    void post(VyObject* receiver, std::unique_ptr<VyEvent> event);
    // Blocks while the queue is empty.
    VyPostedEvent take();
    // An entry with a null event when the queue is empty.
    VyPostedEvent tryTake();
    // Deletes the receiver's queued events without delivery; returns how many.
    int removePostedEvents(VyObject* receiver);
    int size() const;

private:
    VyPostedEvent takeFirstLocked();

    // Guards m_entries and the receivers' postedEventCount.
    mutable std::mutex m_mutex;
    std::condition_variable m_nonEmpty;
    std::deque<VyPostedEvent> m_entries;
};
