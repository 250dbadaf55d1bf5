#pragma once
// Parameter block 93 (ours), the clock: the time zone, daylight saving and setting the date
// and time by hand. A set with `setClock` 1 asks App to set its clock to `clock` (local
// time); App stores the request as 0. A change of `timeZone` makes App announce the zone
// with its time-zone notice (TimeZoneNotice), which the GUI's own clock follows.
#include "protocol/TimeZoneTable.h"

#include <cstddef>
#include <cstdint>

struct DateTimeBlock {
    static constexpr uint32_t kBlockNumber = 93;
    static constexpr size_t kSize = 64; // bytes on the wire
    static constexpr uint8_t kMaxDstOffsetMin = 120;
    static constexpr uint8_t kDstOffsetStepMin = 30;
    static constexpr uint8_t kLastWeek = 5; // "the last <weekday> of the month"
    enum DstMode : uint8_t { ByWeek = 0, ByDate = 1 };

    // When daylight saving starts or ends, local time.
    struct DstRule {
        uint8_t month;   // 1..12
        uint8_t week;    // ByWeek: 1..kLastWeek
        uint8_t weekday; // ByWeek: 0 Sunday..6 Saturday
        uint8_t day;     // ByDate: 1..31
        uint8_t hour;    // 0..23
        uint8_t reserved5[3];
    };
    struct Clock {
        uint16_t year; // 2000..2037
        uint8_t month, day, hour, minute, second;
        uint8_t reserved7;
    };

    uint8_t timeZone; // index into TimeZoneTable
    uint8_t dstEnabled;
    uint8_t dstMode;      // DstMode
    uint8_t dstOffsetMin; // kDstOffsetStepMin..kMaxDstOffsetMin, in steps of kDstOffsetStepMin
    uint8_t setClock;     // GUI -> App
    uint8_t reserved5[3];
    DstRule dstStart;
    DstRule dstEnd;
    Clock clock;
    uint8_t reserved32[32];
};

static_assert(sizeof(DateTimeBlock) == DateTimeBlock::kSize, "wire size");
static_assert(offsetof(DateTimeBlock, dstStart) == 8, "start");
static_assert(offsetof(DateTimeBlock, dstEnd) == 16, "end");
static_assert(offsetof(DateTimeBlock, clock) == 24, "clock");
