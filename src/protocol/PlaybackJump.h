#pragma once
// Body of PlaybackSubType::Jump (GUI -> App): move the running playback by some seconds.
#include <cstddef>
#include <cstdint>

struct PlaybackJump {
    static constexpr size_t kSize = 8;          // bytes on the wire
    static constexpr int32_t kStepSeconds = 30; // the player's back and forward buttons

    int32_t seconds = 0;           // negative: back
    uint32_t window = 0xFFFFFFFFu; // all cells
};

static_assert(sizeof(PlaybackJump) == PlaybackJump::kSize, "wire size");
