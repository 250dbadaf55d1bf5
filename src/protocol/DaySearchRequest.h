#pragma once
// Body of PlaybackSubType::DaySearch (GUI -> App): the record segments of these channels
// between two times. App answers with one DaySearchResult per channel.
#include "protocol/PackedDateTime.h"
#include "protocol/PlaybackChannelBits.h"

#include <cstddef>
#include <cstdint>

struct DaySearchRequest {
    static constexpr size_t kSize = 32; // bytes on the wire

    PackedDateTime start;
    PackedDateTime end;
    uint8_t channelBits[PlaybackChannelBits::kBytes] = {};
};

static_assert(sizeof(DaySearchRequest) == DaySearchRequest::kSize, "wire size");
