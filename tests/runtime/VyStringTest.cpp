#include "runtime/VyString.h"
#include "runtime/VyStringList.h"

#include <gtest/gtest.h>

#include <climits>
#include <utility>

TEST(VyStringArg, ReplacesEveryOccurrenceOfTheLowestPlaceholder) {
    EXPECT_EQ(VyString("%1[%2]").arg(3).arg("Cam"), "3[Cam]");
    EXPECT_EQ(VyString("%1 x %2").arg(1920).arg(1080), "1920 x 1080");
    EXPECT_EQ(VyString("%1: %2 s").arg("Delay").arg(30), "Delay: 30 s");
    EXPECT_EQ(VyString("%1-%1-%2").arg("a").arg("b"), "a-a-b");
    // Order of appearance does not matter, only the number.
    EXPECT_EQ(VyString("%2 before %1").arg("one").arg("two"), "two before one");
    // Gaps in the numbering are fine: the lowest present is filled first.
    EXPECT_EQ(VyString("%3/%7").arg("x").arg("y"), "x/y");
}

TEST(VyStringArg, TwoDigitPlaceholdersAreNotReadAsOneDigit) {
    EXPECT_EQ(VyString("%1 %10").arg("A"), "A %10");
    EXPECT_EQ(VyString("%10 %2").arg("A"), "%10 A");
    EXPECT_EQ(VyString("%10 %2").arg("A").arg("B"), "B A");
    EXPECT_EQ(VyString("%100").arg("X"), "X0");
    EXPECT_EQ(VyString("%99%12").arg(1).arg(2), "21");
}

TEST(VyStringArg, TextWithoutPlaceholderIsUnchanged) {
    EXPECT_EQ(VyString("100% sure").arg("x"), "100% sure");
    EXPECT_EQ(VyString("%0 and %").arg("x"), "%0 and %");
    EXPECT_EQ(VyString("%1").arg("%2").arg("y"), "y"); // substituted text takes part afterwards
}

TEST(VyStringArg, NumbersAndBases) {
    EXPECT_EQ(VyString("%1").arg(-42), "-42");
    EXPECT_EQ(VyString("%1").arg(2.5), "2.5");
    EXPECT_EQ(VyString::number(255, 16), "ff");
    EXPECT_EQ(VyString::number(-5, 2), "-101");
    EXPECT_EQ(VyString::number(35, 36), "z");
    EXPECT_EQ(VyString::number(LLONG_MIN), "-9223372036854775808");
    EXPECT_EQ(VyString::number(ULLONG_MAX, 16), "ffffffffffffffff");
    EXPECT_EQ(VyString::number(3.14159, 'f', 2), "3.14");
    EXPECT_EQ(VyString::number(1500.0, 'e', 1), "1.5e+03");
}

namespace {

// The value and the ok flag of one conversion, compared as a pair.
template <typename T>
std::pair<T, bool> read(T (VyString::*convert)(bool*, int) const, const char* text, int base = 10) {
    // Run from both flag values, so that a conversion leaving the flag alone shows.
    bool fromFalse = false;
    bool fromTrue = true;
    const T value = (VyString(text).*convert)(&fromFalse, base);
    (VyString(text).*convert)(&fromTrue, base);
    EXPECT_EQ(fromFalse, fromTrue) << text << ": the ok flag was left as it was";
    return {value, fromFalse};
}

} // namespace

TEST(VyStringToInt, ReadsBlanksSignAndLeadingDigits) {
    EXPECT_EQ(read(&VyString::toInt, "12abc"), std::make_pair(12, true));
    EXPECT_EQ(read(&VyString::toInt, "  -7 apples"), std::make_pair(-7, true));
    EXPECT_EQ(read(&VyString::toInt, "+15"), std::make_pair(15, true));
    EXPECT_EQ(read(&VyString::toInt, "ff", 16), std::make_pair(255, true));
    EXPECT_EQ(read(&VyString::toUInt, "0x1F", 16), std::make_pair(31u, true));
    for (const char* bad : {"abc", "", "   ", "-", "+ 5", "x12"}) {
        bool ok = true;
        EXPECT_EQ(VyString(bad).toInt(&ok), 0) << bad;
        EXPECT_FALSE(ok) << bad;
    }
}

TEST(VyStringToInt, RangeLimitsOfEachWidth) {
    EXPECT_EQ(read(&VyString::toInt, "2147483647"), std::make_pair(INT_MAX, true));
    EXPECT_EQ(read(&VyString::toInt, "-2147483648"), std::make_pair(INT_MIN, true));
    EXPECT_EQ(read(&VyString::toInt, "2147483648"), std::make_pair(0, false));
    EXPECT_EQ(read(&VyString::toUInt, "4294967295"), std::make_pair(UINT_MAX, true));
    EXPECT_EQ(read(&VyString::toUInt, "-1"), std::make_pair(0u, false));
    EXPECT_EQ(read(&VyString::toUInt, "-0"), std::make_pair(0u, true));
    EXPECT_EQ(read(&VyString::toLongLong, "-9223372036854775808"), std::make_pair(LLONG_MIN, true));
    EXPECT_EQ(read(&VyString::toLongLong, "9223372036854775808"), std::make_pair(0LL, false));
    EXPECT_EQ(read(&VyString::toULongLong, "18446744073709551615"),
              std::make_pair(ULLONG_MAX, true));
    EXPECT_EQ(read(&VyString::toULongLong, "18446744073709551616"), std::make_pair(0ULL, false));
    EXPECT_EQ(read(&VyString::toLongLong, "99999999999999999999999999"),
              std::make_pair(0LL, false));
}

