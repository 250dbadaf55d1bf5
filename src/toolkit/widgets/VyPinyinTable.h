#pragma once
// The on-screen keyboard's own pinyin input: toneless syllables ("zhong", "lv") to the
// simplified characters read so, most frequent first, from "keyboard/pinyin.txt" (made by
// tools/pinyin/make_pinyin_table.py from the Unihan data). Read on first use, so that a
// recorder whose users never type Chinese holds none of it.
#include <cstdint>
#include <map>
#include <string>

#include "runtime/VyString.h"
#include "runtime/VyStringList.h"

class VyPinyinTable {
public:
    static constexpr const char* kResource = "keyboard/pinyin.txt";
    // A larger file is refused before reading: the shipped one is some 30 KB.
    static constexpr int64_t kMaxFileBytes = 1024 * 1024;
    // Characters a query answers at most (an initial alone matches thousands).
    static constexpr int kMaxCandidates = 256;

    // The table read from the resources root on first call (empty, and one log line, when
    // the file is missing or refused).
    static const VyPinyinTable& shared();

    // Reads "syllable<TAB>characters" lines; '#' lines, lines without a tab and syllables
    // that are not lower-case ASCII letters are skipped. False when the file can not be
    // read or is over the size cap (logged); the table is then empty.
    bool load(const VyString& path);
    void parse(const std::string& text);
    int syllableCount() const { return static_cast<int>(m_table.size()); }

    // The characters of the syllable typed, then those of the longer syllables it begins
    // ("zh" offers zha, zhai, ...), each once, at most kMaxCandidates. Empty for pinyin that
    // begins no syllable.
    VyStringList candidates(const VyString& pinyin) const;

private:
    std::map<std::string, std::u32string> m_table;
};
