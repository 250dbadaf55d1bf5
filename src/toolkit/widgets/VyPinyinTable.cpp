#include "toolkit/widgets/VyPinyinTable.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <unordered_set>

#include "runtime/VyLog.h"
#include "runtime/VyResources.h"

const VyPinyinTable& VyPinyinTable::shared() {
    static const VyPinyinTable table = [] {
        VyPinyinTable t;
        t.load(VyResources::path(kResource));
        return t;
    }();
    return table;
}

bool VyPinyinTable::load(const VyString& path) {
    m_table.clear();
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) {
        vyFrameworkLog("Pinyin table %s not found; Chinese is typed as pinyin !!!\n", path.c_str());
        return false;
    }
    if (st.st_size > kMaxFileBytes) {
        vyFrameworkLog("Pinyin table %s is %lld bytes, more than %lld !!!\n", path.c_str(),
                       static_cast<long long>(st.st_size), static_cast<long long>(kMaxFileBytes));
        return false;
    }
    std::ifstream in(path.c_str(), std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    parse(text.str());
    return true;
}

void VyPinyinTable::parse(const std::string& text) {
    m_table.clear();
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const size_t tab = line.find('\t');
        if (line.empty() || line[0] == '#' || tab == std::string::npos || tab == 0)
            continue;
        const std::string syllable = line.substr(0, tab);
        bool letters = true;
        for (char c : syllable)
            letters = letters && c >= 'a' && c <= 'z';
        if (!letters)
            continue;
        // Malformed UTF-8 decodes to U+FFFD, which is no character anyone picks: dropped.
        std::u32string chars = VyString::fromUtf8(line.c_str() + tab + 1).toUcs4();
        chars.erase(std::remove(chars.begin(), chars.end(), U'\uFFFD'), chars.end());
        chars.erase(std::remove(chars.begin(), chars.end(), U'\r'), chars.end());
        m_table[syllable] += chars;
    }
}

VyStringList VyPinyinTable::candidates(const VyString& pinyin) const {
    VyStringList out;
    const std::string& key = pinyin.toStdString();
    if (key.empty())
        return out;
    std::unordered_set<char32_t> seen;
    auto take = [&](const std::u32string& chars) {
        for (char32_t c : chars) {
            if (out.size() >= kMaxCandidates)
                return;
            if (seen.insert(c).second)
                out.append(VyString::fromUcs4(std::u32string(1, c)));
        }
    };
    // The syllable itself first, then the longer ones in alphabetical order.
    auto exact = m_table.find(key);
    if (exact != m_table.end())
        take(exact->second);
    for (auto it = m_table.lower_bound(key);
         it != m_table.end() && it->first.compare(0, key.size(), key) == 0; ++it)
        if (it != exact)
            take(it->second);
    return out;
}
