#pragma once
// Parameter block 50, the display switches. Byte 35 is the one the whole GUI reads: whether
// channel titles are drawn over live and playback cells.
#include <cstddef>
#include <cstdint>

struct DisplaySwitchBlock {
    static constexpr uint32_t kBlockNumber = 50;
    static constexpr size_t kSize = 328; // bytes on the wire

    uint8_t reserved0[35];   // switches of the display page not read at start
    uint8_t showCellTitles;  // non-zero: channel titles over every video cell
    uint8_t reserved36[292]; // pads the block to its wire size
};

static_assert(sizeof(DisplaySwitchBlock) == DisplaySwitchBlock::kSize, "wire size");
static_assert(offsetof(DisplaySwitchBlock, showCellTitles) == 35, "title switch");
