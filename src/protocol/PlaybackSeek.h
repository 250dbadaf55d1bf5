#pragma once
// Body of PlaybackSubType::Seek (GUI -> App): continue the playback from a time (a press on
// the time bar).
#include "protocol/PackedDateTime.h"
#include "protocol/PlaybackChannelBits.h"

#include <cstddef>
#include <cstdint>

struct PlaybackSeek {
    static constexpr size_t kSize = 40; // bytes on the wire

    PackedDateTime time;
    uint32_t window = 0xFFFFFFFFu; // all cells
    uint8_t channelBits[PlaybackChannelBits::kBytes] = {};
    uint8_t reserved[12] = {};
};

static_assert(sizeof(PlaybackSeek) == PlaybackSeek::kSize, "wire size");
