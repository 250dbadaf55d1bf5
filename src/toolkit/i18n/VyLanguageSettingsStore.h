#pragma once
// Where the translation reads the configured language and writes back the one it chose.
// The parameter cache above the toolkit implements it on the general settings block; tests
// hand in their own.
#include "toolkit/i18n/VyLanguageSettings.h"

class VyLanguageSettingsStore {
public:
    virtual ~VyLanguageSettingsStore() = default;
    virtual VyLanguageSettings readLanguageSettings() = 0;
    // Saves the chosen index and masks through the parameter interface.
    virtual void writeLanguageSettings(const VyLanguageSettings& settings) = 0;
};
