#include "platform/keys/VyKeyQueue.h"

#include "platform/keys/VyKeyMap.h"

void VyKeyQueue::push(uint32_t deviceKey) {
    if (deviceKey == 0 || deviceKey > VyKeyMap::kMaxDeviceKey)
        return;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_keys.size() >= kCapacity) {
        m_keys.pop_front();
        ++m_dropped;
    }
    m_keys.push_back(deviceKey);
}

uint32_t VyKeyQueue::take() {
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_keys.empty())
        return 0;
    const uint32_t key = m_keys.front();
    m_keys.pop_front();
    return key;
}

size_t VyKeyQueue::size() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_keys.size();
}

int VyKeyQueue::droppedCount() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_dropped;
}
