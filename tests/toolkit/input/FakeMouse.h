#pragma once
// A socket pair named as the mouse device: the watcher's open call gets its own descriptor
// of one end, the test writes packets into the other and reads what the watcher wrote.
// Unplugging closes the test's end (the watcher reads end of file) and makes further opens
// fail until the mouse is plugged in again.
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/mouse/VyMouseDevice.h"

class FakeMouse {
public:
    FakeMouse() { plug(); }
    ~FakeMouse() { closeEnds(); }

    std::unique_ptr<VyMouseDevice> device(const char* path = "/dev/psaux") {
        return std::make_unique<VyMouseDevice>(
            path, [this](const char* p, int flags) { return open(p, flags); });
    }

    void plug() {
        std::lock_guard<std::mutex> lock(m_mutex);
        closeEnds();
        int ends[2];
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) == 0) {
            m_testEnd = ends[0];
            m_deviceEnd = ends[1];
        }
    }
    void unplug() {
        std::lock_guard<std::mutex> lock(m_mutex);
        closeEnds();
    }
    void refuseReadWrite(bool refuse) {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_refuseReadWrite = refuse;
    }

    // Bytes as the device would send them.
    void send(const std::vector<uint8_t>& bytes) {
        size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t n = ::write(m_testEnd, bytes.data() + done, bytes.size() - done);
            if (n <= 0)
                return;
            done += static_cast<size_t>(n);
        }
    }
    static std::vector<uint8_t> packet(int buttons, int dx, int dy, int wheel = 0) {
        const uint8_t first =
            static_cast<uint8_t>(0x08 | (buttons & 7) | (dx < 0 ? 0x10 : 0) | (dy < 0 ? 0x20 : 0));
        return {first, static_cast<uint8_t>(dx), static_cast<uint8_t>(dy),
                static_cast<uint8_t>(wheel)};
    }
    void sendPacket(int buttons, int dx, int dy, int wheel = 0) {
        send(packet(buttons, dx, dy, wheel));
    }
    // What the watcher wrote so far (the activation bytes).
    std::vector<uint8_t> received() {
        std::vector<uint8_t> out(64);
        const ssize_t n = ::recv(m_testEnd, out.data(), out.size(), MSG_DONTWAIT);
        out.resize(n > 0 ? static_cast<size_t>(n) : 0);
        return out;
    }

    // Blocks until the watcher has tried to open the device this many times in total.
    void waitForOpens(int count) {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_opened.wait(lock, [&] { return static_cast<int>(m_flags.size()) >= count; });
    }
    std::vector<int> openFlags() {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_flags;
    }

private:
    int open(const char*, int flags) {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_flags.push_back(flags);
        m_opened.notify_all();
        if (m_deviceEnd < 0 || (m_refuseReadWrite && (flags & O_ACCMODE) == O_RDWR))
            return -1;
        return ::fcntl(m_deviceEnd, F_DUPFD_CLOEXEC, 0);
    }
    void closeEnds() {
        for (int* fd : {&m_testEnd, &m_deviceEnd}) {
            if (*fd >= 0)
                ::close(*fd);
            *fd = -1;
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_opened;
    int m_testEnd = -1;
    int m_deviceEnd = -1;
    bool m_refuseReadWrite = false;
    std::vector<int> m_flags;
};
