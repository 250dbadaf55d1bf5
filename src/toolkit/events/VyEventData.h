#pragma once
// Owns an opaque block carried by an event (an IPC message block allocated with malloc by
// the link layer) and frees it with the given deleter, unless someone took it.
#include <cstdlib>
#include <utility>

class VyEventData {
public:
    using Deleter = void (*)(void*);

    VyEventData() = default;
    explicit VyEventData(void* data, Deleter freeFn = &std::free)
        : m_data(data)
        , m_deleter(freeFn) {}
    ~VyEventData() { reset(); }

    VyEventData(VyEventData&& other) noexcept
        : m_data(std::exchange(other.m_data, nullptr))
        , m_deleter(other.m_deleter) {}
    VyEventData& operator=(VyEventData&& other) noexcept {
        if (this != &other) {
            reset();
            m_data = std::exchange(other.m_data, nullptr);
            m_deleter = other.m_deleter;
        }
        return *this;
    }
    VyEventData(const VyEventData&) = delete;
    VyEventData& operator=(const VyEventData&) = delete;

    void* get() const { return m_data; }
    explicit operator bool() const { return m_data != nullptr; }
    Deleter deleter() const { return m_deleter; }
    // Gives up ownership: the caller frees the block.
    void* release() { return std::exchange(m_data, nullptr); }
    void reset() {
        if (m_data && m_deleter)
            m_deleter(m_data);
        m_data = nullptr;
    }

private:
    void* m_data = nullptr;
    Deleter m_deleter = &std::free;
};
