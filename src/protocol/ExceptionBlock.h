#pragma once
// Parameter block 17, what the recorder does on each exception: the disk filling up, a disk
// error and a channel's video loss, one action record each in that order.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct ExceptionBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Exception.number;
    static constexpr size_t kSize = ParamBlock::Exception.size; // bytes on the wire
    enum Kind { DiskFull = 0, DiskError = 1, VideoLoss = 2, KindCount = 3 };

    struct Actions {
        uint8_t buzzer;       // 0 or 1
        uint8_t popup;        // 0 or 1
        uint8_t email;        // 0 or 1
        uint8_t alarmOutputs; // bit o: close relay output o
        uint8_t reserved4[4];
    };

    Actions actions[KindCount];
    uint8_t reserved24[488];
};

static_assert(sizeof(ExceptionBlock::Actions) == 8, "action record");
static_assert(sizeof(ExceptionBlock) == ExceptionBlock::kSize, "wire size");
