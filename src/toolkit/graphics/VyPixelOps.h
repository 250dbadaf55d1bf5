#pragma once
// The ARGB1555 pixel rules and the row kernels every canvas operation is built on.
//
// A pixel is 16 bits: blue in bits 0-4, green 5-9, red 10-14 and the overlay alpha bit in
// 15. A colour 0xAARRGGBB with alpha A draws as follows: A = 0 changes nothing; A = 255
// writes the colour with bit 15 set and never reads the destination; anything between
// blends each 5-bit channel as new = ((src - dst) * A + (dst << 8)) >> 8 and keeps the
// destination's bit 15.
//
// The "Reference" kernels apply the rule one pixel at a time and stay here as the
// definition the fast kernels are tested and measured against, bit for bit.
#include <cstdint>

#include "runtime/VyGlobal.h"

namespace VyPixelOps {

constexpr uint16_t kAlphaBit = 0x8000;

// The colour with its channels cut to 5 bits and bit 15 set.
constexpr uint16_t opaque(vyargb c) {
    return static_cast<uint16_t>(kAlphaBit | ((c >> 9) & 0x7c00) | ((c >> 6) & 0x03e0) |
                                 ((c >> 3) & 0x001f));
}

// One pixel under the rule above.
inline uint16_t blendPixel(uint16_t dst, vyargb c) {
    const int a = static_cast<int>(c >> 24);
    if (a == 0)
        return dst;
    if (a == 255)
        return opaque(c);
    const int sr = static_cast<int>((c >> 19) & 31);
    const int sg = static_cast<int>((c >> 11) & 31);
    const int sb = static_cast<int>((c >> 3) & 31);
    const int dr = (dst >> 10) & 31;
    const int dg = (dst >> 5) & 31;
    const int db = dst & 31;
    const int r = ((sr - dr) * a + (dr << 8)) >> 8;
    const int g = ((sg - dg) * a + (dg << 8)) >> 8;
    const int b = ((sb - db) * a + (db << 8)) >> 8;
    return static_cast<uint16_t>((dst & kAlphaBit) | (r << 10) | (g << 5) | b);
}

// A colour given as the R, G, B, A bytes of a bitmap pixel.
inline vyargb fromRgba(const uint8_t* p) {
    return (vyargb(p[3]) << 24) | (vyargb(p[0]) << 16) | (vyargb(p[1]) << 8) | vyargb(p[2]);
}

// Colour over n pixels.
void blendColorRow(uint16_t* dst, int n, vyargb colour);
void blendColorRowReference(uint16_t* dst, int n, vyargb colour);

// n bitmap pixels (R, G, B, A bytes) over n pixels, each with its own alpha.
void blendRgbaRow(uint16_t* dst, const uint8_t* rgba, int n);
void blendRgbaRowReference(uint16_t* dst, const uint8_t* rgba, int n);

// Colour over n pixels through 8-bit coverage (glyphs): the alpha of each pixel is the
// colour's alpha times the coverage / 255.
void blendCoverageRow(uint16_t* dst, const uint8_t* coverage, int n, vyargb colour);

} // namespace VyPixelOps
