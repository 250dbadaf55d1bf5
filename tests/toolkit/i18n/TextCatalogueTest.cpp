// The shipped language files against the program's text IDs: every language complete, no
// stray IDs, and the placeholders of every translation those of the English text.
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"

#include <gtest/gtest.h>

#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

std::multiset<std::string> placeholders(const VyString& text) {
    static const std::regex kPlaceholder("%[1-9][0-9]*");
    const std::string s = text.c_str();
    std::multiset<std::string> found;
    for (auto it = std::sregex_iterator(s.begin(), s.end(), kPlaceholder);
         it != std::sregex_iterator(); ++it)
        found.insert(it->str());
    return found;
}

TEST(TextCatalogue, EveryShippedLanguageHoldsExactlyTheProgramsTextsWithEnglishPlaceholders) {
    const VyString dir(VY_RESOURCES_DIR "/language");
    const std::vector<uint32_t> used(std::begin(TextId::kAll), std::end(TextId::kAll));
    ASSERT_TRUE(std::is_sorted(used.begin(), used.end()));
    ASSERT_EQ(std::adjacent_find(used.begin(), used.end()), used.end()) << "duplicate ID";

    VyTranslation english(dir, nullptr);
    ASSERT_TRUE(english.changeLanguage(VyTranslation::kEnglish));

    uint32_t mask = 0;
    uint32_t extended = 0;
    english.foundLanguages(&mask, &extended);
    EXPECT_EQ(mask, 0xFFFFFFFFu) << "a language file of the first 32 is missing";
    EXPECT_EQ(extended, 0x3u) << "ukrainian or slovak is missing";

    for (int lang = 0; lang < VyTranslation::kLanguageCount; ++lang) {
        SCOPED_TRACE(VyTranslation::languageName(lang));
        VyTranslation t(dir, nullptr);
        ASSERT_TRUE(t.changeLanguage(lang));
        EXPECT_EQ(t.textIds(), used);
        for (uint32_t id : used) {
            SCOPED_TRACE(id);
            const VyString text = t.text(id);
            EXPECT_FALSE(text.isEmpty());
            EXPECT_EQ(placeholders(text), placeholders(english.text(id)));
        }
    }
}

// Texts that are the system's own words stay as they are in English.
TEST(TextCatalogue, EnglishKeepsTheSystemsOwnWording) {
    VyTranslation english(VyString(VY_RESOURCES_DIR "/language"), nullptr);
    ASSERT_TRUE(english.changeLanguage(VyTranslation::kEnglish));
    EXPECT_EQ(english.text(TextId::SystemNotice::ShuttingDown), "NVR is shutting Down......");
}

} // namespace
