#include "runtime/VyString.h"

#include "runtime/VyLog.h"
#include "runtime/VyStringList.h"

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr char32_t kReplacementChar = 0xFFFD;
constexpr char32_t kMaxCodePoint = 0x10FFFF;

bool isContinuation(unsigned char c) {
    return (c & 0xC0) == 0x80;
}

// Decodes the code point starting at byte pos and returns the position after it. Invalid
// or truncated sequences consume exactly one byte and yield U+FFFD, so every byte belongs
// to exactly one position and counting never stalls.
size_t decodeAt(const std::string& s, size_t pos, char32_t* cp) {
    const auto b0 = static_cast<unsigned char>(s[pos]);
    const size_t rest = s.size() - pos;
    if (b0 < 0x80) {
        *cp = b0;
        return pos + 1;
    }
    int need = 0;
    char32_t value = 0;
    unsigned char lo = 0x80, hi = 0xBF; // allowed range of the second byte
    if (b0 >= 0xC2 && b0 <= 0xDF) {
        need = 1;
        value = b0 & 0x1F;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
        need = 2;
        value = b0 & 0x0F;
        if (b0 == 0xE0)
            lo = 0xA0; // overlong
        if (b0 == 0xED)
            hi = 0x9F; // surrogates
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
        need = 3;
        value = b0 & 0x07;
        if (b0 == 0xF0)
            lo = 0x90; // overlong
        if (b0 == 0xF4)
            hi = 0x8F; // above U+10FFFF
    } else {
        *cp = kReplacementChar;
        return pos + 1;
    }
    if (rest < static_cast<size_t>(need) + 1) {
        *cp = kReplacementChar;
        return pos + 1;
    }
    const auto b1 = static_cast<unsigned char>(s[pos + 1]);
    if (b1 < lo || b1 > hi) {
        *cp = kReplacementChar;
        return pos + 1;
    }
    value = (value << 6) | (b1 & 0x3F);
    for (int i = 2; i <= need; ++i) {
        const auto b = static_cast<unsigned char>(s[pos + i]);
        if (!isContinuation(b)) {
            *cp = kReplacementChar;
            return pos + 1;
        }
        value = (value << 6) | (b & 0x3F);
    }
    *cp = value;
    return pos + need + 1;
}

size_t nextPos(const std::string& s, size_t pos) {
    char32_t cp;
    return decodeAt(s, pos, &cp);
}

void appendUtf8(std::string& out, char32_t cp) {
    if (cp > kMaxCodePoint || (cp >= 0xD800 && cp <= 0xDFFF))
        cp = kReplacementChar;
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (cp >> 18));
        out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// Byte offset of code point index n (clamped to the end of the text).
size_t byteOffsetOf(const std::string& s, int n) {
    size_t pos = 0;
    for (int i = 0; i < n && pos < s.size(); ++i)
        pos = nextPos(s, pos);
    return pos;
}

int codePointsBefore(const std::string& s, size_t bytePos) {
    int count = 0;
    for (size_t pos = 0; pos < bytePos && pos < s.size(); pos = nextPos(s, pos))
        ++count;
    return count;
}

bool isAsciiSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

int digitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'Z')
        return c - 'A' + 10;
    return 99;
}

bool validBase(int base) {
    return base >= 2 && base <= 36;
}

std::string unsignedToText(unsigned long long n, int base) {
    if (!validBase(base)) {
        vyFrameworkLog("VyString::number: invalid base %d, using 10 !!!\n", base);
        base = 10;
    }
    if (n == 0)
        return "0";
    char buf[65]; // 64 binary digits at most
    int pos = sizeof(buf);
    while (n) {
        const int d = static_cast<int>(n % static_cast<unsigned>(base));
        buf[--pos] = static_cast<char>(d < 10 ? '0' + d : 'a' + d - 10);
        n /= static_cast<unsigned>(base);
    }
    return std::string(buf + pos, sizeof(buf) - pos);
}

std::string signedToText(long long n, int base) {
    if (n >= 0)
        return unsignedToText(static_cast<unsigned long long>(n), base);
    // Negating through unsigned keeps LLONG_MIN defined.
    return "-" + unsignedToText(0ULL - static_cast<unsigned long long>(n), base);
}

