#include "runtime/VyIniParser.h"

#include <climits>
#include <cstring>

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// A carriage return is treated like the newline so that files written on a PC read the same.
bool endsToken(char c, bool quoted) {
    if (c == '\0' || c == '\n' || c == '\r' || c == ';' || c == '=' || c == '"')
        return true;
    return !quoted && isBlank(c);
}

} // namespace

VyIniParser::Token VyIniParser::scanToken(char* from) {
    char* p = from;
    while (isBlank(*p))
        ++p;
    const bool quoted = *p == '"';
    if (*p == '"' || *p == '[')
        ++p;
    char* begin = p;
    for (; !endsToken(*p, quoted); ++p) {
        if (*p == '\\') {
            *p = '/';
        } else if (*p == ']') {
            *p = '/';
            ++p;
            break;
        }
    }
    return Token{begin, static_cast<int>(p - begin)};
}

void VyIniParser::parseLine(char* line) {
    char* equals = std::strchr(line, '=');
    if (!equals) {
        char* bracket = std::strchr(line, '[');
        if (bracket) {
            const Token section = scanToken(bracket);
            m_section = VyString(section.begin, section.length);
        }
        return;
    }
    // The value is scanned first: scanning the key can rewrite bytes only up to the "=".
    const Token value = scanToken(equals + 1);
    const Token key = scanToken(line);
    VyString fullKey = m_section;
    fullKey += VyString(key.begin, key.length);
    m_map.insert(fullKey, VyString(value.begin, value.length));
}

void VyIniParser::parseText(const char* data, size_t size) {
    char buffer[kLineBufferSize];
    size_t pos = 0;
    while (pos < size) {
        size_t n = 0;
        while (n < kLineBufferSize - 1 && pos + n < size) {
            const char c = data[pos + n];
            buffer[n++] = c;
            if (c == '\n')
                break;
        }
        buffer[n] = '\0';
        pos += n;
        parseLine(buffer);
    }
}

VyColor VyIniParser::parseColor(const char* value) {
    if (!value || !*value)
        return VyColor(0, 0, 0, 0);
    int components[4] = {0, 0, 0, 255};
    const char* p = value;
    for (int i = 0; i < 4; ++i) {
        // Each number needs at least one non-digit in front of it; a sign is part of that run.
        if (*p == '\0' || isDigit(*p))
            break;
        while (*p && !isDigit(*p))
            ++p;
        if (!isDigit(*p))
            break;
        // Like a scanf %d read through a 64-bit long: too many digits saturate at INT64_MAX,
        // whose low byte is 0xFF; otherwise the low byte of the number is kept. Fixed at 64
        // bits so that a style sheet reads the same where `long` is 32 bits.
        unsigned long long number = 0;
        bool saturated = false;
        for (; isDigit(*p); ++p) {
            const auto digit = static_cast<unsigned long long>(*p - '0');
            if (!saturated && number > (static_cast<unsigned long long>(INT64_MAX) - digit) / 10)
                saturated = true;
            if (!saturated)
                number = number * 10 + digit;
        }
        components[i] = saturated ? 0xFF : static_cast<int>(number & 0xFF);
    }
    return VyColor(components[0], components[1], components[2], components[3]);
}
