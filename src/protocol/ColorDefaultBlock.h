#pragma once
// The colour default block: the image-colour defaults of one video-decoder chip, read from the
// customisation file section chosen by the colour-profile code and sent with (600, 11).
// All integers are little-endian; unused bytes are zero.
#include <cstdint>

namespace ColorDefaultBlock {

constexpr uint32_t kSize = 2480; // bytes

constexpr uint32_t kProfileCode = 0;     // u32, the code the section was chosen by
constexpr uint32_t kFormatCount = 4;     // u32, number of input formats that follow (kFormats)
constexpr uint32_t kValues = 8;          // first format's values; format i at kValues + i * 5
constexpr uint32_t kValuesPerFormat = 5; // bytes, passed on in the order the file writes them

// The input formats in block order; each is read from "<section>/<format>ColorDefaultVal".
constexpr const char* kFormats[] = {
    "Normal",  "AHD720P", "AHD1080P", "AHD300W", "AHD400W", "AHD500W",
    "AHD800W", "TVI720P", "TVI1080P", "TVI300W", "TVI400W", "TVI500W",
    "TVI800W", "CVI720P", "CVI1080P", "CVI300W", "CVI400W", "CVI800W",
};
constexpr uint32_t kFormatCountValue = sizeof kFormats / sizeof kFormats[0];

static_assert(kFormatCountValue == 18, "eighteen input formats");
static_assert(kValues + kFormatCountValue * kValuesPerFormat <= kSize, "values fit the block");

} // namespace ColorDefaultBlock
