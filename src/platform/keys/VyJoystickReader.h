#pragma once
// The joystick of the control keyboard ("/dev/input/js0"), read on a thread of its own. Its
// axes and buttons become device keys through the key map "keymap/joystick.ini": an axis
// pushed past half way to one end is "axis<N>-" or "axis<N>+" (once per push), a button
// pressed is "button<N>". The keys go to a sink (the key manager's queue). A read error closes
// the device; the thread then tries to open it again once a second and never spins.
#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

#include "platform/keys/VyKeyMap.h"
#include "runtime/VyString.h"
#include "runtime/VyUniqueFd.h"

class VyJoystickReader {
public:
    static constexpr const char* kDefaultPath = "/dev/input/js0";
    static constexpr const char* kKeyMapFile = "keymap/joystick.ini";
    static constexpr int kRetryMs = 1000;
    // Axis values run -32767..32767; beyond half way counts as pushed.
    static constexpr int kAxisThreshold = 16384;
    static constexpr int kMaxAxes = 16;

    using Sink = std::function<void(uint32_t deviceKey)>;
    using OpenFunction = std::function<int(const char* path)>;

    VyJoystickReader(const VyKeyMap& map, Sink sink, const VyString& path = kDefaultPath,
                     OpenFunction open = {});
    ~VyJoystickReader();
    VyJoystickReader(const VyJoystickReader&) = delete;
    VyJoystickReader& operator=(const VyJoystickReader&) = delete;

    void start();
    // Wakes the thread and joins it.
    void stop();

    // One joystick event as the device delivers it; public so tests can feed the mapping
    // without a device.
    void handleEvent(uint8_t type, uint8_t number, int16_t value);
    int openCount() const { return m_openCount.load(); }
    int readErrors() const { return m_readErrors.load(); }

private:
    void run();
    // Sleeps until the device or the wake pipe is readable, or timeoutMs passes.
    bool waitWake(int fd, int timeoutMs);

    VyKeyMap m_map;
    Sink m_sink;
    VyString m_path;
    OpenFunction m_open;
    VyUniqueFd m_wakeRead;
    VyUniqueFd m_wakeWrite;
    std::thread m_thread;
    std::atomic<bool> m_stop{false};
    std::atomic<int> m_openCount{0};
    std::atomic<int> m_readErrors{0};
    // Per axis: -1, 0 or +1, the end it is pushed to (reader thread only).
    int8_t m_axisState[kMaxAxes] = {};
};
