#pragma once
// The language of the interface: which of the 34 languages is loaded, and the table of its
// texts by numeric text ID, read from "tran_<name>.xml" in the language folder.
//
// One instance serves the process (instance()); it is created on the first request, which
// reads the configured language from the settings store and loads it. A text query answers
// an empty string for an unknown ID and never falls back to another language. Windows that
// show catalogue texts keep their text IDs and fetch the texts again on languageChanged.
//
// GUI thread only.
#include "runtime/VyHash.h"
#include "runtime/VyString.h"
#include "toolkit/core/VyObject.h"
#include "toolkit/i18n/VyLanguageSettings.h"

#include <cstdint>
#include <memory>
#include <vector>

class VyLanguageSettingsStore;

class VyTranslation : public VyObject {
    VY_OBJECT(VyTranslation, VyObject)
public:
    static constexpr int kLanguageCount = 34;
    // Also the index of no language.
    static constexpr int kNoLanguage = kLanguageCount;
    static constexpr int kEnglish = 4;
    // Larger language files are refused before parsing: the biggest shipped one is a few
    // hundred kilobytes, and the parser holds several times the file in memory.
    static constexpr int64_t kMaxFileBytes = 4 * 1024 * 1024;

    // `languageDir` is the folder of the language files; `store` (may be null: nothing is
    // configured, nothing written back) must outlive the translation.
    VyTranslation(const VyString& languageDir, VyLanguageSettingsStore* store);
    ~VyTranslation() override;

    // The process's translation, created on first request in "./language" under the
    // resources root with the store given to setSettingsStore(), and the start-up
    // selection run on it.
    static VyTranslation* instance();
    // The store the instance is created with; set before the first instance() call.
    static void setSettingsStore(VyLanguageSettingsStore* store);
    // Replaces the process's translation (taking ownership; null drops it, and the next
    // instance() creates a new one). For start-up code and tests that bring their own.
    static void resetInstance(VyTranslation* translation = nullptr);
    // The text of `id` in the process's language.
    static VyString tr(uint32_t id) { return instance()->text(id); }

    // "chinese", "english", ..., "slovak" for 0..33; null outside.
    static const char* languageName(int index);
    // "tran_" + name + ".xml"; empty outside 0..33.
    static VyString fileName(int index);
    // Hebrew, Arabic and Persian.
    static bool isRightToLeft(int index);

    // ---- Text query ----
    VyString text(uint32_t id) const;
    int textCount() const { return static_cast<int>(m_texts.size()); }
    // The IDs of the loaded table, ascending.
    std::vector<uint32_t> textIds() const;

    // ---- Language ----
    // The loaded language, kNoLanguage before the first load.
    int language() const { return m_language; }
    bool isRightToLeft() const { return isRightToLeft(m_language); }
    // Selects and loads a language. Selecting the loaded one does nothing. Emits
    // languageChanged when a file was loaded. False when nothing was loaded (no file, a
    // refused file), in which case the previous texts stay.
    bool changeLanguage(int index);
    // Reads the settings store and loads the configured language when it is available,
    // otherwise the first available one, which is then written back to the store.
    void selectStartupLanguage();

    // ---- Available languages ----
    // Files present in the folder, as the two masks (bit i - 32 of `extended` for 32, 33).
    void foundLanguages(uint32_t* mask, uint32_t* extended) const;
    // The found languages limited by the configured masks: found & configured when the
    // configured mask is non-zero and the intersection too, found otherwise; each word on
    // its own.
    void availableLanguages(uint32_t configuredMask, uint32_t configuredExtended, uint32_t* mask,
                            uint32_t* extended) const;
    static uint32_t limitMask(uint32_t found, uint32_t configured);

    const VyString& languageDir() const { return m_languageDir; }

    VySignal languageChanged;

private:
    // Parses the file into a new table; false (and the table untouched) on any failure.
    bool loadFile(const VyString& path, VyHash<uint32_t, VyString>* table) const;

    VyString m_languageDir;
    VyLanguageSettingsStore* m_store;
    VyHash<uint32_t, VyString> m_texts;
    int m_language = kNoLanguage;
};