TEST(VyStringToDouble, AcceptsOnlyANumberWithBlanks) {
    bool ok = false;
    EXPECT_DOUBLE_EQ(VyString(" 2.5 ").toDouble(&ok), 2.5);
    EXPECT_TRUE(ok);
    for (const char* bad : {"2.5x", "1e999"}) {
        ok = true;
        EXPECT_EQ(VyString(bad).toDouble(&ok), 0.0) << bad;
        EXPECT_FALSE(ok) << bad;
    }
}

TEST(VyStringSplit, KeepsOrSkipsEmptyParts) {
    const VyString text("a,,b,");
    EXPECT_EQ(text.split(','), VyStringList({"a", "", "b", ""}));
    EXPECT_EQ(text.split(',', VyString::SkipEmptyParts), VyStringList({"a", "b"}));
    EXPECT_EQ(VyString("").split(','), VyStringList({""}));
    EXPECT_TRUE(VyString("").split(',', VyString::SkipEmptyParts).isEmpty());
    EXPECT_EQ(VyString("k=v==w").split("=="), VyStringList({"k=v", "w"}));
    EXPECT_EQ(VyString("no sep").split(";"), VyStringList({"no sep"}));
    EXPECT_EQ(VyString("a,b").split(',').join(","), "a,b");
}

TEST(VyStringEdit, TrimRemoveReplace) {
    EXPECT_EQ(VyString(" \t value \r\n").trimmed(), "value");
    EXPECT_EQ(VyString(" \n ").trimmed(), "");
    EXPECT_EQ(VyString("a b  c").remove(' '), "abc");
    EXPECT_EQ(VyString("--x--y").remove("--"), "xy");
    EXPECT_EQ(VyString("aaa").replace("aa", "b"), "ba");
    EXPECT_EQ(VyString("x").replace("x", "xx"), "xx");
    EXPECT_EQ(VyString("abc").replace("", "z"), "abc");
    EXPECT_TRUE(VyString("images/a.png").startsWith("images/"));
    EXPECT_FALSE(VyString("img").startsWith("images/"));
    EXPECT_TRUE(VyString("a.png").endsWith(".png"));
    EXPECT_FALSE(VyString("png").endsWith(".png"));
    EXPECT_TRUE(VyString("ab/cd").contains('/'));
    EXPECT_FALSE(VyString("abcd").contains("ce"));
}

TEST(VyStringUtf8, PositionsCountCodePoints) {
    const VyString cjk("通道一二三"); // 5 code points, 15 bytes
    EXPECT_EQ(cjk.length(), 5);
    EXPECT_EQ(cjk.size(), 15);
    EXPECT_EQ(cjk.left(2), "通道");
    EXPECT_EQ(cjk.mid(2, 2), "一二");
    EXPECT_EQ(cjk.mid(3), "二三");
    EXPECT_EQ(cjk.right(1), "三");
    EXPECT_EQ(cjk.indexOf("二"), 3);
    EXPECT_EQ(cjk.indexOf("通", 1), -1);
    EXPECT_EQ(VyString("é€😀a").mid(1, 2), "€😀");
    EXPECT_EQ(VyString("é€😀a").toUcs4(), std::u32string(U"é€😀a"));
    EXPECT_EQ(VyString::fromUcs4(U"é€😀a"), "é€😀a");
}

TEST(VyStringUtf8, SlicesClampOutOfRangeArguments) {
    const VyString s("abcdef");
    EXPECT_EQ(s.left(-1), "abcdef");
    EXPECT_EQ(s.left(100), "abcdef");
    EXPECT_EQ(s.right(0), "");
    EXPECT_EQ(s.mid(6), "");
    EXPECT_EQ(s.mid(7), "");
    EXPECT_EQ(s.mid(-2, 4), "ab");
    EXPECT_EQ(s.mid(-2, 2), "");
    EXPECT_EQ(s.mid(4, 100), "ef");
}

TEST(VyStringUtf8, MalformedBytesAreSurvivedOneByOne) {
    // Truncated 3-byte sequence, a lone continuation byte and an overlong encoding.
    const VyString bad(std::string("a\xe4\xb8"
                                   "b\x80\xc0\xaf",
                                   7));
    EXPECT_EQ(bad.length(), 7);
    EXPECT_EQ(bad.toUcs4(), std::u32string(U"a\uFFFD\uFFFDb\uFFFD\uFFFD\uFFFD"));
    EXPECT_EQ(bad.mid(3, 1), "b");
    EXPECT_EQ(VyString::fromUcs4(std::u32string(1, char32_t(0xD800))), "\xEF\xBF\xBD");
}

TEST(VyStringCase, MapsLatinGreekAndCyrillic) {
    EXPECT_EQ(VyString("Abc-é").toUpper(), "ABC-É");
    EXPECT_EQ(VyString("ПРИВЕТ Ω").toLower(), "привет ω");
    EXPECT_EQ(VyString("通道").toUpper(), "通道");
}
