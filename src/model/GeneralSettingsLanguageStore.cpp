#include "model/GeneralSettingsLanguageStore.h"

#include "model/ParamAccess.h"
#include "protocol/GeneralSettingsBlock.h"

VyLanguageSettings GeneralSettingsLanguageStore::readLanguageSettings() {
    const GeneralSettingsBlock b = ParamAccess::get<GeneralSettingsBlock>();
    VyLanguageSettings s;
    s.languageMask = b.languageMask;
    s.languageIndex = b.languageIndex;
    s.extendedLanguageMask = b.extendedLanguageMask;
    return s;
}

void GeneralSettingsLanguageStore::writeLanguageSettings(const VyLanguageSettings& s) {
    GeneralSettingsBlock b = ParamAccess::get<GeneralSettingsBlock>();
    b.languageMask = s.languageMask;
    // The index fits the low byte of App's language word; bytes 6 and 7 of that word carry
    // the date and hour formats and stay as App has them.
    b.languageIndex = static_cast<uint8_t>(s.languageIndex);
    b.languageHigh = 0;
    b.extendedLanguageMask = s.extendedLanguageMask;
    ParamAccess::set(b);
}
