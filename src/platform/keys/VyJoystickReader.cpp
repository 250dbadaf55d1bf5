#include "platform/keys/VyJoystickReader.h"

#include "runtime/VyLog.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

// The joystick interface's event record (linux/joystick.h), kept here so that a board
// toolchain without that header still builds.
struct JsEvent {
    uint32_t time;
    int16_t value;
    uint8_t type;
    uint8_t number;
};
static_assert(sizeof(JsEvent) == 8, "the joystick interface's event is 8 bytes");

constexpr uint8_t kJsButton = 0x01;
constexpr uint8_t kJsAxis = 0x02;
constexpr uint8_t kJsInit = 0x80; // the synthetic events that report the state at open

int openJoystick(const char* path) {
    return ::open(path, O_RDONLY | O_CLOEXEC);
}

} // namespace

VyJoystickReader::VyJoystickReader(const VyKeyMap& map, Sink sink, const VyString& path,
                                   OpenFunction open)
    : m_map(map)
    , m_sink(std::move(sink))
    , m_path(path)
    , m_open(open ? std::move(open) : OpenFunction(&openJoystick)) {
    int fds[2];
    if (pipe2(fds, O_CLOEXEC | O_NONBLOCK) == 0) {
        m_wakeRead.reset(fds[0]);
        m_wakeWrite.reset(fds[1]);
    }
}

VyJoystickReader::~VyJoystickReader() {
    stop();
}

void VyJoystickReader::start() {
    if (m_thread.joinable() || !m_wakeRead.isValid())
        return;
    m_stop = false;
    m_thread = std::thread([this] { run(); });
}

void VyJoystickReader::stop() {
    if (!m_thread.joinable())
        return;
    m_stop = true;
    const char byte = 1;
    ssize_t written;
    do {
        written = ::write(m_wakeWrite.get(), &byte, 1);
    } while (written < 0 && errno == EINTR);
    m_thread.join();
}

bool VyJoystickReader::waitWake(int fd, int timeoutMs) {
    pollfd fds[2] = {{m_wakeRead.get(), POLLIN, 0}, {fd, POLLIN, 0}};
    const nfds_t count = fd >= 0 ? 2 : 1;
    int rc;
    do {
        rc = ::poll(fds, count, timeoutMs);
    } while (rc < 0 && errno == EINTR);
    return !m_stop.load();
}

void VyJoystickReader::run() {
    VyUniqueFd fd;
    while (!m_stop.load()) {
        if (!fd.isValid()) {
            fd.reset(m_open(m_path.c_str()));
            if (!fd.isValid()) {
                waitWake(-1, kRetryMs);
                continue;
            }
            ++m_openCount;
            vySystemLine("Init HandleDevice success!\n");
        }
        if (!waitWake(fd.get(), -1))
            break;
        JsEvent events[16];
        const ssize_t n = ::read(fd.get(), events, sizeof events);
        if (n < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        if (n <= 0) {
            vySystemLine("read error!\n");
            ++m_readErrors;
            fd.reset();
            // Wait before the next open: a device that keeps failing costs one try a second.
            waitWake(-1, kRetryMs);
            continue;
        }
        for (size_t i = 0; i < size_t(n) / sizeof(JsEvent); ++i)
            handleEvent(events[i].type, events[i].number, events[i].value);
    }
}

void VyJoystickReader::handleEvent(uint8_t type, uint8_t number, int16_t value) {
    if (type & kJsInit)
        return;
    char code[16];
    if (type == kJsButton) {
        if (value == 0)
            return;
        std::snprintf(code, sizeof code, "button%u", unsigned(number));
    } else if (type == kJsAxis && number < kMaxAxes) {
        int8_t end = 0;
        if (value <= -kAxisThreshold)
            end = -1;
        else if (value >= kAxisThreshold)
            end = 1;
        const int8_t before = m_axisState[number];
        m_axisState[number] = end;
        if (end == 0 || end == before)
            return;
        std::snprintf(code, sizeof code, "axis%u%c", unsigned(number), end < 0 ? '-' : '+');
    } else {
        return;
    }
    const uint32_t key = m_map.deviceKey(VyString(code));
    if (key != 0 && m_sink)
        m_sink(key);
}
