#pragma once
// The translation's language settings on the general settings block (21): read fresh from
// App, written back through the parameter interface with the rest of the block as App has it.
#include "toolkit/i18n/VyLanguageSettingsStore.h"

class GeneralSettingsLanguageStore : public VyLanguageSettingsStore {
public:
    VyLanguageSettings readLanguageSettings() override;
    void writeLanguageSettings(const VyLanguageSettings& settings) override;
};
