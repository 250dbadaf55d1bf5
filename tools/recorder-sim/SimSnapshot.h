#pragma once
// A made-up picture of a channel's scene for the heat maps: a floor in perspective, a back
// wall and a few counters and shelves placed from the seed, as a JPEG. Drawn, not
// photographed: no person or real place is in it.
#include <cstdint>
#include <vector>

class SimSnapshot {
public:
    static constexpr int kWidth = 640;
    static constexpr int kHeight = 360;
    static constexpr int kQuality = 80;

    // The scene's pixels, 3 bytes (R, G, B) each, row by row.
    static std::vector<uint8_t> pixels(uint32_t seed, int channel);
    // The same encoded as a JPEG; empty when encoding failed.
    static std::vector<uint8_t> jpeg(uint32_t seed, int channel);
};
