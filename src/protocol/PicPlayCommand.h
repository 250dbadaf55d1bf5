#pragma once
// Body of PlaybackSubType::PicPlay (GUI -> App): picture playback (the snapshots App took),
// started, stepped and stopped with one record.
#include "protocol/PackedDateTime.h"
#include "protocol/PlaybackChannelBits.h"

#include <cstddef>
#include <cstdint>

struct PicPlayCommand {
    static constexpr size_t kSize = 148; // bytes on the wire
    static constexpr uint32_t kStop = 0;
    static constexpr uint32_t kPlay = 1;
    static constexpr uint32_t kPause = 2;
    static constexpr uint32_t kNext = 3;
    static constexpr uint32_t kPrevious = 4;

    uint32_t playCmd = kStop;
    PackedDateTime start;
    PackedDateTime end;
    uint8_t channelBits[PlaybackChannelBits::kBytes] = {};
    uint32_t intervalSeconds = 3; // between pictures while playing
    uint32_t pictureTypes = 0;    // 0: every picture
    uint8_t reserved[104] = {};
};

static_assert(sizeof(PicPlayCommand) == PicPlayCommand::kSize, "wire size");
static_assert(offsetof(PicPlayCommand, intervalSeconds) == 36, "intervalSeconds");
