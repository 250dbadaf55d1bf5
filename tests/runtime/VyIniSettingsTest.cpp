#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

#include "runtime/VyIniParser.h"
#include "runtime/VyIniSettings.h"

namespace {

std::string writeTempFile(const std::string& name, const std::string& content) {
    std::string path = ::testing::TempDir() + "ini_" + name;
    FILE* f = std::fopen(path.c_str(), "wb");
    EXPECT_NE(f, nullptr);
    std::fwrite(content.data(), 1, content.size(), f);
    std::fclose(f);
    return path;
}

VyIniSettings parse(const std::string& text) {
    return VyIniSettings::fromText(text.data(), text.size());
}

void expectColor(const VyColor& c, int r, int g, int b, int a) {
    EXPECT_TRUE(c.isValid());
    EXPECT_EQ(c.red, r);
    EXPECT_EQ(c.green, g);
    EXPECT_EQ(c.blue, b);
    EXPECT_EQ(c.alpha, a);
}

} // namespace

TEST(IniGrammar, SectionAndBackslashKeyJoinWithSlashes) {
    VyIniSettings ini = parse("[VyPushButton]\nForeground\\Normal = rgb(255,255,255)\n");
    EXPECT_EQ(ini.value("VyPushButton/Foreground/Normal"), "rgb(255,255,255)");
    expectColor(ini.color("VyPushButton/Foreground/Normal"), 255, 255, 255, 255);
    EXPECT_EQ(ini.map().size(), 1);
}

TEST(IniGrammar, TokensEndAtBlanksCommentsAndQuotes) {
    VyIniSettings ini = parse("[S]\n"
                              "\"My Key\" = \"a b ; c\"\n"
                              "My Other = x\n"
                              "plain = value ; trailing comment\n"
                              "tight=value;comment\n"
                              "\tindented\t=\t7\t\n"
                              "open = \"never closed\n"
                              "crlf = 5\r\n");
    EXPECT_EQ(ini.value("S/My Key"), "a b ");
    EXPECT_EQ(ini.value("S/My"), "x");
    EXPECT_FALSE(ini.map().contains("S/My Other"));
    EXPECT_EQ(ini.value("S/plain"), "value");
    EXPECT_EQ(ini.value("S/tight"), "value");
    EXPECT_EQ(ini.value("S/indented"), "7");
    EXPECT_EQ(ini.value("S/open"), "never closed");
    EXPECT_EQ(ini.value("S/crlf"), "5");
}

TEST(IniGrammar, LaterKeyReplacesEarlierAndSectionsSwitch) {
    VyIniSettings ini = parse("[A]\nk = 1\n[B]\nk = 2\n; comment line\n\n[A]\nk = 3\n");
    EXPECT_EQ(ini.value("A/k"), "3");
    EXPECT_EQ(ini.value("B/k"), "2");
    EXPECT_EQ(ini.map().size(), 2);
    EXPECT_EQ(ini.value("C/k"), "");
}

TEST(IniGrammar, LongLineIsReadAsSeparate511BytePieces) {
    // "K = " plus 507 letters fill the first 511-byte piece exactly; "Y=2" starts the next.
    const std::string letters(507, 'a');
    VyIniSettings ini = parse("[S]\nK = " + letters + "Y=2\n");
    EXPECT_EQ(ini.value("S/K"), VyString(letters));
    EXPECT_EQ(ini.value("S/Y"), "2");

    // The same through a real file: the reader and the in-memory grammar cut alike.
    const std::string path = writeTempFile("long", "[S]\nK = " + letters + "Y=2\n");
    VyIniSettings fromFile(VyString(path.c_str()));
    EXPECT_EQ(fromFile.map(), ini.map());
}

