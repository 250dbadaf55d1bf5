#pragma once
// Owns a memory mapping and unmaps it when it goes; the unmap function is given, so that a
// backend whose system calls are replaceable (fbdev tests) unmaps through its own table.
#include <sys/mman.h>
#include <utility>

class VyMapping {
public:
    using Unmap = int (*)(void* address, size_t length);

    VyMapping() = default;
    VyMapping(void* address, size_t length, Unmap unmap = &::munmap)
        : m_address(address)
        , m_length(length)
        , m_unmap(unmap) {}
    ~VyMapping() { reset(); }
    VyMapping(VyMapping&& other) noexcept
        : m_address(std::exchange(other.m_address, nullptr))
        , m_length(std::exchange(other.m_length, 0))
        , m_unmap(other.m_unmap) {}
    VyMapping& operator=(VyMapping&& other) noexcept {
        if (this != &other) {
            reset();
            m_address = std::exchange(other.m_address, nullptr);
            m_length = std::exchange(other.m_length, 0);
            m_unmap = other.m_unmap;
        }
        return *this;
    }
    VyMapping(const VyMapping&) = delete;
    VyMapping& operator=(const VyMapping&) = delete;

    void* address() const { return m_address; }
    size_t length() const { return m_length; }
    explicit operator bool() const { return m_address != nullptr; }
    void reset() {
        if (m_address && m_unmap)
            m_unmap(m_address, m_length);
        m_address = nullptr;
        m_length = 0;
    }

private:
    void* m_address = nullptr;
    size_t m_length = 0;
    Unmap m_unmap = &::munmap;
};
