#pragma once
// The record segments found for one channel, in the order App reported them.
#include "model/RecordSegment.h"

#include <vector>

struct RecordChannel {
    int channel = 0; // 0-based channel index of the device
    std::vector<RecordSegment> segments;
};
