#include "toolkit/widgets/VyValidator.h"

namespace {

bool isDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

bool isAsciiAlnum(char32_t c) {
    return isDigit(c) || (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z');
}

constexpr int kMaxPort = 65535;
constexpr int kMaxEmailLength = 254; // characters, the longest address mail systems carry

} // namespace

VyValidator::State VyValidator::validate(Kind kind, const std::u32string& text) {
    switch (kind) {
    case None:
        return Acceptable;
    case Digits:
        return digits(text);
    case IPv4Address:
        return ipv4(text);
    case Port:
        return port(text);
    case EmailAddress:
        return email(text);
    }
    return Invalid;
}

VyValidator::State VyValidator::digits(const std::u32string& text) {
    for (char32_t c : text)
        if (!isDigit(c))
            return Invalid;
    return text.empty() ? Intermediate : Acceptable;
}

VyValidator::State VyValidator::port(const std::u32string& text) {
    if (text.size() > 5)
        return Invalid;
    int value = 0;
    for (char32_t c : text) {
        if (!isDigit(c))
            return Invalid;
        value = value * 10 + static_cast<int>(c - U'0');
    }
    if (text.size() > 1 && text[0] == U'0')
        return Invalid;
    if (value > kMaxPort)
        return Invalid;
    return value == 0 ? Intermediate : Acceptable;
}

VyValidator::State VyValidator::ipv4(const std::u32string& text) {
    int groups = 1;
    int value = 0;
    size_t groupLength = 0;
    bool complete = true;
    for (size_t i = 0; i <= text.size(); ++i) {
        if (i == text.size() || text[i] == U'.') {
            if (groupLength == 0)
                complete = false;
            if (i < text.size()) {
                if (++groups > 4)
                    return Invalid;
            }
            value = 0;
            groupLength = 0;
            continue;
        }
        const char32_t c = text[i];
        if (!isDigit(c))
            return Invalid;
        // "01" is refused: a leading zero reads as octal on some recorders' peers.
        if (groupLength == 1 && value == 0)
            return Invalid;
        value = value * 10 + static_cast<int>(c - U'0');
        if (++groupLength > 3 || value > 255)
            return Invalid;
    }
    return complete && groups == 4 ? Acceptable : Intermediate;
}

VyValidator::State VyValidator::email(const std::u32string& text) {
    if (text.size() > kMaxEmailLength)
        return Invalid;
    const size_t at = text.find(U'@');
    if (at != std::u32string::npos && text.find(U'@', at + 1) != std::u32string::npos)
        return Invalid;
    for (size_t i = 0; i < text.size(); ++i) {
        const char32_t c = text[i];
        if (c == U'@' || isAsciiAlnum(c) || c == U'.' || c == U'-')
            continue;
        // A few more characters are allowed in the local part only.
        if (at != std::u32string::npos && i > at)
            return Invalid;
        if (c != U'_' && c != U'+' && c != U'%')
            return Invalid;
    }
    if (at == std::u32string::npos || at == 0)
        return Intermediate;
    const std::u32string domain = text.substr(at + 1);
    const size_t lastDot = domain.rfind(U'.');
    if (domain.empty() || lastDot == std::u32string::npos || domain[0] == U'.' ||
        domain.find(U"..") != std::u32string::npos)
        return Intermediate;
    const std::u32string top = domain.substr(lastDot + 1);
    if (top.size() < 2)
        return Intermediate;
    for (char32_t c : top)
        if (!isAsciiAlnum(c) || isDigit(c))
            return Intermediate;
    if (text[0] == U'.' || text[at - 1] == U'.')
        return Intermediate;
    return Acceptable;
}
