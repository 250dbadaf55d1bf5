#include "toolkit/i18n/VyTranslation.h"

#include "runtime/VyFontEngine.h"
#include "runtime/VyLog.h"
#include "runtime/VyResources.h"
#include "runtime/VyTextShaper.h"
#include "toolkit/i18n/VyLanguageSettingsStore.h"
#include "toolkit/i18n/VyXmlVisitor.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <tinyxml.h>

namespace {

// In settings order: the index is the language number and the bit in the masks. The
// spellings are those of the shipped file names.
constexpr const char* kLanguageNames[VyTranslation::kLanguageCount] = {
    "chinese",    "chinese_complex", "czech",   "danish",    "english",   "finnish",  "french",
    "german",     "greek",           "hebrew",  "hungarian", "italian",   "japanese", "polish",
    "portuguese", "russian",         "spanish", "thai",      "slovenia",  "romanian", "bulgarian",
    "arabic",     "hindi",           "vietnam", "holland",   "turkey",    "persion",  "svenska",
    "korean",     "indonesia",       "brazile", "flemish",   "ukrainian", "slovak"};

constexpr int kHebrew = 9;
constexpr int kArabic = 21;
constexpr int kPersian = 26;
constexpr int kMaskBits = 32;

VyLanguageSettingsStore* g_store = nullptr;
std::unique_ptr<VyTranslation> g_instance;

std::set<std::string> listFolder(const VyString& dir) {
    std::set<std::string> names;
    DIR* d = opendir(dir.c_str());
    if (d == nullptr)
        return names;
    while (const dirent* e = readdir(d))
        names.insert(e->d_name);
    closedir(d);
    return names;
}

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

// The file's bytes, NUL-terminated for the parser; false when it cannot be read or is
// larger than the cap (checked before anything is allocated).
bool readCapped(const char* path, int64_t cap, std::string* out) {
    std::unique_ptr<std::FILE, FileCloser> f(std::fopen(path, "rb"));
    if (!f)
        return false;
    struct stat st {};
    if (fstat(fileno(f.get()), &st) != 0 || !S_ISREG(st.st_mode))
        return false;
    if (st.st_size > cap) {
        vyFrameworkLog("Translation file %s is %lld bytes, more than %lld !!!\n", path,
                       static_cast<long long>(st.st_size), static_cast<long long>(cap));
        return false;
    }
    out->resize(static_cast<size_t>(st.st_size));
    if (!out->empty() && std::fread(&(*out)[0], 1, out->size(), f.get()) != out->size())
        return false;
    return true;
}

} // namespace

VyTranslation::VyTranslation(const VyString& languageDir, VyLanguageSettingsStore* store)
    : m_languageDir(languageDir)
    , m_store(store) {}

VyTranslation::~VyTranslation() = default;

VyTranslation* VyTranslation::instance() {
    if (!g_instance) {
        g_instance.reset(new VyTranslation(VyResources::path("./language"), g_store));
        g_instance->selectStartupLanguage();
    }
    return g_instance.get();
}

void VyTranslation::setSettingsStore(VyLanguageSettingsStore* store) {
    g_store = store;
}

void VyTranslation::resetInstance(VyTranslation* translation) {
    g_instance.reset(translation);
    VyFontEngine::instance().shaper().setDefaultRightToLeft(translation != nullptr &&
                                                            translation->isRightToLeft());
}

const char* VyTranslation::languageName(int index) {
    return index >= 0 && index < kLanguageCount ? kLanguageNames[index] : nullptr;
}

VyString VyTranslation::fileName(int index) {
    const char* name = languageName(index);
    if (name == nullptr)
        return VyString();
    return VyString("%1%2%3").arg("tran_").arg(name).arg(".xml");
}

bool VyTranslation::isRightToLeft(int index) {
    return index == kHebrew || index == kArabic || index == kPersian;
}

VyString VyTranslation::text(uint32_t id) const {
    const auto it = m_texts.find(id);
    return it != m_texts.end() ? it->second : VyString();
}

std::vector<uint32_t> VyTranslation::textIds() const {
    std::vector<uint32_t> ids;
    ids.reserve(m_texts.size());
    for (const auto& entry : m_texts)
        ids.push_back(entry.first);
    std::sort(ids.begin(), ids.end());
    return ids;
}

