#pragma once
// Parameter block 18: the serial (EIA-485) control keyboard line settings.
#include <cstddef>
#include <cstdint>

struct SerialKeyboardBlock {
    static constexpr uint32_t kBlockNumber = 18;
    static constexpr size_t kSize = 16; // bytes on the wire

    uint8_t baudIndex; // index into the platform library's baud table
    uint8_t dataBits;  // platform library code
    uint8_t parity;    // platform library code; crossed with stopBits on the way out
    uint8_t stopBits;  // platform library code
    uint8_t keyMux;    // 1: the port carries the key board, otherwise PTZ
    uint8_t enabled;   // non-zero: a serial keyboard is attached
    uint8_t reserved6[10];
};

static_assert(sizeof(SerialKeyboardBlock) == SerialKeyboardBlock::kSize, "wire size");
static_assert(offsetof(SerialKeyboardBlock, keyMux) == 4, "mux byte");
