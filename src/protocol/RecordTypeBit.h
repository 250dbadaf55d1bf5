#pragma once
// The record-type bits of App's record search answers (RecordSegmentEntry::typeBits,
// MonthSearchRequest::searchType). A segment carries one bit per reason it was recorded; the
// time bar colours each bit and marks segments with several as mixed.
#include <cstdint>

namespace RecordTypeBit {

constexpr uint32_t Continuous = 1u << 0; // scheduled, continuous
constexpr uint32_t Motion = 1u << 1;
constexpr uint32_t Alarm = 1u << 2;    // alarm input
constexpr uint32_t AnalyticsFirst = 6; // bits 6..11: analytics events (line, zone, face, ...)
constexpr uint32_t AnalyticsMask = 0x3Fu << AnalyticsFirst;
constexpr uint32_t Pir = 1u << 12; // passive infra-red sensor
constexpr uint32_t Manual = 1u << 13;
constexpr uint32_t Smart = 1u << 21;          // smart (person or vehicle) detection
constexpr uint32_t MotionAndAlarm = 1u << 31; // both at once, on models that mark it

} // namespace RecordTypeBit
