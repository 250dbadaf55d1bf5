#include <gtest/gtest.h>

#include "runtime/VyFontEngine.h"
#include "runtime/VyGlyph.h"
#include "toolkit/graphics/VyFbCanvas.h"
#include "toolkit/graphics/VyPixelOps.h"

namespace {

const char* const kFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

class CanvasText : public ::testing::Test {
protected:
    void SetUp() override {
        if (!VyFontEngine::instance().setFontFile(kFont, VyFontEngine::kDeviceFontReserveBytes))
            GTEST_SKIP() << "font missing: " << kFont;
    }
};

VyRect inkBox(const VyFbCanvas& c) {
    VyRect box;
    for (int y = 0; y < c.height(); ++y)
        for (int x = 0; x < c.width(); ++x)
            if (c.pixel(x, y) != 0)
                box = box.united(VyRect(x, y, 1, 1));
    return box;
}

} // namespace

TEST_F(CanvasText, InkLandsWhereTheGlyphCoverageSays) {
    const int size = 24;
    VyFbCanvas c(80, 40);
    c.drawText(10, 30, "Ag", size, 0xffffffff);

    // Rebuild the expected picture from the engine's coverage, glyph by glyph.
    VyFbCanvas expected(80, 40);
    int pen = 10;
    for (char32_t cp : {U'A', U'g'}) {
        const VyGlyph* g = VyFontEngine::instance().glyph(cp, size);
        ASSERT_NE(g, nullptr);
        for (int y = 0; y < g->height; ++y)
            for (int x = 0; x < g->width; ++x) {
                const uint8_t cov = g->coverage[y * g->width + x];
                uint16_t* p = expected.scanLine(30 - g->top + y) + pen + g->left + x;
                *p = VyPixelOps::blendPixel(*p, (vyargb(cov) << 24) | 0xffffff);
            }
        pen += g->advance;
    }
    int ink = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 80; ++x) {
            ASSERT_EQ(c.pixel(x, y), expected.pixel(x, y)) << x << "," << y;
            ink += c.pixel(x, y) != 0;
        }
    EXPECT_GT(ink, 50);
    // Full coverage with an opaque colour is an opaque write; "g" reaches below the baseline.
    EXPECT_GT(inkBox(c).bottom, 30);
}

TEST_F(CanvasText, TranslucentColourScalesCoverageAndKeepsTheOverlayBit) {
    VyFbCanvas c(40, 30);
    c.fillRaw(VyRect(0, 0, 40, 30), 0x7c00); // red, overlay bit clear
    c.drawText(2, 22, "I", 20, 0x80ffffff);
    bool touched = false;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x) {
            EXPECT_EQ(c.pixel(x, y) & 0x8000, 0);
            touched |= c.pixel(x, y) != 0x7c00;
        }
    EXPECT_TRUE(touched);
}

TEST_F(CanvasText, AlignmentPlacesTheLineInsideTheRectangleAndClipsToIt) {
    VyFbCanvas c(120, 40);
    const VyRect rect(10, 5, 100, 30);
    c.drawText(rect, VyCanvas::AlignRight | VyCanvas::AlignVCenter, "Mm", 16, 0xffffffff);
    const VyRect right = inkBox(c);
    EXPECT_TRUE(rect.contains(right));
    EXPECT_GT(right.right, rect.right - 4);

    VyFbCanvas d(120, 40);
    d.drawText(rect, VyCanvas::AlignLeft | VyCanvas::AlignTop, "Mm", 16, 0xffffffff);
    const VyRect left = inkBox(d);
    EXPECT_LT(left.left, rect.left + 4);
    EXPECT_LT(left.top, right.top);

    // Text wider than its rectangle never paints outside it.
    VyFbCanvas e(120, 40);
    e.drawText(VyRect(20, 10, 15, 12), VyCanvas::AlignCenter, "WWWWWW", 16, 0xffffffff);
    EXPECT_TRUE(VyRect(20, 10, 15, 12).contains(inkBox(e)));
}
