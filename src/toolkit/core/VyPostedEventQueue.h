#pragma once
// The application's posted-event queue: filled from any thread, emptied by the GUI thread.
// It owns every queued event until the entry is taken.
//
// One queue in behaviour, three arrays in storage. LayoutRequests wait apart and are taken
// newest first, ahead of everything else, as if each had been put at the head. Other events
// are appended to the shared array; the GUI thread swaps that whole array for its spent
// batch under one lock and then delivers from the batch without locking, so a burst of N
// events costs the consumer one lock instead of N, and the two arrays keep their capacity
// so that a steady stream allocates nothing but the events themselves.
#include "runtime/VyGlobal.h"
#include "toolkit/core/VyPostedEvent.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <utility>
#include <vector>

class VyPostedEventQueue {
public:
    VyPostedEventQueue() = default;
    // Deletes whatever is still queued, undelivered.
    ~VyPostedEventQueue();
    VY_DISABLE_COPY_MOVE(VyPostedEventQueue)

    // Any thread. Takes ownership. LayoutRequest goes ahead of everything queued so that
    // layouts run before the paints they cause. Counts the event in the receiver's
    // postedEventCount.
    void post(VyObject* receiver, std::unique_ptr<VyEvent> event);
    // Any thread. post() for each entry, in order, under one lock; leaves `entries` empty.
    // Entries without a receiver or an event are dropped.
    void postMany(std::vector<VyPostedEvent>& entries);

    // The rest is for the GUI thread only: the batch is that thread's.
    // Blocks while the queue is empty. Inline: most takes come from the batch, lock-free.
    VyPostedEvent take() {
        if (batchEmpty() || m_layoutPending.load(std::memory_order_relaxed))
            return takeLocked();
        return popBatch();
    }
    // An entry with a null event when the queue is empty.
    VyPostedEvent tryTake();
    // Deletes the receiver's queued events without delivery; returns how many.
    int removePostedEvents(VyObject* receiver);
    int size() const;
    // The most events that ever waited at once (not yet taken into the GUI thread's batch):
    // the figure a soak run bounds.
    int peakWaiting() const;
    // The receiver's events already moved into the batch (they left its postedEventCount
    // under the lock when the batch was taken).
    int batchedCount(const VyObject* receiver) const;

private:
    // With m_mutex held and something queued: the newest LayoutRequest, or an empty entry
    // after making sure the batch has something to deliver.
    VyPostedEvent takeLayoutOrRefillLocked();
    VyPostedEvent takeLocked();
    VyPostedEvent popBatch() { return std::move(m_batch[m_batchHead++]); }
    bool batchEmpty() const { return m_batchHead == m_batch.size(); }

    // Guards m_layouts, m_entries and the receivers' postedEventCount.
    mutable std::mutex m_mutex;
    std::condition_variable m_nonEmpty;
    // Newest last; taken from the back.
    std::vector<VyPostedEvent> m_layouts;
    std::vector<VyPostedEvent> m_entries;
    // Mirrors !m_layouts.empty() (written under m_mutex) for the lock-free path. A stale
    // read can only miss a post racing with this very take, which has no order to keep.
    std::atomic<bool> m_layoutPending{false};
    // GUI thread only: the entries before m_batchHead are delivered or being delivered.
    std::vector<VyPostedEvent> m_batch;
    size_t m_batchHead = 0;
    // Refills in a row that used little of a large batch array (under m_mutex).
    int m_quietRefills = 0;
    // Under m_mutex.
    size_t m_peakWaiting = 0;
    void notePeakLocked() {
        m_peakWaiting = std::max(m_peakWaiting, m_entries.size() + m_layouts.size());
    }
};
