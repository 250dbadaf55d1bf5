#pragma once
// What the live view knows of one channel, kept from App's channel-state notices.
#include "protocol/ChannelStateNotice.h"
#include "runtime/VyString.h"

#include <cstdint>

struct ChannelState {
    bool camera = false;
    uint32_t flags = 0; // ChannelStateNotice bits
    uint8_t kind = ChannelStateNotice::kKindNone;
    uint8_t subMode = 0;
    uint8_t connection = ChannelStateNotice::kConnectionNone;
    VyString name;
    // Whether App has said anything about the channel yet (the cell has channel information).
    bool known = false;

    bool has(uint32_t bit) const { return (flags & bit) != 0; }
};
