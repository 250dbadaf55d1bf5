#pragma once
// Parameter block 3, one channel's camera: its name, the on-screen display of name and time
// (positions in percent of the picture, top-left of the text) and the image settings. A
// get names the channel in the request's index; a set carries it in `channel`.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct CameraBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Camera.number;
    static constexpr size_t kSize = ParamBlock::Camera.size; // bytes on the wire
    static constexpr uint16_t kMaxPosition = 100;            // percent
    static constexpr uint8_t kDefaultImageValue = 128;       // the middle of 0..255

    uint8_t channel; // 0-based
    uint8_t showName;
    uint8_t showTime;
    uint8_t reserved3;
    char name[32];                                 // UTF-8, NUL-terminated
    uint16_t nameX, nameY;                         // 0..kMaxPosition
    uint16_t timeX, timeY;                         // 0..kMaxPosition
    uint8_t brightness, contrast, saturation, hue; // 0..255
    uint8_t reserved48[2000];
};

static_assert(sizeof(CameraBlock) == CameraBlock::kSize, "wire size");
static_assert(offsetof(CameraBlock, name) == 4, "name");
static_assert(offsetof(CameraBlock, nameX) == 36, "positions");
static_assert(offsetof(CameraBlock, brightness) == 44, "image");
