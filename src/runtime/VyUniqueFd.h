#pragma once
// Owns a file descriptor and closes it when it goes. Movable, not copyable; release() hands
// the descriptor over without closing it.
#include <unistd.h>
#include <utility>

class VyUniqueFd {
public:
    VyUniqueFd() = default;
    explicit VyUniqueFd(int fd)
        : m_fd(fd) {}
    ~VyUniqueFd() { reset(); }
    VyUniqueFd(VyUniqueFd&& other) noexcept
        : m_fd(other.release()) {}
    VyUniqueFd& operator=(VyUniqueFd&& other) noexcept {
        if (this != &other)
            reset(other.release());
        return *this;
    }
    VyUniqueFd(const VyUniqueFd&) = delete;
    VyUniqueFd& operator=(const VyUniqueFd&) = delete;

    int get() const { return m_fd; }
    bool isValid() const { return m_fd >= 0; }
    int release() { return std::exchange(m_fd, -1); }
    // Closes the descriptor held (if any) and takes `fd`.
    void reset(int fd = -1) {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = fd;
    }

private:
    int m_fd = -1;
};
