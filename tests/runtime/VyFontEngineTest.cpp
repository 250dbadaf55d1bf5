#include "runtime/VyFontEngine.h"

#include <gtest/gtest.h>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

namespace {

const char* const kLatinFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
const char* const kCjkFont = "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc";
constexpr int64_t kReserve = VyFontEngine::kDeviceFontReserveBytes;

bool fileExists(const char* path) {
    return access(path, R_OK) == 0;
}

// The same glyph rendered straight through FreeType, without the engine.
VyGlyph renderDirectly(const char* path, char32_t cp, int pixelSize) {
    VyGlyph g;
    FT_Library lib = nullptr;
    FT_Face face = nullptr;
    EXPECT_EQ(FT_Init_FreeType(&lib), 0);
    EXPECT_EQ(FT_New_Face(lib, path, 0, &face), 0);
    EXPECT_EQ(FT_Set_Pixel_Sizes(face, 0, pixelSize), 0);
    EXPECT_EQ(FT_Load_Char(face, cp, FT_LOAD_RENDER), 0);
    const FT_Bitmap& bm = face->glyph->bitmap;
    EXPECT_EQ(bm.pixel_mode, FT_PIXEL_MODE_GRAY);
    g.width = static_cast<int>(bm.width);
    g.height = static_cast<int>(bm.rows);
    g.left = face->glyph->bitmap_left;
    g.top = face->glyph->bitmap_top;
    g.advance = static_cast<int>((face->glyph->advance.x + 32) / 64);
    for (int y = 0; y < g.height; ++y)
        g.coverage.insert(g.coverage.end(), bm.buffer + y * bm.pitch,
                          bm.buffer + y * bm.pitch + g.width);
    FT_Done_Face(face);
    FT_Done_FreeType(lib);
    return g;
}

void expectSameGlyph(const VyGlyph& actual, const VyGlyph& expected) {
    EXPECT_EQ(actual.width, expected.width);
    EXPECT_EQ(actual.height, expected.height);
    EXPECT_EQ(actual.left, expected.left);
    EXPECT_EQ(actual.top, expected.top);
    EXPECT_EQ(actual.advance, expected.advance);
    EXPECT_EQ(actual.coverage, expected.coverage);
}

std::string writeTempFile(const char* name, const std::string& bytes) {
    std::string path = testing::TempDir() + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

} // namespace

TEST(VyFontEngineRendering, GlyphsMatchFreeTypeOwnRendering) {
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kLatinFont, kReserve));
    ASSERT_TRUE(engine.isValid());
    // 'A' at the controls' size, a descender, an accented letter, a larger size.
    const struct {
        char32_t cp;
        int px;
    } cases[] = {{U'A', 17}, {U'g', 17}, {U'\u00e9', 17}, {U'W', 40}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "U+" << std::hex << static_cast<unsigned>(c.cp) << " at "
                                        << std::dec << c.px << " px");
        const VyGlyph* g = engine.glyph(c.cp, c.px);
        ASSERT_NE(g, nullptr);
        ASSERT_EQ(g->coverage.size(), static_cast<size_t>(g->width * g->height));
        expectSameGlyph(*g, renderDirectly(kLatinFont, c.cp, c.px));
    }
}

TEST(VyFontEngineRendering, GlyphsStayInsideTheLineBox) {
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kLatinFont, kReserve));
    for (int px : {10, 17, 32}) {
        const int ascent = engine.ascent(px);
        const int descent = engine.descent(px);
        EXPECT_GT(ascent, 0);
        EXPECT_GT(descent, 0);
        EXPECT_EQ(engine.height(px), ascent + descent);
        for (char32_t cp : {U'A', U'g', U'j', U'\u00c9'}) {
            const VyGlyph* g = engine.glyph(cp, px);
            ASSERT_NE(g, nullptr);
            EXPECT_LE(g->top, ascent) << "px " << px;
            EXPECT_GE(g->top - g->height, -descent) << "px " << px;
        }
    }
    EXPECT_LT(engine.height(10), engine.height(32));
}

TEST(VyFontEngineRendering, CjkCodePointRendersInk) {
    if (!fileExists(kCjkFont))
        GTEST_SKIP() << kCjkFont << " is not installed";
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kCjkFont, kReserve));
    for (char32_t cp : {U'\u4e2d', U'\u6587', U'\u901a'}) {
        const VyGlyph* g = engine.glyph(cp, 17);
        ASSERT_NE(g, nullptr);
        EXPECT_GT(g->width, 4);
        EXPECT_GT(g->height, 4);
        EXPECT_GE(g->advance, g->width);
        int inked = 0;
        for (uint8_t c : g->coverage)
            inked += c > 127;
        EXPECT_GT(inked, 10) << "U+" << std::hex << static_cast<unsigned>(cp);
        expectSameGlyph(*g, renderDirectly(kCjkFont, cp, 17));
    }
}