// Reads blanks, a sign and digits. Returns false when no digit was read or the magnitude
// does not fit in 64 bits.
bool parseInteger(const std::string& s, int base, bool* negative, unsigned long long* magnitude) {
    *negative = false;
    *magnitude = 0;
    size_t i = 0;
    while (i < s.size() && isAsciiSpace(s[i]))
        ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
        *negative = s[i] == '-';
        ++i;
    }
    const bool hasHexPrefix =
        i + 1 < s.size() && s[i] == '0' && (s[i + 1] == 'x' || s[i + 1] == 'X');
    if (base == 0) {
        if (hasHexPrefix) {
            base = 16;
            i += 2;
        } else if (i < s.size() && s[i] == '0') {
            base = 8;
        } else {
            base = 10;
        }
    } else if (base == 16 && hasHexPrefix) {
        i += 2;
    }
    if (!validBase(base)) {
        vyFrameworkLog("VyString: invalid conversion base %d !!!\n", base);
        return false;
    }
    bool anyDigit = false;
    unsigned long long value = 0;
    const auto ubase = static_cast<unsigned long long>(base);
    for (; i < s.size(); ++i) {
        const int d = digitValue(s[i]);
        if (d >= base)
            break;
        anyDigit = true;
        if (value > (ULLONG_MAX - static_cast<unsigned long long>(d)) / ubase)
            return false;
        value = value * ubase + static_cast<unsigned long long>(d);
    }
    *magnitude = value;
    return anyDigit;
}

bool toSigned(const std::string& s, int base, long long minValue, long long maxValue,
              long long* out) {
    bool negative;
    unsigned long long magnitude;
    *out = 0;
    if (!parseInteger(s, base, &negative, &magnitude))
        return false;
    if (negative) {
        if (magnitude > 0ULL - static_cast<unsigned long long>(minValue))
            return false;
        *out = static_cast<long long>(0ULL - magnitude);
        return true;
    }
    if (magnitude > static_cast<unsigned long long>(maxValue))
        return false;
    *out = static_cast<long long>(magnitude);
    return true;
}

bool toUnsigned(const std::string& s, int base, unsigned long long maxValue,
                unsigned long long* out) {
    bool negative;
    unsigned long long magnitude;
    *out = 0;
    if (!parseInteger(s, base, &negative, &magnitude))
        return false;
    if ((negative && magnitude != 0) || magnitude > maxValue)
        return false;
    *out = magnitude;
    return true;
}

template <typename T>
T reportResult(bool good, T value, bool* ok) {
    if (ok)
        *ok = good;
    return good ? value : T(0);
}

// Simple case mapping for the scripts the interface ships translations in (Latin-1, Latin
// Extended-A, Greek, Cyrillic); everything else maps to itself.
char32_t mapCase(char32_t c, bool upper) {
    if (upper) {
        if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7) ||
            (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) || (c >= 0x430 && c <= 0x44F))
            return c - 0x20;
        if (c == 0xFF)
            return 0x178;
        if (c >= 0x450 && c <= 0x45F)
            return c - 0x50;
        if (c >= 0x100 && c <= 0x137 && (c & 1))
            return c - 1;
        if (c >= 0x14A && c <= 0x177 && (c & 1))
            return c - 1;
        return c;
    }
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) ||
        (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) || (c >= 0x410 && c <= 0x42F))
        return c + 0x20;
    if (c == 0x178)
        return 0xFF;
    if (c >= 0x400 && c <= 0x40F)
        return c + 0x50;
    if (c >= 0x100 && c <= 0x137 && !(c & 1))
        return c + 1;
    if (c >= 0x14A && c <= 0x177 && !(c & 1))
        return c + 1;
    return c;
}

VyString mapString(const std::string& s, bool upper) {
    std::string out;
    out.reserve(s.size());
    for (size_t pos = 0; pos < s.size();) {
        char32_t cp;
        const size_t next = decodeAt(s, pos, &cp);
        if (cp == kReplacementChar) // keep undecodable bytes as they were
            out.append(s, pos, next - pos);
        else
            appendUtf8(out, mapCase(cp, upper));
        pos = next;
    }
    return VyString(std::move(out));
}

// Finds "%N" placeholders; a digit after the first makes it two-digit ("%10").
struct Placeholder {
    size_t pos;
    size_t len;
    int number;
};

bool placeholderAt(const std::string& s, size_t i, Placeholder* p) {
    if (s[i] != '%' || i + 1 >= s.size())
        return false;
    const char d1 = s[i + 1];
    if (d1 < '1' || d1 > '9')
        return false;
    p->pos = i;
    p->len = 2;
    p->number = d1 - '0';
    if (i + 2 < s.size() && s[i + 2] >= '0' && s[i + 2] <= '9') {
        p->len = 3;
        p->number = p->number * 10 + (s[i + 2] - '0');
    }
    return true;
}

} // namespace

