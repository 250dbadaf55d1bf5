#pragma once
// What the main view asks App to show (MainType::Preview, PreviewSubType::Show or
// ShowFirst): the split layout and, per cell, the channel, the picture's rectangle on the
// video output plane and the stream to decode. Small cells take the sub stream; a cell shown
// alone takes the main stream. Sent after every layout, page or cell-order change.
#include "protocol/ByteOrder.h"

#include <cstdint>
#include <optional>

struct PreviewCell {
    static constexpr uint32_t kSize = 12; // bytes on the wire
    static constexpr uint8_t kNoChannel = 0xFF;
    static constexpr uint8_t kMainStream = 0;
    static constexpr uint8_t kSubStream = 1;
    static constexpr uint8_t kFlagSelected = 0x01;
    static constexpr uint8_t kFlagCamera = 0x02; // a camera is assigned to the channel

    uint8_t channel = kNoChannel; // 0-based
    uint8_t stream = kSubStream;
    uint8_t flags = 0;
    uint8_t reserved = 0;
    // Inclusive edges in output-plane pixels.
    uint16_t left = 0;
    uint16_t top = 0;
    uint16_t right = 0;
    uint16_t bottom = 0;
};
static_assert(sizeof(PreviewCell) == PreviewCell::kSize);

struct PreviewRecord {
    static constexpr uint32_t kSize = 820; // bytes: 12 header + 64 cells x 12 + 40 reserved
    static constexpr int kMaxCells = 64;
    static constexpr uint32_t kCellsOffset = 12;
    static constexpr uint16_t kNoSelection = 0xFFFF;

    uint8_t layoutId = 0;
    uint8_t cellCount = 0;  // cells in use, at most kMaxCells
    uint8_t singleView = 0; // 1: one cell shown alone (enlarged)
    uint8_t reserved0 = 0;
    uint16_t outputWidth = 0; // the output plane the rectangles refer to
    uint16_t outputHeight = 0;
    uint16_t pageStart = 0;               // channel-list position of the first cell
    uint16_t selectedCell = kNoSelection; // cell index
    PreviewCell cells[kMaxCells];
    uint8_t reserved[40] = {};

    void encode(uint8_t* out) const {
        for (uint32_t i = 0; i < kSize; ++i)
            out[i] = 0;
        out[0] = layoutId;
        out[1] = cellCount;
        out[2] = singleView;
        ByteOrder::storeLe16(out + 4, outputWidth);
        ByteOrder::storeLe16(out + 6, outputHeight);
        ByteOrder::storeLe16(out + 8, pageStart);
        ByteOrder::storeLe16(out + 10, selectedCell);
        for (int i = 0; i < kMaxCells; ++i) {
            const PreviewCell& c = cells[i];
            uint8_t* p = out + kCellsOffset + uint32_t(i) * PreviewCell::kSize;
            p[0] = c.channel;
            p[1] = c.stream;
            p[2] = c.flags;
            ByteOrder::storeLe16(p + 4, c.left);
            ByteOrder::storeLe16(p + 6, c.top);
            ByteOrder::storeLe16(p + 8, c.right);
            ByteOrder::storeLe16(p + 10, c.bottom);
        }
    }

    // Null for a short body or a cell count beyond kMaxCells.
    static std::optional<PreviewRecord> decode(const uint8_t* body, uint32_t len) {
        if (body == nullptr || len < kSize || body[1] > kMaxCells)
            return std::nullopt;
        PreviewRecord r;
        r.layoutId = body[0];
        r.cellCount = body[1];
        r.singleView = body[2];
        r.outputWidth = ByteOrder::loadLe16(body + 4);
        r.outputHeight = ByteOrder::loadLe16(body + 6);
        r.pageStart = ByteOrder::loadLe16(body + 8);
        r.selectedCell = ByteOrder::loadLe16(body + 10);
        for (int i = 0; i < kMaxCells; ++i) {
            const uint8_t* p = body + kCellsOffset + uint32_t(i) * PreviewCell::kSize;
            PreviewCell& c = r.cells[i];
            c.channel = p[0];
            c.stream = p[1];
            c.flags = p[2];
            c.left = ByteOrder::loadLe16(p + 4);
            c.top = ByteOrder::loadLe16(p + 6);
            c.right = ByteOrder::loadLe16(p + 8);
            c.bottom = ByteOrder::loadLe16(p + 10);
        }
        return r;
    }
};
static_assert(sizeof(PreviewRecord) == PreviewRecord::kSize);
