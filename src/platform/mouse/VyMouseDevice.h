#pragma once
// The PS/2-protocol mouse device: "/dev/psaux" on the board, or the node $VY_MOUSE_DEVICE
// names ("/dev/input/mice" on current kernels speaks the same protocol and takes the same
// activation bytes). Only this class makes the device's system calls; the open call can be
// replaced so that tests hand the reader one end of a socket pair instead.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <sys/types.h>

#include "runtime/VyGlobal.h"
#include "runtime/VyString.h"

class VyMouseDevice {
public:
    static constexpr const char* kDefaultPath = "/dev/psaux";
    // Set sample rate 200, 100, 80: the sequence that switches a wheel mouse from 3-byte to
    // 4-byte packets.
    static constexpr uint8_t kActivation[6] = {0xF3, 0xC8, 0xF3, 0x64, 0xF3, 0x50};

    using OpenFunction = std::function<int(const char* path, int flags)>;

    enum WaitResult { Readable, Woken, TimedOut };

    // An empty open function means the system's open(2).
    explicit VyMouseDevice(const VyString& path = defaultPath(), OpenFunction open = {});
    ~VyMouseDevice();
    VY_DISABLE_COPY_MOVE(VyMouseDevice)

    // $VY_MOUSE_DEVICE when set, else "/dev/psaux".
    static VyString defaultPath();
    const VyString& path() const { return m_path; }

    // Read-write first, read-only when that is refused; then the activation bytes (a
    // read-only node cannot take them, and one that is already in 4-byte mode needs none).
    // False when neither open works; the failure is printed unless quiet.
    bool open(bool quiet = false);
    void close();
    bool isOpen() const { return m_fd >= 0; }
    int fd() const { return m_fd; }

    // Sleeps until the device has bytes, wakeFd is readable or timeoutMs passes (-1: no
    // limit). With the device closed only wakeFd and the time-out count.
    WaitResult wait(int wakeFd, int timeoutMs) const;
    // Reads what is there, up to size bytes, again when a signal interrupted it. Bytes
    // read, 0 at end of file, -1 on an error (the device went away).
    ssize_t read(uint8_t* buffer, size_t size);

private:
    VyString m_path;
    OpenFunction m_open;
    int m_fd = -1;
};
