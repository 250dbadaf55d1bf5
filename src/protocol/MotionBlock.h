#pragma once
// Parameter block 45, one channel's motion detection: on or off, the sensitivity and the
// area watched, a grid of kColumns x kRows cells over the picture, one bit per cell,
// row-major from the top-left (bit i of byte i / 8). A get names the channel in the
// request's index; a set carries it in `channel`.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct MotionBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Motion.number;
    static constexpr size_t kSize = ParamBlock::Motion.size; // bytes on the wire
    static constexpr int kColumns = 22;
    static constexpr int kRows = 18;
    static constexpr int kAreaBytes = (kColumns * kRows + 7) / 8;
    static constexpr uint8_t kMinSensitivity = 1;
    static constexpr uint8_t kMaxSensitivity = 8;

    uint8_t channel; // 0-based
    uint8_t enabled;
    uint8_t sensitivity; // kMinSensitivity (least) .. kMaxSensitivity (most)
    uint8_t reserved3;
    uint8_t area[kAreaBytes];
    uint8_t reserved54[458];

    bool cell(int column, int row) const {
        const int i = row * kColumns + column;
        return (area[i / 8] >> (i % 8)) & 1u;
    }
    void setCell(int column, int row, bool on) {
        const int i = row * kColumns + column;
        if (on)
            area[i / 8] = uint8_t(area[i / 8] | (1u << (i % 8)));
        else
            area[i / 8] = uint8_t(area[i / 8] & ~(1u << (i % 8)));
    }
};

static_assert(sizeof(MotionBlock) == MotionBlock::kSize, "wire size");
static_assert(offsetof(MotionBlock, area) == 4, "area");
