#pragma once
// The input rules a line edit can enforce. A text is Invalid (the edit that made it is
// refused), Intermediate (may still become acceptable while typing, "192.168.") or
// Acceptable.
#include <string>

class VyValidator {
public:
    enum Kind { None, Digits, IPv4Address, Port, EmailAddress };
    enum State { Invalid, Intermediate, Acceptable };

    static State validate(Kind kind, const std::u32string& text);

private:
    static State digits(const std::u32string& text);
    static State ipv4(const std::u32string& text);
    static State port(const std::u32string& text);
    static State email(const std::u32string& text);
};
