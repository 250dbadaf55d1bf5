#pragma once
// The digital zoom of one live channel (MainType::Preview, PreviewSubType::Zoom, one-way):
// the part of the camera's picture that App scales up into the channel's cell. Edges are in
// ten-thousandths of the picture so the rectangle survives a change of layout or stream;
// the whole picture (0, 0, kFull, kFull) ends the zoom.
#include "protocol/ByteOrder.h"

#include <cstdint>
#include <optional>

struct PreviewZoom {
    static constexpr uint32_t kSize = 12;    // bytes
    static constexpr uint16_t kFull = 10000; // one picture width or height

    uint8_t channel = 0; // 0-based
    uint8_t reserved[3] = {};
    // Exclusive right and bottom edges: left < right <= kFull, top < bottom <= kFull.
    uint16_t left = 0;
    uint16_t top = 0;
    uint16_t right = kFull;
    uint16_t bottom = kFull;

    bool isWhole() const { return left == 0 && top == 0 && right == kFull && bottom == kFull; }

    void encode(uint8_t* out) const {
        out[0] = channel;
        out[1] = out[2] = out[3] = 0;
        ByteOrder::storeLe16(out + 4, left);
        ByteOrder::storeLe16(out + 6, top);
        ByteOrder::storeLe16(out + 8, right);
        ByteOrder::storeLe16(out + 10, bottom);
    }
    // Null for a short body or an empty or out-of-picture rectangle.
    static std::optional<PreviewZoom> decode(const uint8_t* body, uint32_t len) {
        if (body == nullptr || len < kSize)
            return std::nullopt;
        PreviewZoom z;
        z.channel = body[0];
        z.left = ByteOrder::loadLe16(body + 4);
        z.top = ByteOrder::loadLe16(body + 6);
        z.right = ByteOrder::loadLe16(body + 8);
        z.bottom = ByteOrder::loadLe16(body + 10);
        if (z.left >= z.right || z.top >= z.bottom || z.right > kFull || z.bottom > kFull)
            return std::nullopt;
        return z;
    }
};
static_assert(sizeof(PreviewZoom) == PreviewZoom::kSize);
