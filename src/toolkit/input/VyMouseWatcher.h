#pragma once
// The mouse reader thread: decodes the wheel mouse's packets, applies the acceleration
// curve, keeps the pointer inside the screen and, for every change, moves the cursor
// overlay at once and posts one VyRawMouseEvent to its owner (the application), which
// turns the samples into the toolkit's mouse events.
//
// Under a flood the queue does not grow with the device: while a sample of this watcher
// is still queued, a further pure move only updates the position that the next delivery
// carries, and beyond kMaxQueuedSamples nothing more is queued until the GUI thread
// catches up (it then receives the latest state).
//
// Locks: m_mutex (position, buttons, bounds, shift) before the screen's framebuffer mutex
// (the cursor) and the posted-sample mutex, which comes before the queue mutex.
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

#include "runtime/VyPoint.h"
#include "toolkit/core/VyMouseReader.h"
#include "toolkit/input/VyMousePacketDecoder.h"

class VyMouseDevice;
class VyObject;
class VyScreenCursor;

class VyMouseWatcher : public VyMouseReader {
public:
    // Until the screen sets the real range.
    static constexpr int kDefaultMaxX = 800; // pixels
    static constexpr int kDefaultMaxY = 600; // pixels
    static constexpr int kInitialShift = 14;
    static constexpr int kMaxLevel = 9;
    // How often a device that went away is looked for again.
    static constexpr int kReopenIntervalMs = 1000;
    // Samples of this watcher queued at most before only the latest state is kept.
    static constexpr int kMaxQueuedSamples = 256;

    // Opens the default device ($VY_MOUSE_DEVICE, else "/dev/psaux"). Raw samples go to
    // owner; the cursor moved is the application's screen cursor, when there is one.
    explicit VyMouseWatcher(VyObject* owner);
    VyMouseWatcher(VyObject* owner, std::unique_ptr<VyMouseDevice> device);
    // Stops and joins the thread.
    ~VyMouseWatcher() override;

    // The factory the application constructor uses: start-up calls this before it makes
    // the application.
    static void install();
    static std::unique_ptr<VyMouseReader> create(VyObject* owner);

    // Reads until stop(). Does nothing when the device never opened (no mouse; keys still
    // work); a device that reports end of file or an error is closed and looked for again
    // every kReopenIntervalMs.
    void run() override;
    // Ends run() from any thread.
    void stop();

    void setBounds(int minX, int minY, int maxX, int maxY) override;
    // Levels 0..9 (clamped) pick shifts 14, 10, 8, 7, 6, 5, 4, 3, 2, 1.
    void setAccelerationLevel(int level);
    int accelerationShift() const;
    void moveTo(int x, int y, int buttons, int wheel, bool force) override;

    VyPoint position() const;
    int buttons() const;
    bool isDeviceOpen() const;
    // Decoded packets and bytes skipped to find the framing, since start.
    int packetCount() const { return m_packets.load(); }
    int skippedBytes() const { return m_skipped.load(); }
    void setReopenIntervalMs(int ms) { m_reopenIntervalMs = ms; }

    static int shiftForLevel(int level);
    // One axis: position + delta + sgn(delta) * (delta^2 >> shift), sgn(v) = -1 for
    // v <= 0, kept as a 16-bit value; a shift of 32 or more adds nothing.
    static int16_t accelerate(int16_t position, int delta, int shift);

    // Shared with the events in the queue, which outlive neither it nor the watcher's say.
    struct PostedSamples;

private:
    void applyPacket(const VyMousePacket& packet);
    // With m_mutex held: tells the cursor, then posts or folds the sample.
    void deliverLocked(int wheel);
    bool waitForWake(int timeoutMs);

    VyObject* m_owner;
    VyScreenCursor* m_cursor;
    std::unique_ptr<VyMouseDevice> m_device;
    std::shared_ptr<PostedSamples> m_posted;
    VyMousePacketDecoder m_decoder;
    int m_wakePipe[2] = {-1, -1};
    std::atomic<bool> m_stopRequested{false};
    std::atomic<int> m_reopenIntervalMs{kReopenIntervalMs};
    std::atomic<int> m_packets{0};
    std::atomic<int> m_skipped{0};
    std::atomic<bool> m_deviceOpen{false};

    // Guards everything below.
    mutable std::mutex m_mutex;
    int16_t m_x = 0;
    int16_t m_y = 0;
    int16_t m_minX = 0;
    int16_t m_minY = 0;
    int16_t m_maxX = kDefaultMaxX;
    int16_t m_maxY = kDefaultMaxY;
    int32_t m_buttons = 0;
    uint8_t m_shift = kInitialShift;
};
