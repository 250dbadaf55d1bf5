#pragma once
// Body of the AnalyticsCountSubType::PeopleStats request: the people counted on the chosen
// channels in `bucketCount` periods of one kind (hours, days, weeks or months) from `start`.
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct PeopleStatsRequest {
    static constexpr size_t kSize = 24; // bytes
    // `period`.
    static constexpr uint32_t kHour = 0;
    static constexpr uint32_t kDay = 1;
    static constexpr uint32_t kWeek = 2;         // weeks start on the day of `start`
    static constexpr uint32_t kMonth = 3;        // calendar months from the month of `start`
    static constexpr uint32_t kMaxBuckets = 744; // the hours of 31 days

    uint64_t channels = 0; // bit n = channel n
    uint32_t period = kHour;
    uint32_t bucketCount = 0;
    PackedDateTime start;
};

static_assert(sizeof(PeopleStatsRequest) == PeopleStatsRequest::kSize, "wire size");
