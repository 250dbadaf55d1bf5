#pragma once
// A UTF-8 text with value semantics. Positions and lengths (length, left, mid, right,
// indexOf) count Unicode code points; size() counts bytes.
#include <cstdint>
#include <string>

class VyStringList;

class VyString {
public:
    enum SplitBehavior { KeepEmptyParts, SkipEmptyParts };

    VyString() = default;
    VyString(const char* utf8);
    VyString(const char* utf8, int byteCount);
    VyString(std::string utf8)
        : m_utf8(std::move(utf8)) {}

    static VyString fromUtf8(const char* utf8, int byteCount = -1);
    static VyString number(int n, int base = 10);
    static VyString number(unsigned n, int base = 10);
    static VyString number(long n, int base = 10);
    static VyString number(unsigned long n, int base = 10);
    static VyString number(long long n, int base = 10);
    static VyString number(unsigned long long n, int base = 10);
    // format 'f', 'e' or 'g' with the given precision, as printf would.
    static VyString number(double n, char format = 'g', int precision = 6);

    const std::string& toStdString() const { return m_utf8; }
    const char* c_str() const { return m_utf8.c_str(); }
    int size() const { return static_cast<int>(m_utf8.size()); }
    int length() const;
    bool isEmpty() const { return m_utf8.empty(); }
    void clear() { m_utf8.clear(); }

    // Replaces every occurrence of the lowest-numbered placeholder "%1".."%99" with the
    // value; without any placeholder the text is returned unchanged (and a warning is
    // printed on a debug channel).
    VyString arg(const VyString& value) const;
    VyString arg(const char* value) const { return arg(VyString(value)); }
    VyString arg(int value) const { return arg(number(value)); }
    VyString arg(unsigned value) const { return arg(number(value)); }
    VyString arg(long value) const { return arg(number(value)); }
    VyString arg(unsigned long value) const { return arg(number(value)); }
    VyString arg(long long value) const { return arg(number(value)); }
    VyString arg(unsigned long long value) const { return arg(number(value)); }
    VyString arg(double value, char format = 'g', int precision = -1) const;

    // Decimal (or the given base) conversion: leading blanks and an optional sign are
    // accepted, digits are read up to the first character that is not one; ok is false
    // when no digit was read or the value does not fit.
    int toInt(bool* ok = nullptr, int base = 10) const;
    unsigned toUInt(bool* ok = nullptr, int base = 10) const;
    long long toLongLong(bool* ok = nullptr, int base = 10) const;
    unsigned long long toULongLong(bool* ok = nullptr, int base = 10) const;
    // Unlike the integer conversions, only blanks may surround the number; infinities and
    // values out of range give 0 with ok false.
    double toDouble(bool* ok = nullptr) const;

    // An empty separator yields the whole text as the only part.
    VyStringList split(const VyString& separator, SplitBehavior behavior = KeepEmptyParts) const;
    VyStringList split(char separator, SplitBehavior behavior = KeepEmptyParts) const;
    VyString trimmed() const;
    VyString& remove(const VyString& text);
    VyString& remove(char c);
    VyString& replace(const VyString& before, const VyString& after);
    bool startsWith(const VyString& prefix) const;
    bool endsWith(const VyString& suffix) const;
    bool contains(const VyString& text) const;
    bool contains(char c) const;
    int indexOf(const VyString& text, int from = 0) const;
    VyString left(int n) const;
    VyString right(int n) const;
    VyString mid(int position, int n = -1) const;
    // Case mapping covers ASCII, Latin-1, most of Latin Extended-A, Greek and Cyrillic.
    VyString toUpper() const;
    VyString toLower() const;

    // Unicode code points of the text; invalid bytes become U+FFFD.
    std::u32string toUcs4() const;
    static VyString fromUcs4(const std::u32string& text);

    VyString& operator+=(const VyString& o) {
        m_utf8 += o.m_utf8;
        return *this;
    }
    VyString& operator+=(char c) {
        m_utf8 += c;
        return *this;
    }
    friend VyString operator+(VyString a, const VyString& b) { return a += b; }
    friend VyString operator+(VyString a, const char* b) { return a += VyString(b); }
    friend VyString operator+(const char* a, const VyString& b) { return VyString(a) += b; }
    bool operator==(const VyString& o) const { return m_utf8 == o.m_utf8; }
    bool operator!=(const VyString& o) const { return m_utf8 != o.m_utf8; }
    bool operator<(const VyString& o) const { return m_utf8 < o.m_utf8; }
    bool operator==(const char* o) const { return m_utf8 == (o ? o : ""); }
    bool operator!=(const char* o) const { return !(*this == o); }

private:
    std::string m_utf8;
};

namespace std {
template <>
struct hash<VyString> {
    size_t operator()(const VyString& s) const { return hash<string>()(s.toStdString()); }
};
} // namespace std
