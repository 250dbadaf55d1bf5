#pragma once
// One tag on a channel's recording: an entry of App's answer to a TagSearchRequest
// (PlaybackSubType::TagSearch, App -> GUI, after a TagSearchResult head) and, with `id` 0,
// the body of PlaybackSubType::TagAdd (GUI -> App) that marks a custom tag.
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct PlaybackTag {
    static constexpr size_t kSize = 48;      // bytes on the wire
    static constexpr size_t kNameBytes = 32; // NUL-terminated UTF-8, as the search keyword

    PackedDateTime time;
    uint32_t channel = 0;
    uint32_t id = 0; // App's number of the tag; 0 in a TagAdd
    char name[kNameBytes] = {};
};

// Head of App's answer to a tag search: `tagCount` PlaybackTag entries follow.
struct TagSearchResult {
    static constexpr size_t kSize = 8; // bytes of the head
    // A search answers at most this many tags; more in one reply is cut with a log line.
    static constexpr uint32_t kMaxTags = 1000;

    uint32_t tagCount = 0;
    uint32_t reserved = 0;
};

static_assert(sizeof(PlaybackTag) == PlaybackTag::kSize, "wire size");
static_assert(sizeof(TagSearchResult) == TagSearchResult::kSize, "wire size");
