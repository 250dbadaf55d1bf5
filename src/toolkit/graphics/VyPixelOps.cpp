#include "toolkit/graphics/VyPixelOps.h"

#include <algorithm>
#include <cstring>

// The fast kernels work on 8 pixels at once through the compiler's portable vector types
// (SSE2 on the PC, NEON on the board). The arithmetic is the same integer formula:
// ((s - d) * A + (d << 8)) >> 8 equals (s * A + d * (256 - A)) >> 8, whose terms are never
// negative and never exceed 31 * 256, so 16-bit lanes hold it exactly.
namespace {

typedef uint16_t U16x8 __attribute__((vector_size(16)));
typedef uint32_t U32x8 __attribute__((vector_size(32)));
typedef uint8_t U8x8 __attribute__((vector_size(8)));

inline U16x8 load16(const uint16_t* p) {
    U16x8 v;
    std::memcpy(&v, p, sizeof v);
    return v;
}
inline void store16(uint16_t* p, U16x8 v) {
    std::memcpy(p, &v, sizeof v);
}

inline U16x8 blendLanes(U16x8 d, U16x8 sr, U16x8 sg, U16x8 sb, U16x8 a) {
    const U16x8 inv = 256 - a;
    const U16x8 dr = (d >> 10) & 31;
    const U16x8 dg = (d >> 5) & 31;
    const U16x8 db = d & 31;
    const U16x8 r = (sr * a + dr * inv) >> 8;
    const U16x8 g = (sg * a + dg * inv) >> 8;
    const U16x8 b = (sb * a + db * inv) >> 8;
    return (d & VyPixelOps::kAlphaBit) | (r << 10) | (g << 5) | b;
}

// Alpha bytes of two RGBA pixels read as one little-endian word.
constexpr uint64_t kAlphaPair = 0xff000000ff000000ull;

} // namespace

// The reference kernels stay one pixel at a time in every build type: they are the
// yardstick, and an optimiser that vectorises them would measure itself.
#if defined(__clang__)
#define VY_ONE_PIXEL_AT_A_TIME
#define VY_SCALAR_LOOP _Pragma("clang loop vectorize(disable) interleave(disable)")
#elif defined(__GNUC__)
#define VY_ONE_PIXEL_AT_A_TIME __attribute__((optimize("no-tree-vectorize")))
#define VY_SCALAR_LOOP
#else
#define VY_ONE_PIXEL_AT_A_TIME
#define VY_SCALAR_LOOP
#endif

