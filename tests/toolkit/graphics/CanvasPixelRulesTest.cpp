#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "runtime/VyBitmap.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyPixelOps.h"

namespace {

int countIf(const VyFbCanvas& c, uint16_t unchanged) {
    int n = 0;
    for (int y = 0; y < c.height(); ++y)
        for (int x = 0; x < c.width(); ++x)
            n += c.pixel(x, y) != unchanged;
    return n;
}

void fillAll(VyFbCanvas& c, uint16_t value) {
    c.fillRaw(VyRect(0, 0, c.width(), c.height()), value);
}

} // namespace

TEST(CanvasPixelRules, AlphaDecidesBetweenNothingOverwriteAndBlend) {
    VyFbCanvas c(4, 1);
    c.fillRaw(VyRect(0, 0, 2, 1), 0x7fff); // white, overlay bit clear
    c.fillRaw(VyRect(2, 0, 2, 1), 0xffff); // white, overlay bit set

    c.drawPoint(0, 0, 0x00ff0000);
    EXPECT_EQ(c.pixel(0, 0), 0x7fff);

    // Half red over white: red stays 31, green and blue fall to 15; bit 15 as it was.
    c.drawPoint(1, 0, 0x80ff0000);
    EXPECT_EQ(c.pixel(1, 0), 0x7def);
    c.drawPoint(2, 0, 0x80ff0000);
    EXPECT_EQ(c.pixel(2, 0), 0xfdef);

    // Opaque writes the colour cut to 5 bits with bit 15 set, whatever was there.
    c.drawPoint(3, 0, 0xff0f8f47);
    EXPECT_EQ(c.pixel(3, 0), 0x8000 | (0x0f >> 3) << 10 | (0x8f >> 3) << 5 | (0x47 >> 3));
    VyFbCanvas black(1, 1);
    black.drawPoint(0, 0, 0xff000000);
    EXPECT_EQ(black.pixel(0, 0), 0x8000);
}

TEST(CanvasPixelRules, PenSquaresAreClippedToSurfaceAndClipRectangle) {
    VyFbCanvas c(10, 8);
    c.setPenWidth(5);
    c.drawPoint(0, 0, 0xffffffff);
    EXPECT_EQ(countIf(c, 0), 9);
    EXPECT_EQ(c.pixel(2, 2), 0xffff);
    EXPECT_EQ(c.pixel(3, 0), 0);

    fillAll(c, 0);
    c.drawPoint(9, 7, 0xffffffff);
    EXPECT_EQ(countIf(c, 0), 9);
    EXPECT_EQ(c.pixel(7, 5), 0xffff);

    // An even pen: the square starts width/2 up and left of the point.
    fillAll(c, 0);
    c.setPenWidth(4);
    c.drawPoint(5, 5, 0xffffffff);
    EXPECT_EQ(countIf(c, 0), 16);
    EXPECT_EQ(c.pixel(3, 3), 0xffff);
    EXPECT_EQ(c.pixel(6, 6), 0xffff);

    fillAll(c, 0);
    c.setPenWidth(1);
    c.setClipRect(VyRect(2, 2, 3, 3));
    c.drawPoint(1, 2, 0xffffffff);
    EXPECT_EQ(countIf(c, 0), 0);
    c.setPenWidth(5);
    c.drawPoint(1, 1, 0xffffffff);
    EXPECT_EQ(countIf(c, 0), 4); // (2..3, 2..3)
}

TEST(CanvasPixelRules, FastRowKernelsMatchTheOnePixelReferenceBitForBit) {
    std::mt19937 rng(7);
    for (int round = 0; round < 200; ++round) {
        // Now and then a row longer than the opaque fill's head and copy pieces.
        const int n = static_cast<int>(round % 10 == 0 ? 9000 + rng() % 100 : rng() % 70);
        std::vector<uint16_t> a(n), b(n);
        for (int i = 0; i < n; ++i)
            a[i] = b[i] = static_cast<uint16_t>(rng());
        const uint32_t alphas[] = {0, 1, 127, 128, 254, 255, static_cast<uint32_t>(rng() & 0xff)};
        const vyargb colour = (alphas[round % 7] << 24) | (rng() & 0xffffff);
        VyPixelOps::blendColorRow(a.data(), n, colour);
        VyPixelOps::blendColorRowReference(b.data(), n, colour);
        ASSERT_EQ(a, b) << "colour " << std::hex << colour;

        // Glyph coverage: empty, full and partial pixels against one blend per pixel.
        std::vector<uint8_t> coverage(n);
        for (int i = 0; i < n; ++i)
            coverage[i] = i % 3 == 0 ? 0 : i % 3 == 1 ? 255 : static_cast<uint8_t>(rng());
        VyPixelOps::blendCoverageRow(a.data(), coverage.data(), n, colour);
        for (int i = 0; i < n; ++i)
            b[i] = VyPixelOps::blendPixel(b[i], (((colour >> 24) * coverage[i] / 255) << 24) |
                                                    (colour & 0xffffff));
        ASSERT_EQ(a, b) << "coverage, colour " << std::hex << colour;

        // Bitmap rows with runs of transparent, opaque and partial pixels.
        std::vector<uint8_t> rgba(4 * n);
        for (int i = 0; i < n; ++i) {
            const uint32_t kind = (i / 5 + round) % 3;
            rgba[4 * i] = static_cast<uint8_t>(rng());
            rgba[4 * i + 1] = static_cast<uint8_t>(rng());
            rgba[4 * i + 2] = static_cast<uint8_t>(rng());
            rgba[4 * i + 3] = kind == 0 ? 0 : kind == 1 ? 255 : static_cast<uint8_t>(rng());
        }
        VyPixelOps::blendRgbaRow(a.data(), rgba.data(), n);
        VyPixelOps::blendRgbaRowReference(b.data(), rgba.data(), n);
        ASSERT_EQ(a, b) << "round " << round;
    }
}

