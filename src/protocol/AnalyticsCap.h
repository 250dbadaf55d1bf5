#pragma once
// The analytics applications a recorder offers: bits of the device record's
// DevInfo/AIAnalyzeCap. DevInfo/AIAnalyzeChannels counts the channels App analyses, from
// channel 0 upwards (0: none).
#include <cstdint>

namespace AnalyticsCap {

constexpr uint32_t FaceLibrary = 1u << 0;
constexpr uint32_t FaceSearch = 1u << 1;
constexpr uint32_t Attendance = 1u << 2;
constexpr uint32_t CrowdCounting = 1u << 3;
constexpr uint32_t HeatMap = 1u << 4;
constexpr uint32_t PeopleStatistics = 1u << 5;

// The analysed channels as a mask (bit n = channel n) for a count from the device record,
// limited to the channels the recorder has.
constexpr uint64_t channelMask(int analysedCount, int channelCount) {
    const int n = analysedCount < channelCount ? analysedCount : channelCount;
    if (n <= 0)
        return 0;
    return n >= 64 ? ~uint64_t(0) : (uint64_t(1) << n) - 1;
}

} // namespace AnalyticsCap
