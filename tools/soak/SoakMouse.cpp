#include "SoakMouse.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

SoakMouse::~SoakMouse() {
    m_stopping = true;
    if (m_drainer.joinable())
        m_drainer.join();
    if (m_master >= 0)
        close(m_master);
    if (m_slaveKeep >= 0)
        close(m_slaveKeep);
}

bool SoakMouse::open() {
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
        return false;
    const char* name = ptsname(m_master);
    if (name == nullptr)
        return false;
    m_slavePath = name;
    m_slaveKeep = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (m_slaveKeep < 0)
        return false;
    termios mode{};
    if (tcgetattr(m_slaveKeep, &mode) != 0)
        return false;
    cfmakeraw(&mode);
    if (tcsetattr(m_slaveKeep, TCSANOW, &mode) != 0)
        return false;
    m_drainer = std::thread(&SoakMouse::drain, this);
    return true;
}

void SoakMouse::drain() {
    // The slave kept open here would read the packets too; it is only held, never read.
    char buffer[64];
    while (!m_stopping) {
        pollfd p{m_master, POLLIN, 0};
        if (poll(&p, 1, 100) > 0 && (p.revents & POLLIN))
            (void)!read(m_master, buffer, sizeof buffer);
    }
}

bool SoakMouse::packet(int buttons, int dx, int dy, int wheel, int timeoutMs) {
    dx = std::clamp(dx, -127, 127);
    dy = std::clamp(dy, -127, 127);
    wheel = std::clamp(wheel, -8, 7);
    uint8_t bytes[4];
    bytes[0] =
        static_cast<uint8_t>(0x08 | (buttons & 7) | (dx < 0 ? 0x10 : 0) | (dy < 0 ? 0x20 : 0));
    bytes[1] = static_cast<uint8_t>(dx & 0xFF);
    bytes[2] = static_cast<uint8_t>(dy & 0xFF);
    bytes[3] = static_cast<uint8_t>(wheel & 0xFF);
    size_t done = 0;
    while (done < sizeof bytes) {
        const ssize_t n = write(m_master, bytes + done, sizeof bytes - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN) {
            pollfd p{m_master, POLLOUT, 0};
            if (poll(&p, 1, timeoutMs) <= 0)
                return false;
            continue;
        }
        if (n <= 0)
            return false;
        done += static_cast<size_t>(n);
    }
    return true;
}
