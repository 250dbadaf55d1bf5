#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/i18n/VyLanguageSettingsStore.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kChinese = 0;
constexpr int kEnglish = 4;
constexpr int kPersian = 26;
constexpr int kUkrainian = 32;
constexpr int kSlovak = 33;

class FakeStore : public VyLanguageSettingsStore {
public:
    VyLanguageSettings settings;
    std::vector<VyLanguageSettings> writes;
    VyLanguageSettings readLanguageSettings() override { return settings; }
    void writeLanguageSettings(const VyLanguageSettings& s) override {
        writes.push_back(s);
        settings = s;
    }
};

class Counter : public VyObject {
public:
    int count = 0;
    void hit() { ++count; }
};

// A language folder of its own per test, removed afterwards.
class TranslationTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string templ = ::testing::TempDir() + "lang_XXXXXX";
        ASSERT_NE(mkdtemp(&templ[0]), nullptr);
        m_dir = templ;
    }
    void TearDown() override {
        for (const std::string& f : m_files)
            std::remove(f.c_str());
        rmdir(m_dir.c_str());
    }
    void write(int language, const std::string& content) {
        writeNamed(VyTranslation::fileName(language).c_str(), content);
    }
    void writeNamed(const std::string& name, const std::string& content) {
        const std::string path = m_dir + "/" + name;
        FILE* f = std::fopen(path.c_str(), "wb");
        ASSERT_NE(f, nullptr);
        std::fwrite(content.data(), 1, content.size(), f);
        std::fclose(f);
        m_files.push_back(path);
    }
    // A file whose text 1 names its language, so a test sees which one got loaded.
    void writeMarked(int language) {
        write(language, std::string("<TS><tr id=\"1\" text=\"") +
                            VyTranslation::languageName(language) + "\"/></TS>");
    }
    VyString dir() const { return VyString(m_dir.c_str()); }

    std::string m_dir;
    std::vector<std::string> m_files;
};

TEST(LanguageTable, FileNamesKeepTheShippedSpellingsAndOrder) {
    EXPECT_EQ(VyTranslation::fileName(0), "tran_chinese.xml");
    EXPECT_EQ(VyTranslation::fileName(kEnglish), "tran_english.xml");
    EXPECT_EQ(VyTranslation::fileName(18), "tran_slovenia.xml");
    EXPECT_EQ(VyTranslation::fileName(23), "tran_vietnam.xml");
    EXPECT_EQ(VyTranslation::fileName(24), "tran_holland.xml");
    EXPECT_EQ(VyTranslation::fileName(25), "tran_turkey.xml");
    EXPECT_EQ(VyTranslation::fileName(kPersian), "tran_persion.xml");
    EXPECT_EQ(VyTranslation::fileName(30), "tran_brazile.xml");
    EXPECT_EQ(VyTranslation::fileName(kSlovak), "tran_slovak.xml");
    EXPECT_EQ(VyTranslation::fileName(VyTranslation::kNoLanguage), "");
    EXPECT_EQ(VyTranslation::fileName(-1), "");
    EXPECT_TRUE(VyTranslation::isRightToLeft(9));
    EXPECT_TRUE(VyTranslation::isRightToLeft(21));
    EXPECT_TRUE(VyTranslation::isRightToLeft(kPersian));
    EXPECT_FALSE(VyTranslation::isRightToLeft(22));
}

TEST_F(TranslationTest, ConfiguredButUnavailableLanguageIsReplacedByTheFirstAvailableAndStored) {
    writeMarked(kChinese);
    writeMarked(kEnglish);
    FakeStore store;
    store.settings.languageIndex = kEnglish;
    store.settings.languageMask = 1u << kChinese | 1u << 7; // English not allowed
    store.settings.extendedLanguageMask = 0;
    VyTranslation t(dir(), &store);
    t.selectStartupLanguage();
    EXPECT_EQ(t.language(), kChinese);
    EXPECT_EQ(t.text(1), "chinese");
    ASSERT_EQ(store.writes.size(), 1u);
    EXPECT_EQ(store.writes[0].languageIndex, uint32_t(kChinese));
    EXPECT_EQ(store.writes[0].languageMask, 1u << kChinese);
}

