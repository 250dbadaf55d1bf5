#pragma once
// Body of App's time-zone notification (MainType::Param, ParamSubType::TimeZone): the POSIX TZ
// text, NUL-terminated, then a u32 that App keeps with it (its time-zone table index).
#include <cstddef>
#include <cstdint>

struct TimeZoneNotice {
    static constexpr size_t kSize = 24; // bytes on the wire
    static constexpr size_t kValueOffset = 20;

    char tz[20];    // e.g. "CST-8"
    uint32_t value; // App's index of the zone
};

static_assert(sizeof(TimeZoneNotice) == TimeZoneNotice::kSize, "wire size");
static_assert(offsetof(TimeZoneNotice, value) == TimeZoneNotice::kValueOffset, "value");
