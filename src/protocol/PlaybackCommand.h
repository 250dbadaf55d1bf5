#pragma once
// Body of PlaybackSubType::Play (GUI -> App): start or stop the playback of the cells. One
// record serves both, told apart by `command`.
#include "protocol/PackedDateTime.h"
#include "protocol/PlaybackChannelBits.h"

#include <cstddef>
#include <cstdint>

struct PlaybackCommand {
    static constexpr size_t kSize = 428; // bytes on the wire
    static constexpr uint32_t kStop = 0;
    static constexpr uint32_t kPlay = 1;
    static constexpr int kMaxWindows = 64;

    uint32_t command = kStop;
    uint32_t windowCount = 0;
    PackedDateTime start;     // playback starts here
    PackedDateTime end;       // and stops at the latest here
    uint32_t recordTypes = 0; // record-type bits to play; 0: any
    int32_t speed = 0;        // PlaybackControl::speed steps, 0 = normal
    uint8_t channelBits[PlaybackChannelBits::kBytes] = {};
    int32_t windowChannels[kMaxWindows] = {}; // channel of each cell, -1: none
    uint8_t reserved[124] = {};
};

static_assert(sizeof(PlaybackCommand) == PlaybackCommand::kSize, "wire size");
static_assert(offsetof(PlaybackCommand, channelBits) == 32, "channelBits");
static_assert(offsetof(PlaybackCommand, windowChannels) == 48, "windowChannels");
