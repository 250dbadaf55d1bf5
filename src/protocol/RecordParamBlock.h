#pragma once
// Parameter block 14, one channel's recording parameters. A get names the channel in the
// request's index; a set carries it in `channel`. Values outside the limits below are
// refused by the recorder.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct RecordParamBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Record.number;
    static constexpr size_t kSize = ParamBlock::Record.size; // bytes on the wire
    static constexpr uint16_t kMaxPreRecordSec = 30;
    static constexpr uint16_t kMinPostRecordSec = 5;
    static constexpr uint16_t kMaxPostRecordSec = 600;
    static constexpr uint8_t kStreamMain = 0;
    static constexpr uint8_t kStreamSub = 1;

    uint8_t channel;      // 0-based
    uint8_t recordStream; // kStreamMain or kStreamSub
    uint8_t audioEnabled; // 0 or 1
    uint8_t reserved3;
    uint16_t preRecordSec;  // seconds kept before an event, 0..kMaxPreRecordSec
    uint16_t postRecordSec; // seconds recorded after it, kMinPostRecordSec..kMaxPostRecordSec
    uint8_t reserved8[1016];
};

static_assert(sizeof(RecordParamBlock) == RecordParamBlock::kSize, "wire size");
static_assert(offsetof(RecordParamBlock, preRecordSec) == 4, "pre-record");
static_assert(offsetof(RecordParamBlock, postRecordSec) == 6, "post-record");
