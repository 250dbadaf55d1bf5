#pragma once
// Parameter block 21, the general (start-up) settings.
//
// The language words: the language mask (first word, bit i for language i < 32), the
// current language (second word) and the extended language mask (fifth word, bit i - 32).
//
// Bytes 4..7 are one 32-bit word to App, its "current language" word, and App keeps the
// date-format index in byte 6 of that same word. Both survive because the language index
// lives only in the word's low byte (byte 4, enough for the 34 languages, indices 0..33)
// and byte 5 stays zero: whoever reads the language takes `languageIndex`, never the whole
// word, so any date-format value in byte 6 and any hour format in byte 7 leave it intact,
// and writing a language never touches bytes 6 and 7.
#include <cstddef>
#include <cstdint>

struct GeneralSettingsBlock {
    static constexpr uint32_t kBlockNumber = 21;
    static constexpr size_t kSize = 168; // bytes on the wire
    static constexpr int kLanguageCount = 34;
    static constexpr uint8_t kMaxMenuTimeout = 60; // minutes

    uint32_t languageMask;   // languages the device offers, bit i for language i (0..31)
    uint8_t languageIndex;   // low byte of App's language word, 0..33
    uint8_t languageHigh;    // always 0: keeps the language word below 256
    uint8_t dateFormat;      // 0 MM/dd/yyyy, 1 yyyy-MM-dd, 2 dd/MM/yyyy
    uint8_t reserved7;       // high byte of the language word, left to App
    uint8_t autoLogout;      // minutes of idle before the user is logged out, 0 never
    uint8_t menuTimeout;     // minutes of idle before menus close, 0 never
    uint8_t wizardEnabled;   // non-zero: open the start-up wizard over the main view
    uint8_t hour12;          // non-zero: 12-hour clock ("hh:mm:ss AP")
    uint8_t showTime;        // non-zero: the live view shows date and time
    uint8_t showChannelName; // non-zero: the live cells show their channel names
    uint8_t showRecordState; // non-zero: the live cells show their record flags
    uint8_t reserved15;
    uint32_t extendedLanguageMask; // bit i - 32 for language i (32, 33)
    uint8_t reserved20[148];       // the general page's own fields
};

static_assert(sizeof(GeneralSettingsBlock) == GeneralSettingsBlock::kSize, "wire size");
static_assert(offsetof(GeneralSettingsBlock, languageIndex) == 4, "language word");
static_assert(offsetof(GeneralSettingsBlock, dateFormat) == 6, "date format");
static_assert(offsetof(GeneralSettingsBlock, wizardEnabled) == 10, "wizard switch");
static_assert(offsetof(GeneralSettingsBlock, hour12) == 11, "hour format");
static_assert(offsetof(GeneralSettingsBlock, extendedLanguageMask) == 16, "fifth word");
