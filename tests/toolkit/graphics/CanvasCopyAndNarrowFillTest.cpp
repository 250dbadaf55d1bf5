// Pixels copied as they are land where the origin puts them and stop at the clip; narrow
// opaque fills, which store their pixels themselves, match a per-pixel model of any width,
// position and clip.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyPixelOps.h"

TEST(CanvasCopyAndNarrowFill, CopiedPixelsFollowOriginAndClip) {
    VyFbCanvas c(10, 6);
    std::vector<uint16_t> src(4 * 3);
    for (size_t i = 0; i < src.size(); ++i)
        src[i] = uint16_t(0x8000 | (i + 1));
    c.setOrigin(VyPoint(2, 1));
    c.setClipRect(VyRect(0, 0, 5, 3));    // columns 0..4, rows 0..2 of the canvas
    c.drawPixels(1, 0, src.data(), 4, 3); // canvas columns 3..6, rows 1..3
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 3 && x <= 4 && y >= 1 && y <= 2;
            const uint16_t want = inside ? src[size_t(y - 1) * 4 + size_t(x - 3)] : 0;
            EXPECT_EQ(c.pixel(x, y), want) << x << "," << y;
        }
}

TEST(CanvasCopyAndNarrowFill, NarrowOpaqueFillsMatchThePerPixelModel) {
    std::mt19937 rng(7);
    for (int round = 0; round < 300; ++round) {
        VyFbCanvas c(24, 16);
        std::vector<uint16_t> model(24 * 16, 0);
        const VyRect clip(int(rng() % 8), int(rng() % 6), 8 + int(rng() % 16), 6 + int(rng() % 10));
        c.setClipRect(clip);
        const VyRect area = clip.intersected(VyRect(0, 0, 24, 16));
        const VyRect r(int(rng() % 30) - 3, int(rng() % 20) - 2, 1 + int(rng() % 10),
                       1 + int(rng() % 12));
        const vyargb colour = 0xFF000000u | (rng() & 0xFFFFFF);
        c.fillRect(r, colour);
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 24; ++x)
                if (r.contains(VyPoint(x, y)) && area.contains(VyPoint(x, y)))
                    model[size_t(y) * 24 + size_t(x)] = VyPixelOps::opaque(colour);
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 24; ++x)
                ASSERT_EQ(c.pixel(x, y), model[size_t(y) * 24 + size_t(x)])
                    << "round " << round << " at " << x << "," << y;
    }
}
