#include "platform/mouse/VyMouseDevice.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

constexpr uint8_t VyMouseDevice::kActivation[6];

VyMouseDevice::VyMouseDevice(const VyString& path, OpenFunction open)
    : m_path(path)
    , m_open(std::move(open)) {
    if (!m_open)
        m_open = [](const char* p, int flags) { return ::open(p, flags | O_CLOEXEC); };
}

VyMouseDevice::~VyMouseDevice() {
    close();
}

VyString VyMouseDevice::defaultPath() {
    const char* env = std::getenv("VY_MOUSE_DEVICE");
    return env && *env ? VyString(env) : VyString(kDefaultPath);
}

bool VyMouseDevice::open(bool quiet) {
    if (m_fd >= 0)
        return true;
    m_fd = m_open(m_path.c_str(), O_RDWR);
    if (m_fd < 0)
        m_fd = m_open(m_path.c_str(), O_RDONLY);
    if (m_fd < 0) {
        if (!quiet)
            std::printf("Mouse device %s open failed !!!\n", m_path.c_str());
        return false;
    }
    // A short or failed write leaves a 3-byte mouse; its packets then fail the framing
    // check and are dropped rather than misread.
    ssize_t written;
    do {
        written = ::write(m_fd, kActivation, sizeof kActivation);
    } while (written < 0 && errno == EINTR);
    return true;
}

void VyMouseDevice::close() {
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

VyMouseDevice::WaitResult VyMouseDevice::wait(int wakeFd, int timeoutMs) const {
    pollfd fds[2] = {{wakeFd, POLLIN, 0}, {m_fd, POLLIN, 0}};
    const nfds_t count = m_fd >= 0 ? 2 : 1;
    for (;;) {
        const int rc = ::poll(fds, count, timeoutMs);
        if (rc < 0 && errno == EINTR)
            continue;
        if (rc <= 0)
            return TimedOut;
        if (fds[0].revents)
            return Woken;
        // POLLHUP and POLLERR count as readable: the read that follows reports them.
        return Readable;
    }
}

ssize_t VyMouseDevice::read(uint8_t* buffer, size_t size) {
    if (m_fd < 0)
        return -1;
    for (;;) {
        const ssize_t n = ::read(m_fd, buffer, size);
        if (n < 0 && errno == EINTR)
            continue;
        return n;
    }
}
