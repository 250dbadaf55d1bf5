#pragma once
// One rendered glyph as the font engine hands it to the text drawing code.
#include <cstdint>
#include <vector>

struct VyGlyph {
    int width = 0;   // bitmap columns
    int height = 0;  // bitmap rows
    int left = 0;    // pen x to the bitmap's left column
    int top = 0;     // baseline to the bitmap's top row, positive up
    int advance = 0; // pen advance in whole pixels
    // 8-bit antialiased coverage, width * height bytes, row pitch = width; 255 = full ink.
    std::vector<uint8_t> coverage;
};
