#pragma once
// Body of App's PlaybackSubType::DayResult notification: the segments of one channel, a
// 16-byte head followed by segmentCount RecordSegmentEntry records. Times are seconds from
// the head's day at 00:00 (a segment that crosses midnight goes past 86400).
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct RecordSegmentEntry {
    static constexpr size_t kSize = 16;

    int32_t start = 0; // seconds from the day's midnight
    int32_t end = 0;
    uint32_t typeBits = 0;
    uint16_t analyticsBits = 0;
    uint16_t reserved = 0;
};

struct DaySearchResult {
    static constexpr size_t kSize = 16; // bytes of the head
    // More than this in one reply is not a real day of one channel: the rest is dropped.
    static constexpr uint32_t kMaxSegments = 20000;

    uint32_t channel = 0;
    uint32_t segmentCount = 0;
    PackedDateTime day; // time fields 0
};

static_assert(sizeof(RecordSegmentEntry) == RecordSegmentEntry::kSize, "wire size");
static_assert(sizeof(DaySearchResult) == DaySearchResult::kSize, "wire size");
