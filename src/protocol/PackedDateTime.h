#pragma once
// A local date and time as the playback records carry it: 8 bytes, no time zone (App and the
// GUI share the device's TZ). An all-zero value means "not set".
#include <cstddef>
#include <cstdint>

struct PackedDateTime {
    static constexpr size_t kSize = 8; // bytes on the wire

    uint16_t year = 0;
    uint8_t month = 0;  // 1..12
    uint8_t day = 0;    // 1..31
    uint8_t hour = 0;   // 0..23
    uint8_t minute = 0; // 0..59
    uint8_t second = 0; // 0..59
    uint8_t reserved = 0;
};

static_assert(sizeof(PackedDateTime) == PackedDateTime::kSize, "wire size");
