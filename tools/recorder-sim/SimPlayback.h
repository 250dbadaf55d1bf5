#pragma once
// App's playback side: answers the month and day searches from the recording database,
// plays the cells of the playback split (their time advances at the chosen speed, with a
// progress notification per cell on every tick), and exports clips to a simulated USB stick
// with progress, cancel and a full stick.
//
//     SimPlayback playback(config);   // record_seed, channels, usb_free_mib
//     playback.attach(server);        // registers the MainType 300 handlers
//     playback.startTicking(1000);    // or advance(ms) by hand in a test
#include "SimRecordDb.h"
#include "SimRecorderConfig.h"
#include "protocol/PlaybackSplitScreen.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

class SimServer;
struct SimMessage;
struct SimPlaybackFrame;

class SimPlayback {
public:
    // Period of the progress notifications of the running executable.
    static constexpr int kTickMs = 1000;
    // Bit rate the export size is estimated with: 2 Mbit/s per channel.
    static constexpr uint32_t kBytesPerChannelSecond = 256 * 1024;
    // An export writes this many percent per second of ticks.
    static constexpr uint32_t kExportPercentPerSecond = 25;

    explicit SimPlayback(const SimRecorderConfig& config, long today = SimRecordDb::localToday());
    ~SimPlayback();
    SimPlayback(const SimPlayback&) = delete;
    SimPlayback& operator=(const SimPlayback&) = delete;

    void attach(SimServer& server);
    void startTicking(int periodMs);
    // Moves playback and export on by `ms` and sends their notifications.
    void advance(int ms);
    // Plugs the USB stick in or pulls it out; pulled out mid-export, the export fails.
    void setUsbPresent(bool present);

    const SimRecordDb& db() const { return m_db; }
    // Snapshot of the state, for the console and tests.
    struct State {
        bool playing = false;
        bool paused = false;
        int speed = 0;
        long long timeMs = 0; // local milliseconds since 1970-01-01 of the cells' time
        std::vector<int> windowChannels;
        bool exporting = false;
        uint32_t exportPercent = 0;
        uint32_t usbFreeMiB = 0;
        bool usbPresent = false;
        int exportsDone = 0;
    };
    State state() const;
    // While cells play (paused or not): the picture of each playback cell on an output plane
    // of this size, with its playback time (SimPlaybackPlane.cpp). False otherwise.
    bool planeFrame(int width, int height, SimPlaybackFrame* out) const;

private:
    bool onMonthSearch(SimServer& s, const SimMessage& m);
    bool onDaySearch(SimServer& s, const SimMessage& m);
    bool onMotionSearch(SimServer& s, const SimMessage& m);
    bool onSplit(SimServer& s, const SimMessage& m);
    bool onPlay(SimServer& s, const SimMessage& m);
    bool onControl(SimServer& s, const SimMessage& m);
    bool onJump(SimServer& s, const SimMessage& m);
    bool onSeek(SimServer& s, const SimMessage& m);
    bool onExport(SimServer& s, const SimMessage& m);
    bool onStopOther(SimServer& s, const SimMessage& m);
    template <typename Record>
    bool onSized(SimServer& s, const SimMessage& m);
    void sendSegments(SimServer& s, int channel, long long fromSec, long long toSec,
                      uint32_t typeMask);
    void sendStatus(uint32_t kind, uint32_t window, uint32_t percent, uint32_t value);
    void tickLoop(int periodMs);

    SimRecordDb m_db;
    SimServer* m_server = nullptr;

    mutable std::mutex m_mutex; // guards everything below; taken before the server's
    State m_state;
    std::vector<PlaybackWindowRect> m_split; // the cells of the last split, output pixels
    long long m_endMs = 0;
    uint64_t m_exportBytes = 0;

    std::mutex m_tickMutex; // guards m_stopping for the tick thread's wait
    std::condition_variable m_tickCond;
    bool m_stopping = false;
    std::thread m_tickThread;
};
