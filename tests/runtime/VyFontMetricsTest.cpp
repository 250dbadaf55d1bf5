#include "runtime/VyFontMetrics.h"

#include "runtime/VyFontEngine.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unistd.h>

namespace {

const char* const kLatinFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
const char* const kCjkFont = "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc";

int sumOfAdvances(VyFontEngine& engine, const std::u32string& text, int px) {
    int sum = 0;
    for (char32_t cp : text)
        sum += engine.glyph(cp, px)->advance;
    return sum;
}

} // namespace

TEST(VyFontMetricsAdvance, EqualsTheSumOfGlyphAdvances) {
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kLatinFont, VyFontEngine::kDeviceFontReserveBytes));
    for (int px : {12, 17, 31}) {
        VyFontMetrics fm(VyFont(px), engine);
        EXPECT_EQ(fm.horizontalAdvance("Channel 01 - Caf\u00e9"),
                  sumOfAdvances(engine, U"Channel 01 - Caf\u00e9", px));
        EXPECT_EQ(fm.height(), engine.height(px));
        EXPECT_EQ(fm.horizontalAdvance(""), 0);
    }
    // Malformed bytes (a stray continuation, a truncated sequence, an overlong '/', a
    // surrogate) each count as one U+FFFD and never swallow the ASCII that follows.
    VyFontMetrics fm(VyFont(17), engine);
    const int replacement = engine.glyph(0xFFFD, 17)->advance;
    EXPECT_EQ(fm.horizontalAdvance("\x80"
                                   "A"),
              replacement + fm.horizontalAdvance("A"));
    EXPECT_EQ(fm.horizontalAdvance("A\xe4\xb8"), fm.horizontalAdvance("A") + 2 * replacement);
    EXPECT_EQ(fm.horizontalAdvance("\xc0\xaf"), 2 * replacement);
    EXPECT_EQ(fm.horizontalAdvance("\xed\xa0\x80"), 3 * replacement);
}

TEST(VyFontMetricsAdvance, CjkTextSumsItsGlyphs) {
    if (access(kCjkFont, R_OK) != 0)
        GTEST_SKIP() << kCjkFont << " is not installed";
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kCjkFont, VyFontEngine::kDeviceFontReserveBytes));
    VyFontMetrics fm(VyFont(17), engine);
    const int width = fm.horizontalAdvance("\xe9\x80\x9a\xe9\x81\x93 1 \xe5\xbd\x95\xe5\x83\x8f");
    EXPECT_EQ(width, sumOfAdvances(engine, U"\u901a\u9053 1 \u5f55\u50cf", 17));
    EXPECT_GT(width, 4 * 12);
}

TEST(VyFontMetricsElide, CutTextFitsAndEndsWithDots) {
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kLatinFont, VyFontEngine::kDeviceFontReserveBytes));
    VyFontMetrics fm(VyFont(17), engine);
    const VyString text("Front door camera \xe4\xb8\xad long name");
    const int full = fm.horizontalAdvance(text);
    EXPECT_EQ(fm.elidedText(text, full), text);
    const int dots = fm.horizontalAdvance("...");
    for (int maxWidth = dots; maxWidth < full; maxWidth += 3) {
        const VyString cut = fm.elidedText(text, maxWidth);
        SCOPED_TRACE(maxWidth);
        EXPECT_LE(fm.horizontalAdvance(cut), maxWidth);
        ASSERT_TRUE(cut.endsWith("..."));
        const std::string kept = cut.toStdString().substr(0, cut.size() - 3);
        EXPECT_EQ(text.toStdString().compare(0, kept.size(), kept), 0) << cut.c_str();
        // Longest that fits: one more character would overflow.
        const std::u32string all = text.toUcs4();
        const size_t keptChars = VyString(kept).toUcs4().size();
        EXPECT_GT(fm.horizontalAdvance(VyString::fromUcs4(all.substr(0, keptChars + 1)) + "..."),
                  maxWidth);
    }
    EXPECT_EQ(fm.elidedText(text, dots - 1), VyString());
    EXPECT_EQ(fm.elidedText(text, -5), VyString());
}

TEST(VyFontMetricsBadInput, RandomBytesElideToAFittingPrefix) {
    VyFontEngine engine;
    ASSERT_TRUE(engine.setFontFile(kLatinFont, VyFontEngine::kDeviceFontReserveBytes));
    VyFontMetrics fm(VyFont(17), engine);
    std::mt19937 random(1234);
    for (int round = 0; round < 200; ++round) {
        std::string bytes(random() % 40, '\0');
        for (char& b : bytes)
            b = static_cast<char>(random() % 2 ? 0x80 + random() % 0x80 : random() % 0x80);
        const int maxWidth = static_cast<int>(random() % 200);
        const VyString cut = fm.elidedText(VyString(bytes), maxWidth);
        EXPECT_LE(fm.horizontalAdvance(cut), maxWidth);
        const std::string kept = cut.endsWith("...") && cut.toStdString() != bytes
                                     ? cut.toStdString().substr(0, cut.size() - 3)
                                     : cut.toStdString();
        EXPECT_EQ(bytes.compare(0, kept.size(), kept), 0);
    }
}

TEST(VyFontMetricsBadInput, NoFontMeasuresZero) {
    VyFontEngine engine;
    testing::internal::CaptureStdout();
    EXPECT_FALSE(engine.setFontFile("/nonexistent.ttf", VyFontEngine::kDeviceFontReserveBytes));
    testing::internal::GetCapturedStdout();
    VyFontMetrics fm(VyFont(17), engine);
    EXPECT_EQ(fm.height(), 0);
    EXPECT_EQ(fm.horizontalAdvance("Camera 1"), 0);
    EXPECT_EQ(fm.elidedText("Camera 1", 0), VyString("Camera 1"));
}

TEST(VyFontMetricsSetFontFile, ChoosesTheProcessWideFont) {
    EXPECT_TRUE(VyFontMetrics::setFontFile(kLatinFont, 5242880));
    EXPECT_TRUE(VyFontEngine::instance().isValid());
    EXPECT_EQ(VyFontEngine::instance().fontFile(), VyString(kLatinFont));
    EXPECT_EQ(VyFontEngine::instance().reservedBytes(), 5242880);
    VyFontMetrics fm{VyFont()};
    EXPECT_EQ(fm.height(), VyFontEngine::instance().height(VyFont::kDefaultPixelSize));
    EXPECT_GT(fm.horizontalAdvance("A"), 0);
}
