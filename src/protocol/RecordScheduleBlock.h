#pragma once
// Parameter block 16, one channel's record schedule. A get names the channel in the request's
// index; a set carries it in `channel`, since a set's index is always 0.
#include "protocol/ParamBlock.h"
#include "protocol/ScheduleGrid.h"

#include <cstddef>
#include <cstdint>

struct RecordScheduleBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::RecordSchedule.number;
    static constexpr size_t kSize = ParamBlock::RecordSchedule.size; // bytes on the wire

    uint8_t channel; // 0-based
    uint8_t enabled; // 0: the channel does not record whatever the schedule says
    uint8_t reserved2[2];
    uint8_t schedule[ScheduleGrid::kBytes]; // record type bits (ScheduleGrid::kRecord*)
    uint8_t reserved340[684];
};

static_assert(sizeof(RecordScheduleBlock) == RecordScheduleBlock::kSize, "wire size");
static_assert(offsetof(RecordScheduleBlock, schedule) == 4, "schedule");
