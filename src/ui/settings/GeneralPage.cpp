#include "ui/settings/GeneralPage.h"

#include "protocol/GeneralSettingsBlock.h"
#include "runtime/VyLog.h"
#include "toolkit/i18n/TextId.h"
#include "toolkit/i18n/VyTranslation.h"
#include "toolkit/widgets/VyComboBox.h"
#include "toolkit/widgets/VySpinBox.h"

namespace {

constexpr uint8_t kDefaultMenuTimeout = 5; // minutes

// Each language by its own name, in the order of the language table.
constexpr uint32_t kLanguageNames[GeneralSettingsBlock::kLanguageCount] = {
    TextId::Settings::LanguageName0,  TextId::Settings::LanguageName1,
    TextId::Settings::LanguageName2,  TextId::Settings::LanguageName3,
    TextId::Settings::LanguageName4,  TextId::Settings::LanguageName5,
    TextId::Settings::LanguageName6,  TextId::Settings::LanguageName7,
    TextId::Settings::LanguageName8,  TextId::Settings::LanguageName9,
    TextId::Settings::LanguageName10, TextId::Settings::LanguageName11,
    TextId::Settings::LanguageName12, TextId::Settings::LanguageName13,
    TextId::Settings::LanguageName14, TextId::Settings::LanguageName15,
    TextId::Settings::LanguageName16, TextId::Settings::LanguageName17,
    TextId::Settings::LanguageName18, TextId::Settings::LanguageName19,
    TextId::Settings::LanguageName20, TextId::Settings::LanguageName21,
    TextId::Settings::LanguageName22, TextId::Settings::LanguageName23,
    TextId::Settings::LanguageName24, TextId::Settings::LanguageName25,
    TextId::Settings::LanguageName26, TextId::Settings::LanguageName27,
    TextId::Settings::LanguageName28, TextId::Settings::LanguageName29,
    TextId::Settings::LanguageName30, TextId::Settings::LanguageName31,
    TextId::Settings::LanguageName32, TextId::Settings::LanguageName33};

} // namespace

GeneralPage::GeneralPage(VyWidget* parent)
    : SettingsPage(TextId::Settings::General, parent) {
    m_slot = blocks().declare<GeneralSettingsBlock>();
    m_language = new VyComboBox(this);
    addRow(TextId::Settings::Language, m_language);
    watch(m_language, &m_language->currentIndexChanged);
    m_menuTimeout = new VySpinBox(this);
    m_menuTimeout->setRange(0, GeneralSettingsBlock::kMaxMenuTimeout);
    addRow(TextId::Settings::MenuTimeout, m_menuTimeout);
    watch(m_menuTimeout, &m_menuTimeout->valueChanged);
}

void GeneralPage::opened() {
    // The languages this device offers (the block's masks) that have a file here.
    const auto& b = blocks().savedAs<GeneralSettingsBlock>(m_slot);
    uint32_t mask = 0, extended = 0;
    VyTranslation::instance()->availableLanguages(b.languageMask, b.extendedLanguageMask, &mask,
                                                  &extended);
    for (int i = 0; i < GeneralSettingsBlock::kLanguageCount; ++i) {
        const bool offered = i < 32 ? (mask >> i) & 1u : (extended >> (i - 32)) & 1u;
        if (offered)
            m_language->addItem(VyTranslation::tr(kLanguageNames[i]), i);
    }
}

void GeneralPage::showValues() {
    const auto& b = blocks().editAs<GeneralSettingsBlock>(m_slot);
    const int language = m_language->findData(b.languageIndex);
    if (language < 0)
        VY_GUI_LOG("language %d is not among those offered, none shown\n", b.languageIndex);
    if (m_language->currentIndex() != language)
        m_language->setCurrentIndex(language);
    showSpin(m_menuTimeout, clampForDisplay(b.menuTimeout, 0, GeneralSettingsBlock::kMaxMenuTimeout,
                                            "menu time-out"));
}

void GeneralPage::collectValues() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<GeneralSettingsBlock>(m_slot);
    const auto& saved = blocks().savedAs<GeneralSettingsBlock>(m_slot);
    // Only the language word's low byte is the language; the rest of the word is App's.
    if (m_language->currentIndex() >= 0)
        b.languageIndex = uint8_t(m_language->currentData());
    b.menuTimeout = uint8_t(fromControl(saved.menuTimeout, 0, GeneralSettingsBlock::kMaxMenuTimeout,
                                        m_menuTimeout->value()));
}

void GeneralPage::restoreDefaults() {
    if (!isOpened())
        return;
    auto& b = blocks().editAs<GeneralSettingsBlock>(m_slot);
    b.menuTimeout = kDefaultMenuTimeout;
    showValues();
    markEdited();
}