TEST(IniColor, ScanTakesNumbersAfterNonDigitRuns) {
    expectColor(VyIniParser::parseColor("rgb(10,20,30)"), 10, 20, 30, 255);
    expectColor(VyIniParser::parseColor("rgba(10,20,30,128)"), 10, 20, 30, 128);
    expectColor(VyIniParser::parseColor("255,255,255"), 0, 0, 0, 255);
    expectColor(VyIniParser::parseColor(""), 0, 0, 0, 0);
    expectColor(VyIniParser::parseColor("rgb(7)"), 7, 0, 0, 255);
    expectColor(VyIniParser::parseColor("rgb("), 0, 0, 0, 255);
    // Signs belong to the non-digit run; each number keeps its low byte.
    expectColor(VyIniParser::parseColor("rgb(-1,256,300,511)"), 1, 0, 44, 255);
    expectColor(VyIniParser::parseColor("rgb(4294967297,0,0)"), 1, 0, 0, 255);
    expectColor(VyIniParser::parseColor("rgb(99999999999999999999999,1,2)"), 255, 1, 2, 255);
}

TEST(IniColor, MissingKeyIsTransparentUnlessTheMapIsEmpty) {
    VyIniSettings empty = parse("");
    EXPECT_FALSE(empty.color("VyLabel/Foreground/Normal").isValid());
    VyIniSettings comments = parse("; only a comment\n\n");
    EXPECT_FALSE(comments.color("VyLabel/Foreground/Normal").isValid());

    VyIniSettings other = parse("[Other]\nkey = rgb(1,2,3)\n");
    expectColor(other.color("VyLabel/Foreground/Normal"), 0, 0, 0, 0);
}

TEST(IniFile, MissingFileReportsAndStaysEmpty) {
    ::testing::internal::CaptureStderr();
    VyIniSettings ini(VyString((::testing::TempDir() + "no_such_dir/none.ini").c_str()));
    const std::string err = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "open ini file failed: No such file or directory\n");
    EXPECT_FALSE(ini.isOpened());
    EXPECT_TRUE(ini.isEmpty());
    EXPECT_FALSE(ini.color("A/b").isValid());
    EXPECT_EQ(ini.intValue("A/b"), 0);
}

TEST(IniFile, OpenOnlyLeavesTheMapEmpty) {
    const std::string path = writeTempFile("openonly", "[A]\nb = 1\n");
    VyIniSettings only(VyString(path.c_str()), true);
    EXPECT_TRUE(only.isOpened());
    EXPECT_TRUE(only.isEmpty());
    VyIniSettings full{VyString(path.c_str())};
    EXPECT_EQ(full.intValue("A/b"), 1);
}

TEST(IniFile, IntValuesStopAtTheFirstNonDigit) {
    VyIniSettings ini = parse("[W]\na = 3px\nb = wide\nc = 99999999999\nd = -2\n");
    EXPECT_EQ(ini.intValue("W/a"), 3);
    EXPECT_EQ(ini.intValue("W/b"), 0);
    EXPECT_EQ(ini.intValue("W/c"), 0);
    EXPECT_EQ(ini.intValue("W/d"), -2);
}

TEST(IniRobustness, GarbageReadsTheSameFromFileAndMemoryAndStaysBounded) {
    std::mt19937 rng(1234);
    const char alphabet[] = "ab[]=;\"\\ \t\n\r\0x1,";
    for (int round = 0; round < 20; ++round) {
        std::string bytes;
        const int n = static_cast<int>(rng() % 4000);
        for (int i = 0; i < n; ++i)
            bytes += (round % 2) ? static_cast<char>(rng() & 0xFF)
                                 : alphabet[rng() % (sizeof alphabet - 1)];
        VyIniSettings mem = VyIniSettings::fromText(bytes.data(), bytes.size());
        const std::string path = writeTempFile("garbage", bytes);
        VyIniSettings file{VyString(path.c_str())};
        ASSERT_EQ(mem.map(), file.map()) << "round " << round;
        for (const auto& kv : mem.map()) {
            EXPECT_LT(kv.first.size(), 2 * VyIniParser::kLineBufferSize);
            EXPECT_LT(kv.second.size(), VyIniParser::kLineBufferSize);
        }
    }
}

TEST(IniRobustness, OneMegabyteLineIsCutIntoPieces) {
    std::string line = "[Big]\nkey = ";
    line.append(1 << 20, 'z');
    line += "\n";
    VyIniSettings ini = parse(line);
    EXPECT_EQ(ini.value("Big/key").size(), VyIniParser::kLineBufferSize - 1 - 6);
    EXPECT_EQ(ini.map().size(), 1);
}
