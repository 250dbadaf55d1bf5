#pragma once
// The byte-level grammar of the ini files (style sheets and the device customisation file),
// kept apart from any file handling so that it can be tested and fuzzed on plain memory.
#include <cstddef>

#include "runtime/VyColor.h"
#include "runtime/VyMap.h"
#include "runtime/VyString.h"

class VyIniParser {
public:
    using Map = VyMap<VyString, VyString>;

    // Lines are read through a buffer of this many bytes (terminator included); a longer
    // line arrives in pieces of kLineBufferSize - 1 bytes, each parsed as a line of its own.
    static constexpr int kLineBufferSize = 512;

    // A token found in a line: [begin, begin + length). Points into the scanned line.
    struct Token {
        const char* begin = nullptr;
        int length = 0;
    };

    explicit VyIniParser(Map& map)
        : m_map(map) {}

    // One line as a 512-byte line reader delivers it (NUL-terminated, at most 511 bytes,
    // usually ending in a newline). The line is rewritten in place by the token rule.
    void parseLine(char* line);

    // A whole text, cut into lines exactly as reading it through the 512-byte buffer would
    // (a piece ends after a newline or after 511 bytes). Embedded NUL bytes end the line's
    // text as they would for the file reader.
    void parseText(const char* data, size_t size);

    const VyString& currentSection() const { return m_section; }

    // The token rule, applied in place from `from`: blanks are skipped, one leading double
    // quote or "[" is dropped, backslashes become "/", and a "]" ends the token as a kept "/".
    static Token scanToken(char* from);

    // A colour value as the style sheets write it: "rgb(10,20,30)", "rgba(10,20,30,128)".
    // Numbers are taken after runs of non-digits (red, green, blue, alpha), so a value that
    // starts with a digit yields opaque black; alpha defaults to 255; an empty value is
    // transparent black. The result is always valid.
    static VyColor parseColor(const char* value);

private:
    Map& m_map;
    VyString m_section;
};
