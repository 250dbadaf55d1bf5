#pragma once
// Body of MainType::Playback, PlaybackSubType::SplitScreen (GUI -> App): the cells of the
// playback split, so that App places each channel's decoded picture in its cell.
#include <cstddef>
#include <cstdint>

struct PlaybackWindowRect {
    static constexpr size_t kSize = 12;

    int32_t channel = -1; // 0-based; -1: the cell shows nothing
    uint16_t x = 0;       // pixels of the output
    uint16_t y = 0;
    uint16_t width = 0;
    uint16_t height = 0;
};

struct PlaybackSplitScreen {
    static constexpr size_t kSize = 820; // bytes on the wire
    static constexpr int kMaxWindows = 64;

    uint32_t layoutId = 0;    // the split layout's number
    uint32_t windowCount = 0; // cells used, at most kMaxWindows
    uint16_t screenWidth = 0; // pixels of the output
    uint16_t screenHeight = 0;
    uint32_t reserved0 = 0;
    PlaybackWindowRect windows[kMaxWindows];
    uint8_t reserved[36] = {};
};

static_assert(sizeof(PlaybackWindowRect) == PlaybackWindowRect::kSize, "wire size");
static_assert(sizeof(PlaybackSplitScreen) == PlaybackSplitScreen::kSize, "wire size");
static_assert(offsetof(PlaybackSplitScreen, windows) == 16, "windows");