VyString::VyString(const char* utf8)
    : m_utf8(utf8 ? utf8 : "") {}

VyString::VyString(const char* utf8, int byteCount) {
    if (!utf8)
        return;
    if (byteCount < 0)
        m_utf8 = utf8;
    else
        m_utf8.assign(utf8, static_cast<size_t>(byteCount));
}

VyString VyString::fromUtf8(const char* utf8, int byteCount) {
    return VyString(utf8, byteCount);
}

VyString VyString::number(int n, int base) {
    return VyString(signedToText(n, base));
}
VyString VyString::number(unsigned n, int base) {
    return VyString(unsignedToText(n, base));
}
VyString VyString::number(long n, int base) {
    return VyString(signedToText(n, base));
}
VyString VyString::number(unsigned long n, int base) {
    return VyString(unsignedToText(n, base));
}
VyString VyString::number(long long n, int base) {
    return VyString(signedToText(n, base));
}
VyString VyString::number(unsigned long long n, int base) {
    return VyString(unsignedToText(n, base));
}

VyString VyString::number(double n, char format, int precision) {
    if (format != 'f' && format != 'e' && format != 'g' && format != 'E' && format != 'G')
        format = 'g';
    if (precision < 0)
        precision = 6;
    if (precision > 99) // keeps the output within the buffer below
        precision = 99;
    const char fmt[] = {'%', '.', '*', format, '\0'};
    char buf[512]; // "%.99f" of the largest double is about 410 characters
    const int len = std::snprintf(buf, sizeof(buf), fmt, precision, n);
    if (len < 0)
        return VyString();
    return VyString(buf,
                    len < static_cast<int>(sizeof(buf)) ? len : static_cast<int>(sizeof(buf)) - 1);
}

int VyString::length() const {
    int count = 0;
    for (size_t pos = 0; pos < m_utf8.size(); pos = nextPos(m_utf8, pos))
        ++count;
    return count;
}

VyString VyString::arg(const VyString& value) const {
    int lowest = 100;
    Placeholder p;
    for (size_t i = 0; i < m_utf8.size(); ++i) {
        if (placeholderAt(m_utf8, i, &p)) {
            if (p.number < lowest)
                lowest = p.number;
            i += p.len - 1;
        }
    }
    if (lowest == 100) {
        VY_DEBUG("string", "VyString::arg: no placeholder left in \"%s\"\n", m_utf8.c_str());
        return *this;
    }
    std::string out;
    out.reserve(m_utf8.size() + value.m_utf8.size());
    for (size_t i = 0; i < m_utf8.size();) {
        if (placeholderAt(m_utf8, i, &p)) {
            if (p.number == lowest)
                out += value.m_utf8;
            else
                out.append(m_utf8, i, p.len);
            i += p.len;
        } else {
            out += m_utf8[i];
            ++i;
        }
    }
    return VyString(std::move(out));
}

VyString VyString::arg(double value, char format, int precision) const {
    return arg(number(value, format, precision));
}

int VyString::toInt(bool* ok, int base) const {
    long long v;
    const bool good = toSigned(m_utf8, base, INT_MIN, INT_MAX, &v);
    return reportResult(good, static_cast<int>(v), ok);
}

unsigned VyString::toUInt(bool* ok, int base) const {
    unsigned long long v;
    const bool good = toUnsigned(m_utf8, base, UINT_MAX, &v);
    return reportResult(good, static_cast<unsigned>(v), ok);
}

long long VyString::toLongLong(bool* ok, int base) const {
    long long v;
    const bool good = toSigned(m_utf8, base, LLONG_MIN, LLONG_MAX, &v);
    return reportResult(good, v, ok);
}

unsigned long long VyString::toULongLong(bool* ok, int base) const {
    unsigned long long v;
    const bool good = toUnsigned(m_utf8, base, ULLONG_MAX, &v);
    return reportResult(good, v, ok);
}

double VyString::toDouble(bool* ok) const {
    const char* begin = m_utf8.c_str();
    char* end = nullptr;
    const double v = std::strtod(begin, &end);
    bool good = end != begin && std::isfinite(v);
    if (good) {
        // Only blanks may follow the number.
        for (const char* c = end; *c; ++c) {
            if (!isAsciiSpace(*c)) {
                good = false;
                break;
            }
        }
    }
    return reportResult(good, v, ok);
}