TEST(VyFontEngineCache, EvictionKeepsMemoryUnderBudgetAndRerendersIdentically) {
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kLatinFont, kReserve));
    const size_t budget = 16 * 1024;
    engine.setCacheBudget(budget);

    const VyGlyph first = *engine.glyph(U'A', 40);
    ASSERT_NE(engine.glyph(U'B', 17), nullptr);
    int requested = 0;
    for (char32_t cp = U'a'; cp <= U'z'; ++cp) {
        for (int px = 30; px <= 40; px += 2) {
            ASSERT_NE(engine.glyph(cp, px), nullptr);
            ++requested;
            EXPECT_LE(engine.cacheBytes(), budget);
            // Touched on every round: the least recently used entries go first, never this one.
            const int64_t renders = engine.renderCount();
            ASSERT_NE(engine.glyph(U'B', 17), nullptr);
            ASSERT_EQ(engine.renderCount(), renders) << "a recently used glyph was evicted";
        }
    }
    EXPECT_LT(engine.cachedGlyphCount(), requested) << "the budget never forced an eviction";

    const int64_t rendersMid = engine.renderCount();
    const VyGlyph* again = engine.glyph(U'A', 40);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(engine.renderCount(), rendersMid + 1) << "'A' at 40 px should have been evicted";
    expectSameGlyph(*again, first);

    engine.setCacheBudget(1);
    EXPECT_LE(engine.cachedGlyphCount(), 1);
    // A glyph bigger than the whole budget is still handed out.
    const VyGlyph* big = engine.glyph(U'M', 100);
    ASSERT_NE(big, nullptr);
    EXPECT_FALSE(big->coverage.empty());
    EXPECT_EQ(engine.cachedGlyphCount(), 1);
}

TEST(VyFontEngineBadInput, UnusableFontFilesLeaveAnInvalidEngine) {
    const std::string notFont = writeTempFile("vy_not_a_font.ttf", std::string(4096, 'x'));
    const std::string empty = writeTempFile("vy_empty_font.ttf", "");
    const struct {
        std::string path;
        int64_t reserve;
        const char* logged;
    } cases[] = {
        {"/nonexistent/font/yahei_arial_gothic_unicode.ttf", kReserve, "can not be opened"},
        {notFont, kReserve, "is not a font"},
        {empty, kReserve, "is empty"},
        {testing::TempDir(), kReserve, "not a regular file"},
        {kLatinFont, 1000, "more than the 1000 bytes reserved"},
        {kLatinFont, 0, "reserved size"},
    };
    VyFontEngine engine;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.path);
        testing::internal::CaptureStdout();
        EXPECT_FALSE(engine.setFontFile(c.path.c_str(), c.reserve));
        const std::string log = testing::internal::GetCapturedStdout();
        EXPECT_EQ(log.rfind("[GUI-FRAMEWORK]: ", 0), 0u) << log;
        EXPECT_NE(log.find(c.logged), std::string::npos) << log;
        EXPECT_EQ(log.size() - log.find(" !!!\n"), 5u) << log;
        EXPECT_FALSE(engine.isValid());
        EXPECT_EQ(engine.glyph(U'A', 17), nullptr);
        EXPECT_EQ(engine.ascent(17), 0);
        EXPECT_EQ(engine.descent(17), 0);
        EXPECT_EQ(engine.height(17), 0);
        // A good file after a bad one brings the engine back.
        ASSERT_TRUE(engine.setFontFile(kLatinFont, kReserve));
        EXPECT_NE(engine.glyph(U'A', 17), nullptr);
    }
    unlink(notFont.c_str());
    unlink(empty.c_str());
}

TEST(VyFontEngineBadInput, PixelSizesOutOfRangeAnswerNull) {
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kLatinFont, kReserve));
    for (int px : {0, -17, VyFontEngine::kMaxPixelSize + 1, 1 << 30}) {
        EXPECT_EQ(engine.glyph(U'A', px), nullptr) << px;
        EXPECT_EQ(engine.height(px), 0) << px;
    }
    EXPECT_NE(engine.glyph(U'A', VyFontEngine::kMaxPixelSize), nullptr);
    EXPECT_NE(engine.glyph(U'A', 1), nullptr);
    // Beyond Unicode: the font's missing-glyph box, not a failure.
    EXPECT_NE(engine.glyph(0x7FFFFFFF, 17), nullptr);
}
