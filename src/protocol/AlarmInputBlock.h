#pragma once
// Parameter block 11, one sensor input's alarm settings and the actions an alarm on it
// takes. A get names the input in the request's index; a set carries it in `input`.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct AlarmInputBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::AlarmInput.number;
    static constexpr size_t kSize = ParamBlock::AlarmInput.size; // bytes on the wire
    static constexpr uint16_t kMaxHoldSec = 600;

    uint8_t input;           // 0-based sensor input
    uint8_t enabled;         // 0 or 1
    uint8_t normallyClosed;  // contact type: 0 normally open, 1 normally closed
    uint8_t buzzer;          // 0 or 1: sound the buzzer
    uint8_t popup;           // 0 or 1: show the alarm on the live view
    uint8_t email;           // 0 or 1: send an e-mail
    uint8_t ptzPreset;       // preset to call, 0 none
    uint8_t alarmOutputs;    // bit o: close relay output o
    uint64_t recordChannels; // bit c: record channel c
    uint16_t holdSec;        // seconds the actions last after the input clears, 0..kMaxHoldSec
    uint8_t reserved18[1006];
};

static_assert(sizeof(AlarmInputBlock) == AlarmInputBlock::kSize, "wire size");
static_assert(offsetof(AlarmInputBlock, recordChannels) == 8, "record channels");
static_assert(offsetof(AlarmInputBlock, holdSec) == 16, "hold time");
