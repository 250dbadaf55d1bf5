#pragma once
// The application's posted-event queue: filled from any thread, emptied by the GUI thread.
// It owns every queued event until the entry is taken.
//
// The GUI thread takes the whole shared queue under one lock into a batch of its own and
// delivers from that without locking, so a burst of N events costs the consumer one lock
// instead of N. The order stays that of one queue: everything in the batch was posted
// before what is still shared, except LayoutRequests posted since the batch was taken,
// which belong ahead of it and are taken first.
#include "runtime/VyGlobal.h"
#include "toolkit/core/VyPostedEvent.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>

class VyPostedEventQueue {
public:
    VyPostedEventQueue() = default;
    // Deletes whatever is still queued, undelivered.
    ~VyPostedEventQueue();
    VY_DISABLE_COPY_MOVE(VyPostedEventQueue)

    // Any thread. Takes ownership. LayoutRequest goes to the head so that layouts run
    // before the paints they cause. Counts the event in the receiver's postedEventCount.
    void post(VyObject* receiver, std::unique_ptr<VyEvent> event);

    // The rest is for the GUI thread only: the batch is that thread's.
    // Blocks while the queue is empty.
    VyPostedEvent take();
    // An entry with a null event when the queue is empty.
    VyPostedEvent tryTake();
    // Deletes the receiver's queued events without delivery; returns how many.
    int removePostedEvents(VyObject* receiver);
    int size() const;
    // The receiver's events already moved into the batch (they left its postedEventCount
    // under the lock when the batch was taken).
    int batchedCount(const VyObject* receiver) const;

private:
    // With m_mutex held: an overtaking LayoutRequest, else a refill of an empty batch.
    // Returns the LayoutRequest entry, or an empty one when the batch is to be used.
    VyPostedEvent takeLayoutOrRefillLocked();
    VyPostedEvent popBatch();

    // Guards m_entries and the receivers' postedEventCount.
    mutable std::mutex m_mutex;
    std::condition_variable m_nonEmpty;
    std::deque<VyPostedEvent> m_entries;
    // Set (under m_mutex) when a LayoutRequest is queued at the head of m_entries, so
    // that the lock-free path notices it must overtake the batch. A stale read can only
    // miss a post racing with this very take, which has no order to keep anyway.
    std::atomic<bool> m_layoutPending{false};
    // GUI thread only.
    std::deque<VyPostedEvent> m_batch;
};
