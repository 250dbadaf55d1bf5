#pragma once
// Body of PlaybackSubType::MotionSearch (GUI -> App): the motion events of one channel's day
// inside a grid of areas drawn over its picture.
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct MotionSearchRequest {
    static constexpr size_t kSize = 112; // bytes on the wire
    static constexpr int kGridRows = 22;
    static constexpr int kGridColumns = 22;  // the low bits of each row word
    static constexpr size_t kAreaBytes = 88; // kGridRows u32 row words

    PackedDateTime start;
    PackedDateTime end;
    uint32_t channel = 0;
    uint32_t sensitivity = 3;      // 1..6
    uint32_t area[kGridRows] = {}; // bit c of word r: cell (c, r)
};

static_assert(sizeof(MotionSearchRequest) == MotionSearchRequest::kSize, "wire size");
static_assert(sizeof(MotionSearchRequest::area) == MotionSearchRequest::kAreaBytes, "area");
