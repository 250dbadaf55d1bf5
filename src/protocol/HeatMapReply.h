#pragma once
// Reply to the AnalyticsCountSubType::HeatMap request: a 16-byte head, columns x rows u32
// activity values row by row (top row first), then `pictureBytes` of a JPEG snapshot of the
// scene (0: none). Grids above kMaxColumns x kMaxRows, and replies shorter than their head
// says, are refused.
#include "protocol/ByteOrder.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

struct HeatMapReply {
    static constexpr size_t kHeadSize = 16; // bytes
    static constexpr uint16_t kMaxColumns = 256;
    static constexpr uint16_t kMaxRows = 256;
    static constexpr uint32_t kMaxPictureBytes = 4u << 20;

    struct Head {
        uint32_t channel = 0;
        uint16_t columns = 0;
        uint16_t rows = 0;
        uint32_t pictureBytes = 0;
        uint32_t reserved = 0;
    };

    Head head;
    std::vector<uint32_t> values;
    std::vector<uint8_t> picture;

    static std::optional<HeatMapReply> decode(const uint8_t* body, size_t len) {
        if (body == nullptr || len < kHeadSize)
            return std::nullopt;
        HeatMapReply r;
        r.head.channel = ByteOrder::loadLe32(body);
        r.head.columns = ByteOrder::loadLe16(body + 4);
        r.head.rows = ByteOrder::loadLe16(body + 6);
        r.head.pictureBytes = ByteOrder::loadLe32(body + 8);
        if (r.head.columns > kMaxColumns || r.head.rows > kMaxRows ||
            r.head.pictureBytes > kMaxPictureBytes)
            return std::nullopt;
        const size_t cells = size_t(r.head.columns) * r.head.rows;
        if ((len - kHeadSize) / 4 < cells || len - kHeadSize - cells * 4 < r.head.pictureBytes)
            return std::nullopt;
        r.values.resize(cells);
        for (size_t i = 0; i < cells; ++i)
            r.values[i] = ByteOrder::loadLe32(body + kHeadSize + 4 * i);
        const uint8_t* pic = body + kHeadSize + 4 * cells;
        r.picture.assign(pic, pic + r.head.pictureBytes);
        return r;
    }
    std::vector<uint8_t> encode() const {
        std::vector<uint8_t> out(kHeadSize + values.size() * 4 + picture.size());
        ByteOrder::storeLe32(out.data(), head.channel);
        ByteOrder::storeLe16(out.data() + 4, head.columns);
        ByteOrder::storeLe16(out.data() + 6, head.rows);
        ByteOrder::storeLe32(out.data() + 8, uint32_t(picture.size()));
        for (size_t i = 0; i < values.size(); ++i)
            ByteOrder::storeLe32(out.data() + kHeadSize + 4 * i, values[i]);
        for (size_t i = 0; i < picture.size(); ++i)
            out[kHeadSize + 4 * values.size() + i] = picture[i];
        return out;
    }
};

static_assert(sizeof(HeatMapReply::Head) == HeatMapReply::kHeadSize, "wire size");
