#pragma once
// Body of App's PlaybackSubType::MonthResult notification: the days of the month asked for
// that hold recordings.
#include <cstddef>
#include <cstdint>

struct MonthSearchResult {
    static constexpr size_t kSize = 8; // bytes on the wire

    uint16_t year = 0;
    uint8_t month = 0;
    uint8_t dayCount = 0;
    uint32_t dayBits = 0; // bit d - 1: day d has recordings
};

static_assert(sizeof(MonthSearchResult) == MonthSearchResult::kSize, "wire size");
