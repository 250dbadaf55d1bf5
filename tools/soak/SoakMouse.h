#pragma once
// The soak's mouse: a pseudo-terminal in raw mode whose slave the GUI opens as its mouse
// device ($VY_MOUSE_DEVICE). Whatever the GUI writes (its activation bytes) is read and
// dropped; what the driver writes arrives as 4-byte wheel-mouse packets, so every sample
// takes the same path as a real mouse's.
#include <atomic>
#include <cstdint>
#include <string>
#include <thread>

class SoakMouse {
public:
    SoakMouse() = default;
    SoakMouse(const SoakMouse&) = delete;
    SoakMouse& operator=(const SoakMouse&) = delete;
    ~SoakMouse();

    bool open();
    // The path the GUI opens.
    const std::string& devicePath() const { return m_slavePath; }

    // One sample: buttons (bit 0 left, 1 right, 2 middle), movement clamped to what one
    // packet carries, wheel notches clamped to -8..7. False when the GUI has not taken the
    // bytes before it within `timeoutMs` (its reader is stuck) or the line is gone.
    bool packet(int buttons, int dx, int dy, int wheel, int timeoutMs = 30000);

private:
    void drain();

    int m_master = -1;
    int m_slaveKeep = -1; // keeps the line's raw mode between the GUI's opens
    std::string m_slavePath;
    std::thread m_drainer;
    std::atomic<bool> m_stopping{false};
};
