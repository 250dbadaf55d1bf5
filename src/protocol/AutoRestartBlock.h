#pragma once
// Parameter block 115, the automatic restart: App restarts the recorder on the day and at the
// time set, a habit of installers for devices that run for months.
#include <cstddef>
#include <cstdint>

struct AutoRestartBlock {
    static constexpr uint32_t kBlockNumber = 115;
    static constexpr size_t kSize = 16; // bytes on the wire
    static constexpr uint8_t kEveryDay = 0;
    static constexpr uint8_t kMaxDay = 7; // 1 Sunday .. 7 Saturday

    uint8_t enabled; // 0 or 1
    uint8_t day;     // kEveryDay, or 1..kMaxDay
    uint8_t hour;    // 0..23
    uint8_t minute;  // 0..59
    uint8_t reserved4[12];
};

static_assert(sizeof(AutoRestartBlock) == AutoRestartBlock::kSize, "wire size");
