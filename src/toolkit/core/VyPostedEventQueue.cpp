#include "toolkit/core/VyPostedEventQueue.h"

#include "runtime/VyLog.h"
#include "toolkit/core/VyObject.h"

#include <cstdio>
#include <vector>

VyPostedEventQueue::~VyPostedEventQueue() {
    m_entries.clear();
    std::printf("All events in the list was distroyed !\n");
}

void VyPostedEventQueue::post(VyObject* receiver, std::unique_ptr<VyEvent> event) {
    bool layout = event->type() == VyEvent::LayoutRequest;
    std::lock_guard<std::mutex> lock(m_mutex);
    bool wasEmpty = m_entries.empty();
    if (layout)
        m_entries.push_front(VyPostedEvent{receiver, std::move(event)});
    else
        m_entries.push_back(VyPostedEvent{receiver, std::move(event)});
    ++receiver->m_postedEventCount;
    // Only an empty queue can have a sleeping consumer.
    if (wasEmpty)
        m_nonEmpty.notify_one();
}

VyPostedEvent VyPostedEventQueue::takeFirstLocked() {
    VyPostedEvent entry = std::move(m_entries.front());
    m_entries.pop_front();
    --entry.receiver->m_postedEventCount;
    return entry;
}

VyPostedEvent VyPostedEventQueue::take() {
    std::unique_lock<std::mutex> lock(m_mutex);
    m_nonEmpty.wait(lock, [this] { return !m_entries.empty(); });
    return takeFirstLocked();
}

VyPostedEvent VyPostedEventQueue::tryTake() {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_entries.empty())
        return VyPostedEvent{};
    return takeFirstLocked();
}

int VyPostedEventQueue::removePostedEvents(VyObject* receiver) {
    // The events are deleted after the lock is released; their destructors may free
    // message blocks and need not hold up the posting threads.
    std::vector<std::unique_ptr<VyEvent>> dropped;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (receiver->m_postedEventCount == 0)
            return 0;
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
    return static_cast<int>(dropped.size());
}

int VyPostedEventQueue::size() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_entries.size());
}
