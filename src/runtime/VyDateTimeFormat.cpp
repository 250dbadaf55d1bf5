#include "runtime/VyDateTimeFormat.h"

#include <cstdio>
#include <vector>

namespace {

enum class Tok {
    Literal,
    Year4,
    Year2,
    Month2,
    Month1,
    Day2,
    Day1,
    Hour2,
    Hour1,
    Hour24_2,
    Hour24_1,
    Minute2,
    Minute1,
    Second2,
    Second1,
    Msec3,
    Msec1,
    AmPmUpper,
    AmPmLower
};

struct Token {
    Tok kind;
    std::string text; // the literal, or the token as written
};

int runLength(const std::string& f, size_t i) {
    size_t j = i;
    while (j < f.size() && f[j] == f[i])
        ++j;
    return static_cast<int>(j - i);
}

std::vector<Token> tokenize(const std::string& f) {
    std::vector<Token> out;
    auto literal = [&out](const std::string& s) {
        if (!out.empty() && out.back().kind == Tok::Literal)
            out.back().text += s;
        else
            out.push_back({Tok::Literal, s});
    };
    for (size_t i = 0; i < f.size();) {
        const char c = f[i];
        const int run = runLength(f, i);
        Tok kind = Tok::Literal;
        int width = 1;
        switch (c) {
        case 'y':
            if (run >= 4) {
                kind = Tok::Year4;
                width = 4;
            } else if (run >= 2) {
                kind = Tok::Year2;
                width = 2;
            }
            break;
        case 'M':
            width = run >= 2 ? 2 : 1;
            kind = width == 2 ? Tok::Month2 : Tok::Month1;
            break;
        case 'd':
            width = run >= 2 ? 2 : 1;
            kind = width == 2 ? Tok::Day2 : Tok::Day1;
            break;
        case 'h':
            width = run >= 2 ? 2 : 1;
            kind = width == 2 ? Tok::Hour2 : Tok::Hour1;
            break;
        case 'H':
            width = run >= 2 ? 2 : 1;
            kind = width == 2 ? Tok::Hour24_2 : Tok::Hour24_1;
            break;
        case 'm':
            width = run >= 2 ? 2 : 1;
            kind = width == 2 ? Tok::Minute2 : Tok::Minute1;
            break;
        case 's':
            width = run >= 2 ? 2 : 1;
            kind = width == 2 ? Tok::Second2 : Tok::Second1;
            break;
        case 'z':
            width = run >= 3 ? 3 : 1;
            kind = width == 3 ? Tok::Msec3 : Tok::Msec1;
            break;
        case 'A':
        case 'a': {
            const char p = c == 'A' ? 'P' : 'p';
            width = i + 1 < f.size() && f[i + 1] == p ? 2 : 1;
            kind = c == 'A' ? Tok::AmPmUpper : Tok::AmPmLower;
            break;
        }
        case '\'': {
            // Quoted literal; a doubled quote stands for one quote.
            if (i + 1 < f.size() && f[i + 1] == '\'') {
                literal("'");
                i += 2;
                continue;
            }
            std::string text;
            size_t j = i + 1;
            while (j < f.size()) {
                if (f[j] == '\'') {
                    if (j + 1 < f.size() && f[j + 1] == '\'') {
                        text += '\'';
                        j += 2;
                        continue;
                    }
                    break;
                }
                text += f[j++];
            }
            literal(text);
            i = j + 1; // past the closing quote (or the end)
            continue;
        }
        default:
            break;
        }
        if (kind == Tok::Literal)
            literal(std::string(1, c));
        else
            out.push_back({kind, f.substr(i, static_cast<size_t>(width))});
        i += static_cast<size_t>(width);
    }
    return out;
}

bool isDateToken(Tok t) {
    return t >= Tok::Year4 && t <= Tok::Day1;
}

bool isTimeToken(Tok t) {
    return t >= Tok::Hour2;
}

bool hasAmPm(const std::vector<Token>& tokens) {
    for (const Token& t : tokens)
        if (t.kind == Tok::AmPmUpper || t.kind == Tok::AmPmLower)
            return true;
    return false;
}

void appendNumber(std::string& out, int value, int width) {
    char buf[16];
    std::snprintf(buf, sizeof(buf), "%0*d", width, value);
    out += buf;
}

// Reads between minDigits and maxDigits decimal digits at pos.
bool readNumber(const std::string& s, size_t* pos, int minDigits, int maxDigits, int* value) {
    int digits = 0;
    int v = 0;
    while (digits < maxDigits && *pos < s.size() && s[*pos] >= '0' && s[*pos] <= '9') {
        v = v * 10 + (s[*pos] - '0');
        ++*pos;
        ++digits;
    }
    *value = v;
    return digits >= minDigits;
}

bool matchNoCase(const std::string& s, size_t pos, const char* word) {
    for (size_t k = 0; word[k]; ++k) {
        if (pos + k >= s.size())
            return false;
        char c = s[pos + k];
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
        if (c != word[k])
            return false;
    }
    return true;
}

} // namespace

