#pragma once
// Body of PlaybackSubType::RecPicWindow (GUI -> App): one cell of the picture playback split,
// sent once per cell.
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct RecPicWindow {
    static constexpr size_t kSize = 56; // bytes on the wire

    uint32_t picCnt = 0;    // pictures found
    uint32_t videos = 0;    // cells that show video rather than pictures
    uint32_t splitWnds = 0; // cells of the split
    uint32_t width = 0;     // pixels of the output
    uint32_t height = 0;
    uint32_t window = 0; // this cell
    uint32_t x = 0;      // this cell's rectangle, pixels of the output
    uint32_t y = 0;
    uint32_t cellWidth = 0;
    uint32_t cellHeight = 0;
    PackedDateTime time; // the picture to show
    uint32_t channel = 0;
    uint32_t reserved = 0;
};

static_assert(sizeof(RecPicWindow) == RecPicWindow::kSize, "wire size");
