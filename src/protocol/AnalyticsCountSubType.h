#pragma once
// The SubTypes of MainType::Analytics for crowd counting, heat maps and people statistics
// (50..99 of the family; the face applications use 1..49).
#include <cstdint>

namespace AnalyticsCountSubType {

constexpr uint16_t First = 50;
constexpr uint16_t CountLive = 50;   // App -> GUI: CountLiveNotice, one channel's live counts
constexpr uint16_t HeatMap = 51;     // request: HeatMapRequest -> HeatMapReply
constexpr uint16_t PeopleStats = 52; // request: PeopleStatsRequest -> PeopleStatsReply
constexpr uint16_t CountReset = 53;  // GUI -> App: u32 channel; its live counts restart at 0
constexpr uint16_t Snapshot = 54;    // request: u32 channel -> a JPEG of the channel's scene
constexpr uint16_t Last = 99;

} // namespace AnalyticsCountSubType
