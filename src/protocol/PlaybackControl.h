#pragma once
// Body of PlaybackSubType::Control (GUI -> App): one action on the running playback.
#include <cstddef>
#include <cstdint>

struct PlaybackControl {
    static constexpr size_t kSize = 12; // bytes on the wire
    // Actions.
    static constexpr uint32_t kPause = 1;
    static constexpr uint32_t kResume = 2;
    static constexpr uint32_t kSpeed = 3;     // value: speed step
    static constexpr uint32_t kFrameStep = 4; // one frame on, paused
    static constexpr uint32_t kAudio = 5;     // value: 1 on, 0 off, for `window`
    // Speed steps: 0 is 1x; +n is 2^n x, -n is 1 / 2^n x.
    static constexpr int32_t kSlowest = -4; // 1/16 x
    static constexpr int32_t kFastest = 4;  // 16 x
    static constexpr uint32_t kAllWindows = 0xFFFFFFFFu;

    uint32_t action = 0;
    int32_t value = 0;
    uint32_t window = kAllWindows;
};

static_assert(sizeof(PlaybackControl) == PlaybackControl::kSize, "wire size");
