#pragma once
// Body of PlaybackSubType::Thumbnails (GUI -> App): `count` small pictures of one channel's
// recording, taken at even steps from `start` to `end` (the first at `start`).
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct ThumbnailRequest {
    static constexpr size_t kSize = 24; // bytes on the wire
    static constexpr uint32_t kMaxCount = 32;

    PackedDateTime start;
    PackedDateTime end;
    uint32_t channel = 0;
    uint32_t count = 0; // 1..kMaxCount
};

static_assert(sizeof(ThumbnailRequest) == ThumbnailRequest::kSize, "wire size");
