#pragma once
// Body of the AnalyticsCountSubType::HeatMap request: the activity of one channel over a day
// or the week (seven days) starting at `day`.
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct HeatMapRequest {
    static constexpr size_t kSize = 16; // bytes
    // `span`.
    static constexpr uint32_t kDay = 0;
    static constexpr uint32_t kWeek = 1;

    uint32_t channel = 0;
    uint32_t span = kDay;
    PackedDateTime day; // time fields 0
};

static_assert(sizeof(HeatMapRequest) == HeatMapRequest::kSize, "wire size");