void VyTranslation::foundLanguages(uint32_t* mask, uint32_t* extended) const {
    const std::set<std::string> present = listFolder(m_languageDir);
    *mask = 0;
    *extended = 0;
    for (int i = 0; i < kLanguageCount; ++i) {
        if (present.count(fileName(i).c_str()) == 0)
            continue;
        if (i < kMaskBits)
            *mask |= 1u << i;
        else
            *extended |= 1u << (i - kMaskBits);
    }
}

uint32_t VyTranslation::limitMask(uint32_t found, uint32_t configured) {
    if (configured != 0 && (found & configured) != 0)
        return found & configured;
    return found;
}

void VyTranslation::availableLanguages(uint32_t configuredMask, uint32_t configuredExtended,
                                       uint32_t* mask, uint32_t* extended) const {
    uint32_t found = 0;
    uint32_t foundExtended = 0;
    foundLanguages(&found, &foundExtended);
    *mask = limitMask(found, configuredMask);
    *extended = limitMask(foundExtended, configuredExtended);
}

void VyTranslation::selectStartupLanguage() {
    VyLanguageSettings settings;
    if (m_store != nullptr)
        settings = m_store->readLanguageSettings();
    if (settings.languageIndex == static_cast<uint32_t>(m_language))
        return;
    uint32_t mask = 0;
    uint32_t extended = 0;
    availableLanguages(settings.languageMask, settings.extendedLanguageMask, &mask, &extended);
    const uint32_t stored = settings.languageIndex;
    auto available = [&](uint32_t i) {
        return i < kMaskBits ? (mask >> i) & 1u : (extended >> (i - kMaskBits)) & 1u;
    };
    if (stored < static_cast<uint32_t>(kLanguageCount) && available(stored)) {
        changeLanguage(static_cast<int>(stored));
        return;
    }
    for (int i = 0; i < kLanguageCount; ++i) {
        if (!available(static_cast<uint32_t>(i)))
            continue;
        settings.languageIndex = static_cast<uint32_t>(i);
        if (i < kMaskBits)
            settings.languageMask = mask;
        else
            settings.extendedLanguageMask = extended;
        if (m_store != nullptr)
            m_store->writeLanguageSettings(settings);
        changeLanguage(i);
        return;
    }
    // Nothing available: ask for the stored one anyway, which logs that no package exists.
    changeLanguage(stored < static_cast<uint32_t>(kLanguageCount) ? static_cast<int>(stored)
                                                                  : kNoLanguage);
}

bool VyTranslation::changeLanguage(int index) {
    if (index == m_language)
        return false;
    if (index < 0 || index > kNoLanguage)
        index = kNoLanguage;
    m_language = index;
    uint32_t mask = 0;
    uint32_t extended = 0;
    foundLanguages(&mask, &extended);
    const bool present = index < kMaskBits
                             ? (mask >> index) & 1u
                             : index < kLanguageCount && ((extended >> (index - kMaskBits)) & 1u);
    if (index == kNoLanguage || !present) {
        vyFrameworkLog("No language package found !!!\n");
        return false;
    }
    const VyString path = m_languageDir + "/" + fileName(index);
    VyHash<uint32_t, VyString> table;
    if (!loadFile(path, &table)) {
        vyFrameworkLog("Translation file %s load failed !!!\n", path.c_str());
        return false;
    }
    m_texts = std::move(table);
    // The process's language decides the direction of text without strong letters and the
    // side of labels aligned to the leading edge.
    if (this == g_instance.get())
        VyFontEngine::instance().shaper().setDefaultRightToLeft(isRightToLeft(index));
    emitSignal(this, &languageChanged);
    return true;
}

bool VyTranslation::loadFile(const VyString& path, VyHash<uint32_t, VyString>* table) const {
    std::string bytes;
    if (!readCapped(path.c_str(), kMaxFileBytes, &bytes))
        return false;
    TiXmlDocument doc;
    doc.Parse(bytes.c_str(), nullptr, TIXML_DEFAULT_ENCODING);
    if (doc.Error()) {
        VY_DEBUG("i18n", "%s: %s at line %d", path.c_str(), doc.ErrorDesc(), doc.ErrorRow());
        return false;
    }
    VyXmlVisitor visitor(table);
    doc.Accept(&visitor);
    VY_DEBUG("i18n", "%s: %d texts, %d entries skipped", path.c_str(), visitor.takenCount(),
             visitor.skippedCount());
    return true;
}
