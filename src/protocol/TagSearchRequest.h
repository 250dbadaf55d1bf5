#pragma once
// Body of PlaybackSubType::TagSearch (GUI -> App): the tags of these channels between two
// times whose name holds the keyword (empty: every tag).
#include "protocol/PackedDateTime.h"
#include "protocol/PlaybackChannelBits.h"

#include <cstddef>
#include <cstdint>

struct TagSearchRequest {
    static constexpr size_t kSize = 64;         // bytes on the wire
    static constexpr size_t kKeywordBytes = 32; // NUL-terminated UTF-8

    PackedDateTime start;
    PackedDateTime end;
    uint8_t channelBits[PlaybackChannelBits::kBytes] = {};
    char keyword[kKeywordBytes] = {};
};

static_assert(sizeof(TagSearchRequest) == TagSearchRequest::kSize, "wire size");