TEST(CanvasShapes, TranslucentLinesAndOutlinesBlendEveryPixelOnce) {
    VyFbCanvas c(20, 20);
    fillAll(c, 0x7fff);
    const vyargb half = 0x80000000;
    const uint16_t once = VyPixelOps::blendPixel(0x7fff, half);
    c.setPenWidth(3);
    c.drawLine(2, 5, 17, 5, half);
    c.drawLine(10, 0, 10, 19, half);
    for (int x = 1; x <= 18; ++x)
        EXPECT_EQ(c.pixel(x, 4), x >= 9 && x <= 11 ? VyPixelOps::blendPixel(once, half) : once);
    EXPECT_EQ(c.pixel(0, 5), 0x7fff);
    EXPECT_EQ(c.pixel(19, 5), 0x7fff);

    fillAll(c, 0x7fff);
    c.setPenWidth(2);
    c.drawRect(VyRect(3, 3, 10, 8), half);
    int border = 0;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x) {
            const uint16_t p = c.pixel(x, y);
            ASSERT_TRUE(p == 0x7fff || p == once) << x << "," << y;
            border += p == once;
        }
    EXPECT_EQ(border, 10 * 8 - 6 * 4);
}

TEST(CanvasShapes, GeneralLinesAreConnectedAndCostNothingFarOutside) {
    VyFbCanvas c(40, 30);
    c.drawLine(1, 2, 35, 20, 0xffffffff);
    EXPECT_EQ(c.pixel(1, 2), 0xffff);
    EXPECT_EQ(c.pixel(35, 20), 0xffff);
    for (int x = 1; x <= 35; ++x) {
        int inColumn = 0;
        for (int y = 0; y < 30; ++y)
            inColumn += c.pixel(x, y) == 0xffff;
        EXPECT_EQ(inColumn, 1) << x;
    }
    // Endpoints two billion pixels away must not be walked pixel by pixel.
    VyFbCanvas d(40, 30);
    d.drawLine(-2000000000, -1999999990, 2000000000, 2000000010, 0xffffffff);
    EXPECT_EQ(d.pixel(5, 15), 0xffff);
    EXPECT_EQ(countIf(d, 0), 20); // y = x + 10 crosses the canvas for x = 0..19
}

TEST(CanvasShapes, DotLinesSkipEveryOtherPixelAndSplitInkBetweenNeighbours) {
    VyFbCanvas c(16, 8);
    c.drawDotLine(0.0, 2.0, 15.0, 2.0, 0xffffffff);
    for (int x = 0; x < 16; ++x)
        EXPECT_EQ(c.pixel(x, 2), x % 2 == 0 ? VyPixelOps::blendPixel(0, 0xffffffff) : 0) << x;
    EXPECT_EQ(countIf(c, 0), 8);

    VyFbCanvas half(8, 8);
    half.drawDotLine(0.0, 3.5, 7.0, 3.5, 0xffffffff);
    const uint16_t shared = VyPixelOps::blendPixel(0, 0x7fffffff);
    EXPECT_EQ(half.pixel(0, 3), shared);
    EXPECT_EQ(half.pixel(0, 4), shared);

    const double nan = std::nan("");
    half.drawDotLine(nan, 0.0, 5.0, 5.0, 0xffffffff);
    half.drawDotLine(-1e300, 1.0, 1e300, 1.0, 0xffffffff);
    half.drawDotLine(-1.7e308, -1.7e308, 1.7e308, 1.7e308, 0xffffffff);
}

