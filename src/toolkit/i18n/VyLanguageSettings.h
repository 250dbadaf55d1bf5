#pragma once
// The three words of the general settings (parameter block 21) that choose the language.
#include <cstdint>

struct VyLanguageSettings {
    uint32_t languageMask = 0;         // bit i: language i may be chosen (0..31)
    uint32_t languageIndex = 0;        // the language in use, 0..33
    uint32_t extendedLanguageMask = 0; // bit i - 32: language i may be chosen (32..33)
};