TEST_F(TranslationTest, MaskZeroOrOnlyMissingFilesMakesEveryPresentFileAvailable) {
    writeMarked(kChinese);
    writeMarked(kEnglish);
    writeMarked(kSlovak);
    VyTranslation t(dir(), nullptr);
    uint32_t mask = 0;
    uint32_t ext = 0;
    t.availableLanguages(0, 0, &mask, &ext);
    EXPECT_EQ(mask, 1u << kChinese | 1u << kEnglish);
    EXPECT_EQ(ext, 1u << (kSlovak - 32));
    t.availableLanguages(1u << 5 | 1u << 6, 1u << (kUkrainian - 32), &mask, &ext);
    EXPECT_EQ(mask, 1u << kChinese | 1u << kEnglish);
    EXPECT_EQ(ext, 1u << (kSlovak - 32));
    t.availableLanguages(1u << kEnglish, 0, &mask, &ext);
    EXPECT_EQ(mask, 1u << kEnglish);

    FakeStore store;
    store.settings.languageIndex = kEnglish;
    store.settings.languageMask = 1u << 5; // only a language without a file
    VyTranslation started(dir(), &store);
    started.selectStartupLanguage();
    EXPECT_EQ(started.language(), kEnglish);
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(TranslationTest, SlovakIsCheckedAgainstBitOneOfTheExtendedMask) {
    writeMarked(kChinese);
    writeMarked(kUkrainian);
    writeMarked(kSlovak);
    FakeStore store;
    store.settings.languageIndex = kSlovak;
    store.settings.languageMask = 1u << kChinese | 1u << 1; // bit 1 here must not count
    store.settings.extendedLanguageMask = 1u << 0;          // Ukrainian only
    VyTranslation t(dir(), &store);
    t.selectStartupLanguage();
    EXPECT_EQ(t.language(), kChinese);
    EXPECT_EQ(t.text(1), "chinese");

    store.writes.clear();
    store.settings.languageIndex = kSlovak;
    store.settings.extendedLanguageMask = 1u << 1;
    VyTranslation slovak(dir(), &store);
    slovak.selectStartupLanguage();
    EXPECT_EQ(slovak.language(), kSlovak);
    EXPECT_EQ(slovak.text(1), "slovak");
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(TranslationTest, FirstAvailableInTheExtendedWordIsStoredWithThatMask) {
    writeMarked(kSlovak);
    FakeStore store;
    store.settings.languageIndex = 3;
    store.settings.languageMask = 0xFFFFFFFFu;
    store.settings.extendedLanguageMask = 0;
    VyTranslation t(dir(), &store);
    t.selectStartupLanguage();
    EXPECT_EQ(t.language(), kSlovak);
    ASSERT_EQ(store.writes.size(), 1u);
    EXPECT_EQ(store.writes[0].languageIndex, uint32_t(kSlovak));
    EXPECT_EQ(store.writes[0].extendedLanguageMask, 1u << 1);
    EXPECT_EQ(store.writes[0].languageMask, 0xFFFFFFFFu);
}

TEST_F(TranslationTest, NoFilesLeavesEveryQueryEmpty) {
    FakeStore store;
    store.settings.languageIndex = kEnglish;
    VyTranslation t(dir(), &store);
    ::testing::internal::CaptureStdout();
    t.selectStartupLanguage();
    const std::string out = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("No language package found !!!"), std::string::npos) << out;
    EXPECT_EQ(t.language(), kEnglish);
    EXPECT_EQ(t.text(1), "");
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(TranslationTest, EntriesAnywhereInTheTreeLaterDuplicatesWinBadIdsAreSkipped) {
    write(kEnglish, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<TS><context><name>x</name>\n"
                    "  <tr id=\"100\" text=\"first\"/>\n"
                    "  <group><tr id=\"200\" text=\"deep\"/></group>\n"
                    "  <tr id=\"100\" text=\"second\"/>\n"
                    "  <tr text=\"no id\"/>\n"
                    "  <tr id=\"3x\" text=\"not an integer\"/>\n"
                    "  <tr id=\"-5\" text=\"negative\"/>\n"
                    "  <tr id=\"99999999999\" text=\"too large\"/>\n"
                    "  <tr id=\"300\"/>\n"
                    "  <tr id=\"400\" text=\"%1 x %2 &amp; \xD8\xB9\xD8\xB1\xD8\xA8\xD9\x8A\"/>\n"
                    "  <notr id=\"500\" text=\"ignored\"/>\n"
                    "</context></TS>\n");
    VyTranslation t(dir(), nullptr);
    ::testing::internal::CaptureStdout();
    EXPECT_TRUE(t.changeLanguage(kEnglish));
    ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(t.text(100), "second");
    EXPECT_EQ(t.text(200), "deep");
    EXPECT_EQ(t.text(300), "");
    EXPECT_EQ(t.text(400), "%1 x %2 & \xD8\xB9\xD8\xB1\xD8\xA8\xD9\x8A");
    EXPECT_EQ(t.text(400).arg(1920).arg(1080), "1920 x 1080 & \xD8\xB9\xD8\xB1\xD8\xA8\xD9\x8A");
    EXPECT_EQ(t.text(500), "");
    EXPECT_EQ(t.text(4294967291u), ""); // -5 must not have wrapped into the table
    EXPECT_EQ(t.textCount(), 4);
}

TEST_F(TranslationTest, BrokenOrOversizedFileKeepsThePreviousTexts) {
    writeMarked(kEnglish);
    write(kChinese, "<TS><tr id=\"1\" text=\"half\"></TS");
    std::string big = "<TS>";
    big.resize(VyTranslation::kMaxFileBytes + 1, ' ');
    write(7, big);
    VyTranslation t(dir(), nullptr);
    ASSERT_TRUE(t.changeLanguage(kEnglish));

    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(t.changeLanguage(kChinese));
    std::string out = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("Translation file " + m_dir + "/tran_chinese.xml load failed !!!"),
              std::string::npos)
        << out;
    EXPECT_EQ(t.language(), kChinese);
    EXPECT_EQ(t.text(1), "english");

    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(t.changeLanguage(7));
    out = ::testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("more than"), std::string::npos) << out;
    EXPECT_EQ(t.text(1), "english");
}

TEST_F(TranslationTest, LanguageChangedOnlyWhenANewFileWasLoaded) {
    writeMarked(kChinese);
    writeMarked(kEnglish);
    VyTranslation t(dir(), nullptr);
    Counter counter;
    VyObject::connect(&t, &t.languageChanged, &counter,
                      [](VyObject*, VyObject* r) { static_cast<Counter*>(r)->hit(); });
    EXPECT_TRUE(t.changeLanguage(kEnglish));
    EXPECT_EQ(counter.count, 1);
    EXPECT_FALSE(t.changeLanguage(kEnglish));
    EXPECT_EQ(counter.count, 1);
    ::testing::internal::CaptureStdout();
    EXPECT_FALSE(t.changeLanguage(5)); // no file
    ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(counter.count, 1);
    EXPECT_TRUE(t.changeLanguage(kChinese));
    EXPECT_EQ(counter.count, 2);
    EXPECT_EQ(t.text(1), "chinese");
}

} // namespace
