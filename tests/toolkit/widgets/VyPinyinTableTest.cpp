#include "toolkit/widgets/VyPinyinTable.h"

#include <gtest/gtest.h>

namespace {

VyString joined(const VyStringList& l) {
    return l.join("");
}

} // namespace

TEST(PinyinTable, ExactSyllableFirstThenLongerOnesAndBadLinesSkipped) {
    VyPinyinTable t;
    t.parse("# comment\n"
            "zhong\t\xE4\xB8\xAD\xE7\xA7\x8D\n" // 中种
            "zhou\t\xE5\x91\xA8\n"              // 周
            "zho\t\xE4\xB8\xAD\n"               // a duplicate of 中 under a prefix
            "Zhang\t\xE5\xBC\xA0\n"             // not lower case: skipped
            "no tab here\n"
            "\t\xE7\x9A\x84\n"                     // no syllable
            "de\t\xE7\x9A\x84\xFF\xE5\x9C\xB0\r\n" // broken byte dropped, CRLF
            "zhong\t\xE9\x87\x8D\n");              // a second line appends: 重
    EXPECT_EQ(t.syllableCount(), 4);
    const struct {
        const char* pinyin;
        const char* want;
    } cases[] = {
        {"zhong", "\xE4\xB8\xAD\xE7\xA7\x8D\xE9\x87\x8D"},
        {"zho", "\xE4\xB8\xAD\xE7\xA7\x8D\xE9\x87\x8D\xE5\x91\xA8"}, // 中 once
        {"de", "\xE7\x9A\x84\xE5\x9C\xB0"},
        {"zhang", ""},
        {"x", ""},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(joined(t.candidates(c.pinyin)), VyString(c.want)) << c.pinyin;
}

TEST(PinyinTable, TheShippedTableOffersTheCommonCharacterFirstAndCapsAnInitial) {
    VyPinyinTable t;
    ASSERT_TRUE(t.load(VY_RESOURCES_DIR "/keyboard/pinyin.txt"));
    EXPECT_GT(t.syllableCount(), 380);
    EXPECT_EQ(t.candidates("zhong").at(0), "\xE4\xB8\xAD");   // 中
    EXPECT_EQ(t.candidates("de").at(0), "\xE7\x9A\x84");      // 的
    EXPECT_TRUE(t.candidates("lv").contains("\xE7\xBB\xBF")); // 绿, u-umlaut typed as v
    EXPECT_EQ(t.candidates("s").size(), VyPinyinTable::kMaxCandidates);
    EXPECT_FALSE(t.load("/nonexistent/pinyin.txt"));
    EXPECT_EQ(t.syllableCount(), 0);
}
