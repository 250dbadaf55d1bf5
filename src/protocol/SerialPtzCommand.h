#pragma once
// A command of the serial PTZ keyboard the GUI hands to App (MainType::System,
// SystemSubType::SerialPtzCommand): the keyboard's command number and its three parameters,
// as the key library read them.
#include <cstddef>
#include <cstdint>

#include "protocol/ByteOrder.h"

struct SerialPtzCommand {
    static constexpr size_t kSize = 16; // bytes on the wire
    static constexpr int32_t kFirstCommand = 1;
    static constexpr int32_t kLastCommand = 17;

    int32_t command;
    int32_t param[3];

    void encode(uint8_t* out) const {
        ByteOrder::storeLe32(out, uint32_t(command));
        for (int i = 0; i < 3; ++i)
            ByteOrder::storeLe32(out + 4 + 4 * i, uint32_t(param[i]));
    }
};

static_assert(sizeof(SerialPtzCommand) == SerialPtzCommand::kSize, "wire size");
