#pragma once
// The e-mail schedule: when an event of each type sends mail (ScheduleGrid::kEmail* bits).
// Its own block, since block 53 has no room for a week.
#include "protocol/ScheduleGrid.h"

#include <cstddef>
#include <cstdint>

struct EmailScheduleBlock {
    static constexpr uint32_t kBlockNumber = 91;
    static constexpr size_t kSize = 512; // bytes on the wire

    uint8_t reserved0[4];
    uint8_t schedule[ScheduleGrid::kBytes];
    uint8_t reserved340[172];
};

static_assert(sizeof(EmailScheduleBlock) == EmailScheduleBlock::kSize, "wire size");
static_assert(offsetof(EmailScheduleBlock, schedule) == 4, "schedule");