VyStringList VyString::split(const VyString& separator, SplitBehavior behavior) const {
    VyStringList parts;
    const std::string& sep = separator.m_utf8;
    if (sep.empty()) {
        if (!isEmpty() || behavior == KeepEmptyParts)
            parts.append(*this);
        return parts;
    }
    size_t start = 0;
    while (true) {
        const size_t hit = m_utf8.find(sep, start);
        const size_t end = hit == std::string::npos ? m_utf8.size() : hit;
        if (end > start || behavior == KeepEmptyParts)
            parts.append(VyString(m_utf8.substr(start, end - start)));
        if (hit == std::string::npos)
            break;
        start = hit + sep.size();
    }
    return parts;
}

VyStringList VyString::split(char separator, SplitBehavior behavior) const {
    const char sep[2] = {separator, '\0'};
    return split(VyString(sep, 1), behavior);
}

VyString VyString::trimmed() const {
    size_t begin = 0;
    size_t end = m_utf8.size();
    while (begin < end && isAsciiSpace(m_utf8[begin]))
        ++begin;
    while (end > begin && isAsciiSpace(m_utf8[end - 1]))
        --end;
    return VyString(m_utf8.substr(begin, end - begin));
}

VyString& VyString::remove(const VyString& text) {
    return replace(text, VyString());
}

VyString& VyString::remove(char c) {
    const char text[2] = {c, '\0'};
    return replace(VyString(text, 1), VyString());
}

VyString& VyString::replace(const VyString& before, const VyString& after) {
    const std::string& from = before.m_utf8;
    if (from.empty())
        return *this;
    std::string out;
    out.reserve(m_utf8.size());
    size_t start = 0;
    for (size_t hit; (hit = m_utf8.find(from, start)) != std::string::npos;
         start = hit + from.size()) {
        out.append(m_utf8, start, hit - start);
        out += after.m_utf8;
    }
    out.append(m_utf8, start, std::string::npos);
    m_utf8 = std::move(out);
    return *this;
}

bool VyString::startsWith(const VyString& prefix) const {
    return m_utf8.compare(0, prefix.m_utf8.size(), prefix.m_utf8) == 0;
}

bool VyString::endsWith(const VyString& suffix) const {
    const std::string& s = suffix.m_utf8;
    return s.size() <= m_utf8.size() && m_utf8.compare(m_utf8.size() - s.size(), s.size(), s) == 0;
}

bool VyString::contains(const VyString& text) const {
    return m_utf8.find(text.m_utf8) != std::string::npos;
}

bool VyString::contains(char c) const {
    return m_utf8.find(c) != std::string::npos;
}

int VyString::indexOf(const VyString& text, int from) const {
    if (from < 0) {
        from += length();
        if (from < 0)
            from = 0;
    }
    const size_t start = byteOffsetOf(m_utf8, from);
    if (start == m_utf8.size() && from > codePointsBefore(m_utf8, start))
        return -1; // from is past the end
    const size_t hit = m_utf8.find(text.m_utf8, start);
    if (hit == std::string::npos)
        return -1;
    return codePointsBefore(m_utf8, hit);
}

VyString VyString::left(int n) const {
    if (n < 0)
        return *this;
    return VyString(m_utf8.substr(0, byteOffsetOf(m_utf8, n)));
}

VyString VyString::right(int n) const {
    if (n < 0)
        return *this;
    const int len = length();
    if (n >= len)
        return *this;
    return VyString(m_utf8.substr(byteOffsetOf(m_utf8, len - n)));
}

VyString VyString::mid(int position, int n) const {
    const int len = length();
    if (position > len)
        return VyString();
    if (position < 0) {
        // A window starting before the text keeps only its part inside the text.
        if (n < 0 || n + position >= len)
            return *this;
        if (n + position <= 0)
            return VyString();
        n += position;
        position = 0;
    } else if (n < 0 || n > len - position) {
        n = len - position;
    }
    const size_t begin = byteOffsetOf(m_utf8, position);
    size_t end = begin;
    for (int i = 0; i < n && end < m_utf8.size(); ++i)
        end = nextPos(m_utf8, end);
    return VyString(m_utf8.substr(begin, end - begin));
}

VyString VyString::toUpper() const {
    return mapString(m_utf8, true);
}

VyString VyString::toLower() const {
    return mapString(m_utf8, false);
}

std::u32string VyString::toUcs4() const {
    std::u32string out;
    out.reserve(m_utf8.size());
    for (size_t pos = 0; pos < m_utf8.size();) {
        char32_t cp;
        pos = decodeAt(m_utf8, pos, &cp);
        out += cp;
    }
    return out;
}

VyString VyString::fromUcs4(const std::u32string& text) {
    std::string out;
    out.reserve(text.size());
    for (char32_t cp : text)
        appendUtf8(out, cp);
    return VyString(std::move(out));
}
