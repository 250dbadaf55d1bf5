#pragma once
// One stretch of recording of one channel, as App's record search reports it.
#include "runtime/VyDateTime.h"

#include <cstdint>

struct RecordSegment {
    VyDateTime start;
    VyDateTime end;
    uint32_t typeBits = 0;      // record-type bits (RecordTypeBit)
    uint16_t analyticsBits = 0; // analytics sub-type bits of an analytics recording
};
