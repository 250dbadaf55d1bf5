#pragma once
// Parameter block 94 (ours), one channel's privacy masks: up to kMasks rectangles of the
// picture that App blacks out in live view and in recordings. Coordinates are in
// thousandths of the picture's width and height from its top-left; a mask of zero width or
// height is unused. A get names the channel in the request's index; a set carries it in
// `channel`.
#include <cstddef>
#include <cstdint>

struct PrivacyMaskBlock {
    static constexpr uint32_t kBlockNumber = 94;
    static constexpr size_t kSize = 64; // bytes on the wire
    static constexpr int kMasks = 4;
    static constexpr uint16_t kSpan = 1000;  // the picture's width or height
    static constexpr uint16_t kMinSide = 10; // thinner masks are dropped

    struct Mask {
        uint16_t x, y, width, height; // x + width <= kSpan, y + height <= kSpan
        bool used() const { return width > 0 && height > 0; }
    };

    uint8_t channel; // 0-based
    uint8_t enabled;
    uint8_t reserved2[2];
    Mask masks[kMasks];
    uint8_t reserved36[28];
};

static_assert(sizeof(PrivacyMaskBlock) == PrivacyMaskBlock::kSize, "wire size");
static_assert(offsetof(PrivacyMaskBlock, masks) == 4, "masks");
