#pragma once
// The device keys a source has read and the key poll thread has not yet taken. Filled by
// whatever thread reads the device, emptied by the poll thread; bounded, so a stuck key or a
// flood of auto-repeats cannot grow it without limit (the oldest keys go first).
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>

class VyKeyQueue {
public:
    static constexpr size_t kCapacity = 64; // keys; about 10 s of a held key at 150 ms polls

    // Values 0 and above the largest device key are not keys and are dropped here.
    void push(uint32_t deviceKey);
    // The oldest key, 0 when none.
    uint32_t take();
    size_t size() const;
    int droppedCount() const;

private:
    mutable std::mutex m_mutex; // guards both members; held only to move a key in or out
    std::deque<uint32_t> m_keys;
    int m_dropped = 0;
};
