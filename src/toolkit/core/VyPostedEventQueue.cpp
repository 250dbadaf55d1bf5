#include "toolkit/core/VyPostedEventQueue.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyObject.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

// A spent batch keeps its capacity for the next one: regrowing it would cost a series of
// large allocations on every burst (and large allocations make malloc sweep its caches).
// Only when a burst left it larger than kKeptBatchCapacity and that many refills in a row
// have since used less than a quarter of it is the memory given back.
constexpr size_t kKeptBatchCapacity = 4096; // entries (16 bytes each)
constexpr int kQuietRefillsBeforeShrink = 1024;

// Moves the receiver's events of [from, end) into dropped and closes the gaps.
void dropEntriesOf(std::vector<VyPostedEvent>& entries, size_t from, const VyObject* receiver,
                   std::vector<std::unique_ptr<VyEvent>>& dropped) {
    size_t before = dropped.size();
    for (size_t i = from; i < entries.size(); ++i)
        if (entries[i].receiver == receiver)
            dropped.push_back(std::move(entries[i].event));
    if (dropped.size() == before)
        return;
    entries.erase(std::remove_if(entries.begin() + static_cast<std::ptrdiff_t>(from), entries.end(),
                                 [](const VyPostedEvent& e) { return !e.event; }),
                  entries.end());
}

} // namespace

VyPostedEventQueue::~VyPostedEventQueue() {
    m_batch.clear();
    m_entries.clear();
    m_layouts.clear();
    vySystemLine("All events in the list was distroyed !\n");
}

void VyPostedEventQueue::post(VyObject* receiver, std::unique_ptr<VyEvent> event) {
    bool layout = event->type() == VyEvent::LayoutRequest;
    std::lock_guard<std::mutex> lock(m_mutex);
    // Only an empty queue can have a sleeping consumer: it sleeps only with its batch
    // spent and nothing shared.
    bool wasEmpty = m_entries.empty() && m_layouts.empty();
    if (layout) {
        m_layouts.push_back(VyPostedEvent{receiver, std::move(event)});
        m_layoutPending.store(true, std::memory_order_relaxed);
    } else {
        m_entries.push_back(VyPostedEvent{receiver, std::move(event)});
    }
    notePeakLocked();
    ++receiver->m_postedEventCount;
    if (wasEmpty)
        m_nonEmpty.notify_one();
}

void VyPostedEventQueue::postMany(std::vector<VyPostedEvent>& entries) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        bool wasEmpty = m_entries.empty() && m_layouts.empty();
        for (VyPostedEvent& entry : entries) {
            if (!entry.receiver || !entry.event)
                continue;
            ++entry.receiver->m_postedEventCount;
            if (entry.event->type() == VyEvent::LayoutRequest) {
                m_layouts.push_back(std::move(entry));
                m_layoutPending.store(true, std::memory_order_relaxed);
            } else {
                m_entries.push_back(std::move(entry));
            }
        }
        notePeakLocked();
        if (wasEmpty && !(m_entries.empty() && m_layouts.empty()))
            m_nonEmpty.notify_one();
    }
    // Dropped entries' events are freed here, outside the lock.
    entries.clear();
}

VyPostedEvent VyPostedEventQueue::takeLayoutOrRefillLocked() {
    if (!m_layouts.empty()) {
        VyPostedEvent entry = std::move(m_layouts.back());
        m_layouts.pop_back();
        --entry.receiver->m_postedEventCount;
        m_layoutPending.store(!m_layouts.empty(), std::memory_order_relaxed);
        return entry;
    }
    if (batchEmpty()) {
        m_batch.clear();
        if (m_batch.capacity() > kKeptBatchCapacity && m_entries.size() < m_batch.capacity() / 4) {
            if (++m_quietRefills >= kQuietRefillsBeforeShrink) {
                std::vector<VyPostedEvent>().swap(m_batch);
                m_quietRefills = 0;
            }
        } else {
            m_quietRefills = 0;
        }
        m_batch.swap(m_entries);
        m_batchHead = 0;
        for (const VyPostedEvent& entry : m_batch)
            --entry.receiver->m_postedEventCount;
    }
    return VyPostedEvent{};
}

VyPostedEvent VyPostedEventQueue::takeLocked() {
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (batchEmpty())
            m_nonEmpty.wait(lock, [this] { return !m_entries.empty() || !m_layouts.empty(); });
        VyPostedEvent layout = takeLayoutOrRefillLocked();
        if (layout.event)
            return layout;
    }
    return popBatch();
}

VyPostedEvent VyPostedEventQueue::tryTake() {
    if (batchEmpty() || m_layoutPending.load(std::memory_order_relaxed)) {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (batchEmpty() && m_entries.empty() && m_layouts.empty())
            return VyPostedEvent{};
        VyPostedEvent layout = takeLayoutOrRefillLocked();
        if (layout.event)
            return layout;
    }
    return popBatch();
}

int VyPostedEventQueue::removePostedEvents(VyObject* receiver) {
    // The events are deleted after the lock is released; their destructors may free
    // message blocks and need not hold up the posting threads.
    std::vector<std::unique_ptr<VyEvent>> dropped;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (receiver->m_postedEventCount != 0) {
            dropEntriesOf(m_layouts, 0, receiver, dropped);
            dropEntriesOf(m_entries, 0, receiver, dropped);
            receiver->m_postedEventCount = 0;
            m_layoutPending.store(!m_layouts.empty(), std::memory_order_relaxed);
        }
    }
    dropEntriesOf(m_batch, m_batchHead, receiver, dropped);
    return static_cast<int>(dropped.size());
}

int VyPostedEventQueue::size() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_layouts.size() + m_entries.size() + m_batch.size() - m_batchHead);
}

int VyPostedEventQueue::peakWaiting() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_peakWaiting);
}

int VyPostedEventQueue::batchedCount(const VyObject* receiver) const {
    return static_cast<int>(
        std::count_if(m_batch.begin() + static_cast<std::ptrdiff_t>(m_batchHead), m_batch.end(),
                      [receiver](const VyPostedEvent& e) { return e.receiver == receiver; }));
}
