#pragma once
// Parameter block 120: the crowd-counting rule of each channel, channel n at index n.
#include "protocol/CountRule.h"

struct CountRuleBlock {
    static constexpr uint32_t kBlockNumber = 120;
    static constexpr int kChannels = 64;
    static constexpr size_t kSize = kChannels * CountRule::kSize;

    CountRule rules[kChannels];
};

static_assert(sizeof(CountRuleBlock) == CountRuleBlock::kSize, "wire size");