VyString VyDateTimeFormat::format(const VyString& format, const Fields& f) {
    const std::vector<Token> tokens = tokenize(format.toStdString());
    const bool twelveHour = hasAmPm(tokens);
    int hour12 = f.hour % 12;
    if (hour12 == 0)
        hour12 = 12; // 00:xx reads 12 AM, 12:xx reads 12 PM
    std::string out;
    for (const Token& t : tokens) {
        if ((isDateToken(t.kind) && !f.hasDate) || (isTimeToken(t.kind) && !f.hasTime)) {
            out += t.text;
            continue;
        }
        switch (t.kind) {
        case Tok::Literal:
            out += t.text;
            break;
        case Tok::Year4:
            appendNumber(out, f.year, 4);
            break;
        case Tok::Year2:
            appendNumber(out, ((f.year % 100) + 100) % 100, 2);
            break;
        case Tok::Month2:
            appendNumber(out, f.month, 2);
            break;
        case Tok::Month1:
            appendNumber(out, f.month, 1);
            break;
        case Tok::Day2:
            appendNumber(out, f.day, 2);
            break;
        case Tok::Day1:
            appendNumber(out, f.day, 1);
            break;
        case Tok::Hour2:
            appendNumber(out, twelveHour ? hour12 : f.hour, 2);
            break;
        case Tok::Hour1:
            appendNumber(out, twelveHour ? hour12 : f.hour, 1);
            break;
        case Tok::Hour24_2:
            appendNumber(out, f.hour, 2);
            break;
        case Tok::Hour24_1:
            appendNumber(out, f.hour, 1);
            break;
        case Tok::Minute2:
            appendNumber(out, f.minute, 2);
            break;
        case Tok::Minute1:
            appendNumber(out, f.minute, 1);
            break;
        case Tok::Second2:
            appendNumber(out, f.second, 2);
            break;
        case Tok::Second1:
            appendNumber(out, f.second, 1);
            break;
        case Tok::Msec3:
            appendNumber(out, f.msec, 3);
            break;
        case Tok::Msec1:
            appendNumber(out, f.msec, 1);
            break;
        case Tok::AmPmUpper:
            out += f.hour < 12 ? "AM" : "PM";
            break;
        case Tok::AmPmLower:
            out += f.hour < 12 ? "am" : "pm";
            break;
        }
    }
    return VyString(std::move(out));
}

bool VyDateTimeFormat::parse(const VyString& text, const VyString& format, Fields* f) {
    const std::vector<Token> tokens = tokenize(format.toStdString());
    const bool twelveHour = hasAmPm(tokens);
    const std::string& s = text.toStdString();
    size_t pos = 0;
    int pm = -1; // -1 no marker, 0 AM, 1 PM
    bool hourIs12 = false;
    for (const Token& t : tokens) {
        int v = 0;
        bool good = true;
        switch (t.kind) {
        case Tok::Literal:
            good = s.compare(pos, t.text.size(), t.text) == 0;
            pos += t.text.size();
            break;
        case Tok::Year4:
            good = readNumber(s, &pos, 4, 4, &f->year);
            break;
        case Tok::Year2:
            good = readNumber(s, &pos, 2, 2, &v);
            f->year = 2000 + v;
            break;
        case Tok::Month2:
        case Tok::Month1:
            good = readNumber(s, &pos, t.kind == Tok::Month2 ? 2 : 1, 2, &f->month);
            break;
        case Tok::Day2:
        case Tok::Day1:
            good = readNumber(s, &pos, t.kind == Tok::Day2 ? 2 : 1, 2, &f->day);
            break;
        case Tok::Hour2:
        case Tok::Hour1:
        case Tok::Hour24_2:
        case Tok::Hour24_1: {
            const bool two = t.kind == Tok::Hour2 || t.kind == Tok::Hour24_2;
            hourIs12 = twelveHour && (t.kind == Tok::Hour2 || t.kind == Tok::Hour1);
            good = readNumber(s, &pos, two ? 2 : 1, 2, &f->hour);
            break;
        }
        case Tok::Minute2:
        case Tok::Minute1:
            good = readNumber(s, &pos, t.kind == Tok::Minute2 ? 2 : 1, 2, &f->minute);
            break;
        case Tok::Second2:
        case Tok::Second1:
            good = readNumber(s, &pos, t.kind == Tok::Second2 ? 2 : 1, 2, &f->second);
            break;
        case Tok::Msec3:
        case Tok::Msec1:
            good = readNumber(s, &pos, t.kind == Tok::Msec3 ? 3 : 1, 3, &f->msec);
            break;
        case Tok::AmPmUpper:
        case Tok::AmPmLower:
            if (matchNoCase(s, pos, "AM"))
                pm = 0;
            else if (matchNoCase(s, pos, "PM"))
                pm = 1;
            else
                good = false;
            pos += 2;
            break;
        }
        if (!good)
            return false;
        if (isDateToken(t.kind))
            f->hasDate = true;
        if (isTimeToken(t.kind))
            f->hasTime = true;
    }
    if (pos != s.size())
        return false;
    if (hourIs12 && pm >= 0) {
        if (f->hour < 1 || f->hour > 12)
            return false;
        f->hour = f->hour % 12 + (pm ? 12 : 0);
    }
    return true;
}