TEST(CanvasShapes, TrianglesCoverPixelCentresOnlyOnce) {
    VyFbCanvas c(16, 16);
    fillAll(c, 0x7fff);
    c.fillTriangle(VyPoint(0, 0), VyPoint(10, 0), VyPoint(0, 10), 0x80000000);
    const uint16_t once = VyPixelOps::blendPixel(0x7fff, 0x80000000);
    int painted = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            const uint16_t p = c.pixel(x, y);
            ASSERT_TRUE(p == 0x7fff || p == once);
            EXPECT_EQ(p == once, x + y <= 9) << x << "," << y;
            painted += p == once;
        }
    EXPECT_EQ(painted, 55);
}

TEST(CanvasShapes, OriginShiftsDrawingButNotTheClipRectangle) {
    VyFbCanvas c(20, 20);
    c.setClipRect(VyRect(5, 5, 10, 10));
    c.setOrigin(VyPoint(8, 8));
    c.fillRect(VyRect(-10, -10, 12, 12), 0xffffffff); // canvas -2..9 cut to 5..9
    EXPECT_EQ(countIf(c, 0), 25);
    EXPECT_EQ(c.pixel(5, 5), 0xffff);
    EXPECT_EQ(c.pixel(10, 10), 0);
}

TEST(CanvasShapes, ClearRectMakesPixelsSeeThroughInsideTheClipOnly) {
    VyFbCanvas c(20, 20);
    c.fillRect(VyRect(0, 0, 20, 20), 0xff102030);
    c.setClipRect(VyRect(5, 5, 10, 10));
    c.setOrigin(VyPoint(8, 8));
    c.clearRect(VyRect(-10, -10, 12, 12)); // canvas -2..9 cut to 5..9
    EXPECT_EQ(c.pixel(5, 5), 0);
    EXPECT_EQ(c.pixel(9, 9), 0);
    EXPECT_NE(c.pixel(10, 10), 0);
    EXPECT_NE(c.pixel(4, 4), 0);
}

TEST(CanvasImages, PerPixelAlphaAndNearestNeighbourScaling) {
    VyBitmap image(2, 2);
    const uint8_t px[] = {255, 0, 0, 255, 0, 255, 0, 0, 0, 0, 255, 128, 255, 255, 255, 255};
    std::copy(px, px + sizeof px, image.bits());

    VyFbCanvas c(6, 6);
    fillAll(c, 0x1234);
    c.drawImage(-1, 1, image); // the left column falls off the canvas
    EXPECT_EQ(c.pixel(0, 1), 0x1234);
    EXPECT_EQ(c.pixel(0, 2), 0xffff);
    EXPECT_EQ(c.pixel(1, 1), 0x1234);

    fillAll(c, 0x1234);
    c.drawImage(VyRect(1, 1, 4, 4), image);
    const uint16_t expected[4] = {0xfc00, 0x1234, VyPixelOps::blendPixel(0x1234, 0x800000ff),
                                  0xffff};
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(c.pixel(1 + x, 1 + y), expected[(y / 2) * 2 + x / 2]) << x << "," << y;
    EXPECT_EQ(c.pixel(0, 0), 0x1234);
    EXPECT_EQ(c.pixel(5, 5), 0x1234);
}

TEST(CanvasSurfaces, RefusedSizesGiveAnEmptyCanvasThatDrawsNothing) {
    VyFbCanvas huge(100000, 2);
    EXPECT_EQ(huge.width(), 0);
    huge.fillRect(VyRect(0, 0, 10, 10), 0xffffffff);
    huge.drawLine(0, 0, 5, 9, 0xffffffff);
    EXPECT_EQ(huge.pixel(0, 0), 0);
}

TEST(CanvasSurfaces, CoordinatesAtTheEndsOfTheIntRangeDrawNothingAndDoNotWrap) {
    VyFbCanvas c(16, 16);
    const int big = 2147483647;
    const int small = -2147483647 - 1;
    c.setOrigin(VyPoint(5, 5));
    c.setPenWidth(3);
    c.drawPoint(big, big, 0xffffffff);
    c.drawPoint(small, small, 0xffffffff);
    c.drawLine(small, 3, big, 3, 0xffffffff); // crosses: the only ink allowed
    c.drawLine(big - 5, small, big, big, 0xffffffff);
    c.fillRect(VyRect::fromEdges(big - 3, big - 3, big, big), 0xffffffff);
    c.fillTriangle(VyPoint(big, big), VyPoint(small, big), VyPoint(big, big - 1), 0xffffffff);
    c.drawText(big, big, "x", 12, 0xffffffff);
    c.drawImage(big, small, VyBitmap(2, 2));
    int inked = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            inked += c.pixel(x, y) != 0 ? 1 : 0;
    EXPECT_EQ(inked, 16 * 3); // the horizontal line at y = 3 + 5, pen 3
}