namespace VyPixelOps {

VY_ONE_PIXEL_AT_A_TIME void blendColorRowReference(uint16_t* dst, int n, vyargb colour) {
    VY_SCALAR_LOOP
    for (int i = 0; i < n; ++i)
        dst[i] = blendPixel(dst[i], colour);
}

void blendColorRow(uint16_t* dst, int n, vyargb colour) {
    const uint16_t a = static_cast<uint16_t>(colour >> 24);
    if (a == 0 || n <= 0)
        return;
    if (a == 255) {
        // A plain fill_n stores one pixel at a time. Eight pixels a store fill a short head;
        // the rest is copied from the head in cache-sized pieces, at the speed of memcpy.
        constexpr int kHead = 64;    // pixels
        constexpr int kPiece = 4096; // pixels copied at once, 8 KiB
        const uint16_t px = opaque(colour);
        const U16x8 v = U16x8{} + px;
        const int head = std::min(n, kHead);
        int i = 0;
        for (; i + 8 <= head; i += 8)
            store16(dst + i, v);
        for (; i < head; ++i)
            dst[i] = px;
        while (i < n) {
            const int len = std::min({i, n - i, kPiece});
            std::memcpy(dst + i, dst, static_cast<size_t>(len) * sizeof(uint16_t));
            i += len;
        }
        return;
    }
    const U16x8 av = U16x8{} + a;
    const U16x8 sr = U16x8{} + static_cast<uint16_t>((colour >> 19) & 31);
    const U16x8 sg = U16x8{} + static_cast<uint16_t>((colour >> 11) & 31);
    const U16x8 sb = U16x8{} + static_cast<uint16_t>((colour >> 3) & 31);
    int i = 0;
    for (; i + 8 <= n; i += 8)
        store16(dst + i, blendLanes(load16(dst + i), sr, sg, sb, av));
    for (; i < n; ++i)
        dst[i] = blendPixel(dst[i], colour);
}

VY_ONE_PIXEL_AT_A_TIME void blendRgbaRowReference(uint16_t* dst, const uint8_t* rgba, int n) {
    VY_SCALAR_LOOP
    for (int i = 0; i < n; ++i)
        dst[i] = blendPixel(dst[i], fromRgba(rgba + 4 * i));
}

void blendRgbaRow(uint16_t* dst, const uint8_t* rgba, int n) {
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        const uint8_t* s = rgba + 4 * i;
        uint64_t words[4];
        std::memcpy(words, s, sizeof words);
        const uint64_t any = (words[0] | words[1] | words[2] | words[3]) & kAlphaPair;
        if (any == 0)
            continue; // a transparent run: nothing to read or write
        U32x8 px;
        std::memcpy(&px, s, sizeof px);
        const U16x8 r = __builtin_convertvector((px >> 3) & 31, U16x8);
        const U16x8 g = __builtin_convertvector((px >> 11) & 31, U16x8);
        const U16x8 b = __builtin_convertvector((px >> 19) & 31, U16x8);
        const U16x8 opaquePixels = kAlphaBit | (r << 10) | (g << 5) | b;
        const uint64_t all = words[0] & words[1] & words[2] & words[3] & kAlphaPair;
        if (all == kAlphaPair) {
            store16(dst + i, opaquePixels); // an opaque run: the destination is not read
            continue;
        }
        const U16x8 a = __builtin_convertvector(px >> 24, U16x8);
        // Alpha 0 lanes come out of the formula unchanged; alpha 255 lanes take the
        // opaque value instead.
        const U16x8 blended = blendLanes(load16(dst + i), r, g, b, a);
        const U16x8 isOpaque = (U16x8)(a == 255);
        store16(dst + i, (opaquePixels & isOpaque) | (blended & ~isOpaque));
    }
    for (; i < n; ++i)
        dst[i] = blendPixel(dst[i], fromRgba(rgba + 4 * i));
}

void blendCoverageRow(uint16_t* dst, const uint8_t* coverage, int n, vyargb colour) {
    const uint32_t a = colour >> 24;
    const vyargb rgb = colour & 0x00ffffffu;
    if (a == 255) {
        // Opaque text, the common case: the coverage is the alpha (255 * c / 255 == c), and a
        // fully covered pixel is the colour itself.
        const uint16_t solid = opaque(colour);
        const U16x8 sr = U16x8{} + static_cast<uint16_t>((colour >> 19) & 31);
        const U16x8 sg = U16x8{} + static_cast<uint16_t>((colour >> 11) & 31);
        const U16x8 sb = U16x8{} + static_cast<uint16_t>((colour >> 3) & 31);
        const U16x8 solidLanes = U16x8{} + solid;
        int i = 0;
        for (; i + 8 <= n; i += 8) {
            U8x8 bytes;
            std::memcpy(&bytes, coverage + i, sizeof bytes);
            const U16x8 cv = __builtin_convertvector(bytes, U16x8);
            // Empty lanes blend to the pixel itself; full ones take the colour exactly.
            const U16x8 full = reinterpret_cast<U16x8>(cv == 255);
            const U16x8 blended = blendLanes(load16(dst + i), sr, sg, sb, cv);
            store16(dst + i, (blended & ~full) | (solidLanes & full));
        }
        for (; i < n; ++i) {
            const uint32_t c = coverage[i];
            if (c == 255)
                dst[i] = solid;
            else if (c != 0)
                dst[i] = blendPixel(dst[i], (c << 24) | rgb);
        }
        return;
    }
    for (int i = 0; i < n; ++i) {
        const uint32_t alpha = a * coverage[i] / 255;
        if (alpha != 0)
            dst[i] = blendPixel(dst[i], (alpha << 24) | rgb);
    }
}

} // namespace VyPixelOps
