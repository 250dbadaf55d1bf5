#pragma once
// A calendar date in the proleptic Gregorian calendar, years 1 to 9999, stored as a Julian
// day number. A default-constructed date, or one built from impossible fields, is invalid;
// arithmetic on an invalid date yields an invalid date, and arithmetic that leaves the
// year range yields an invalid date too.
//
// Date mode: the recorder can show dates in the Solar Hijri (Persian) calendar (the
// device customisation's "UsePersianDate" and the date-mode byte of the system
// information). setDateMode(true) makes toString() render the year, month and day of the
// Persian date; everything else (fields, arithmetic, parsing, comparisons) stays
// Gregorian. The conversion is the arithmetic 33-year leap cycle (a year is leap when
// (25 * year + 11) mod 33 < 8), anchored at 1 Farvardin 1403 = 2024-03-20; it agrees with
// the astronomical calendar from 1178 to 1634 (1799 to 2256 Gregorian).
#include "runtime/VyString.h"

class VyDate {
public:
    VyDate() = default;
    VyDate(int year, int month, int day);

    static bool isValid(int year, int month, int day);
    static bool isLeapYear(int year);
    static int daysInMonth(int year, int month);
    static VyDate currentDate();
    static VyDate fromJulianDay(long long julianDay);
    // Gregorian fields only; invalid when the text does not match or the date is impossible.
    static VyDate fromString(const VyString& text, const VyString& format);

    static void setDateMode(bool persian);
    static bool dateMode();

    bool isValid() const { return m_julianDay != kInvalidDay; }
    bool isNull() const { return !isValid(); }
    bool setDate(int year, int month, int day);
    void getDate(int* year, int* month, int* day) const;
    // The fields read 0 on an invalid date.
    int year() const;
    int month() const;
    int day() const;
    // 1 = Monday ... 7 = Sunday.
    int dayOfWeek() const;
    int dayOfYear() const;
    int daysInMonth() const;
    int daysInYear() const;
    void getPersianDate(int* year, int* month, int* day) const;

    VyDate addDays(long long days) const;
    // Keeps the day of month where possible, else the last day of the new month
    // (Jan 31 + 1 month = Feb 28 or 29).
    VyDate addMonths(int months) const;
    VyDate addYears(int years) const;
    // Days from this date to other (negative when other is earlier); 0 if either is invalid.
    long long daysTo(const VyDate& other) const;
    long long toJulianDay() const { return m_julianDay; }

    // An invalid date gives an empty string.
    VyString toString(const VyString& format) const;

    bool operator==(const VyDate& o) const { return m_julianDay == o.m_julianDay; }
    bool operator!=(const VyDate& o) const { return m_julianDay != o.m_julianDay; }
    bool operator<(const VyDate& o) const { return m_julianDay < o.m_julianDay; }
    bool operator<=(const VyDate& o) const { return m_julianDay <= o.m_julianDay; }
    bool operator>(const VyDate& o) const { return m_julianDay > o.m_julianDay; }
    bool operator>=(const VyDate& o) const { return m_julianDay >= o.m_julianDay; }

private:
    static constexpr long long kInvalidDay = -1;

    long long m_julianDay = kInvalidDay;
};
