#include "toolkit/core/VyPostedEventQueue.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyObject.h"

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

VyPostedEventQueue::~VyPostedEventQueue() {
    m_batch.clear();
    m_entries.clear();
    std::printf("All events in the list was distroyed !\n");
}

void VyPostedEventQueue::post(VyObject* receiver, std::unique_ptr<VyEvent> event) {
    bool layout = event->type() == VyEvent::LayoutRequest;
    std::lock_guard<std::mutex> lock(m_mutex);
    bool wasEmpty = m_entries.empty();
    if (layout) {
        m_entries.push_front(VyPostedEvent{receiver, std::move(event)});
        m_layoutPending.store(true, std::memory_order_relaxed);
    } else {
        m_entries.push_back(VyPostedEvent{receiver, std::move(event)});
    }
    ++receiver->m_postedEventCount;
    // Only an empty queue can have a sleeping consumer.
    if (wasEmpty)
        m_nonEmpty.notify_one();
}

VyPostedEvent VyPostedEventQueue::takeLayoutOrRefillLocked() {
    if (m_batch.empty()) {
        // The whole queue becomes the batch, LayoutRequests first as they stand.
        std::swap(m_batch, m_entries);
        for (const VyPostedEvent& entry : m_batch)
            --entry.receiver->m_postedEventCount;
        m_layoutPending.store(false, std::memory_order_relaxed);
        return VyPostedEvent{};
    }
    if (!m_entries.empty() && m_entries.front().event->type() == VyEvent::LayoutRequest) {
        VyPostedEvent entry = std::move(m_entries.front());
        m_entries.pop_front();
        --entry.receiver->m_postedEventCount;
        m_layoutPending.store(!m_entries.empty() &&
                                  m_entries.front().event->type() == VyEvent::LayoutRequest,
                              std::memory_order_relaxed);
        return entry;
    }
    m_layoutPending.store(false, std::memory_order_relaxed);
    return VyPostedEvent{};
}

VyPostedEvent VyPostedEventQueue::popBatch() {
    VyPostedEvent entry = std::move(m_batch.front());
    m_batch.pop_front();
    return entry;
}

VyPostedEvent VyPostedEventQueue::take() {
    if (m_batch.empty() || m_layoutPending.load(std::memory_order_relaxed)) {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_batch.empty())
            m_nonEmpty.wait(lock, [this] { return !m_entries.empty(); });
        VyPostedEvent layout = takeLayoutOrRefillLocked();
        if (layout.event)
            return layout;
    }
    return popBatch();
}

VyPostedEvent VyPostedEventQueue::tryTake() {
    if (m_batch.empty() || m_layoutPending.load(std::memory_order_relaxed)) {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_batch.empty() && m_entries.empty())
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
            for (auto it = m_entries.begin(); it != m_entries.end();) {
                if (it->receiver == receiver) {
                    dropped.push_back(std::move(it->event));
                    it = m_entries.erase(it);
                } else {
                    ++it;
                }
            }
            receiver->m_postedEventCount = 0;
        }
    }
    size_t before = dropped.size();
    for (VyPostedEvent& entry : m_batch)
        if (entry.receiver == receiver)
            dropped.push_back(std::move(entry.event));
    if (dropped.size() != before)
        m_batch.erase(std::remove_if(m_batch.begin(), m_batch.end(),
                                     [](const VyPostedEvent& e) { return !e.event; }),
                      m_batch.end());
    return static_cast<int>(dropped.size());
}

int VyPostedEventQueue::size() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_entries.size() + m_batch.size());
}

int VyPostedEventQueue::batchedCount(const VyObject* receiver) const {
    return static_cast<int>(
        std::count_if(m_batch.begin(), m_batch.end(),
                      [receiver](const VyPostedEvent& e) { return e.receiver == receiver; }));
}
