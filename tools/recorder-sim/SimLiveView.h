#pragma once
// The recorder's live view, simulated: the camera roster (channels without a camera among
// them), channel names, recording and alarms per channel raised and cleared from the console
// or a script, the answers to the GUI's preview record, tool-bar requests and roster request,
// and the video plane drawn from the last preview record (SimVideoPlane.h) into the file
// named by $VY_VIDEO_PLANE.
//
// Console commands (SimCommands.h runs them through runCommand):
//   alarm CH KIND on|off   KIND: motion, io, pir, ai, ai2 (channels count from 1)
//   record CH on|off       recording; "manual CH on|off" for a manual recording
//   camera CH on|off       a camera is (not) assigned
//   videoloss CH on|off
//   name CH TEXT           the channel's name
//   usb 0|1 | disk STATE   USB stick plugged in; disk state 0 none, 1 ok, 2 full, 3 error
//   talk busy|fail|off     how the next talk-back start is answered (default: it runs), or
//                          end a running one
//   page next|prev|N       ask the live view to turn its page (N counts from 1)
#include "SimRecorderConfig.h"
#include "SimVideoPlane.h"
#include "protocol/PreviewRecord.h"
#include "protocol/PreviewZoom.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class SimRecorder;
class SimServer;
struct SimPlaybackFrame;
struct SimMessage;

class SimLiveView {
public:
    static constexpr int kFrameMs = 100; // the simulated pictures move ten times a second

    SimLiveView(SimRecorder& recorder, const SimRecorderConfig& config);
    ~SimLiveView();
    SimLiveView(const SimLiveView&) = delete;
    SimLiveView& operator=(const SimLiveView&) = delete;

    void attach(SimServer& server);
    // False when the words are no live-view command (or a malformed one, logged).
    bool runCommand(const std::vector<std::string>& words);
    // Draws the plane into `path` until destruction.
    void startVideoPlane(const std::string& path);
    // Playback takes the plane while the source answers true (SimPlaybackPlane.h); set
    // before startVideoPlane.
    using PlaybackSource = std::function<bool(int width, int height, SimPlaybackFrame* out)>;
    void setPlaybackSource(PlaybackSource source) { m_playbackSource = std::move(source); }

    // State, for tests.
    uint32_t flags(int channel) const;
    int previewCount() const { return m_previewCount.load(); }
    PreviewRecord lastPreview() const;
    uint64_t cameraMask() const;
    PreviewZoom zoom(int channel) const;

private:
    struct Channel {
        uint32_t flags = 0;
        std::string name;
        PreviewZoom zoom; // the part of the picture shown
    };
    bool onPreview(SimServer& s, const SimMessage& m);
    bool onControl(SimServer& s, const SimMessage& m);
    bool onRoster(SimServer& s, const SimMessage& m);
    bool onLiveViewActive(SimServer& s, const SimMessage& m);
    bool onZoom(SimServer& s, const SimMessage& m);
    void answerTalkBack(int channel, bool start);
    void sendState(int channel);
    bool setFlag(int channel, uint32_t bit, bool on);
    void drawLoop(const std::string& path);

    SimRecorder& m_recorder;
    mutable std::mutex m_mutex; // guards m_channels, m_preview, m_deviceState
    std::vector<Channel> m_channels;
    PreviewRecord m_preview;
    uint32_t m_deviceState = 0;
    uint8_t m_talkAnswer = 0; // DualTalkNotice state a talk-back start gets
    std::atomic<int> m_previewCount{0};
    std::atomic<bool> m_stop{false};
    PlaybackSource m_playbackSource;
    std::thread m_drawer;
};
