#include "runtime/VyDate.h"

#include "runtime/VyDateTime.h"
#include "runtime/VyDateTimeFormat.h"

#include <atomic>

namespace {

constexpr long long kFirstDay = 1721426; // Julian day of 0001-01-01
constexpr long long kLastDay = 5373484;  // Julian day of 9999-12-31

// Solar Hijri anchor: 1 Farvardin 1403 is 2024-03-20.
constexpr int kPersianAnchorYear = 1403;
constexpr long long kPersianAnchorDay = 2460390;
constexpr long long kDaysPer33Years = 33 * 365 + 8;

std::atomic<bool> g_persianDateMode{false};

long long floorDiv(long long a, long long b) {
    long long q = a / b;
    if ((a % b != 0) && ((a < 0) != (b < 0)))
        --q;
    return q;
}

long long julianDayFromDate(int year, int month, int day) {
    // Fliegel and Van Flandern, with floor division so that it holds for every year.
    const long long a = floorDiv(14 - month, 12);
    const long long y = static_cast<long long>(year) + 4800 - a;
    const long long m = month + 12 * a - 3;
    return day + floorDiv(153 * m + 2, 5) + 365 * y + floorDiv(y, 4) - floorDiv(y, 100) +
           floorDiv(y, 400) - 32045;
}

void dateFromJulianDay(long long jd, int* year, int* month, int* day) {
    const long long a = jd + 32044;
    const long long b = floorDiv(4 * a + 3, 146097);
    const long long c = a - floorDiv(146097 * b, 4);
    const long long d = floorDiv(4 * c + 3, 1461);
    const long long e = c - floorDiv(1461 * d, 4);
    const long long m = floorDiv(5 * e + 2, 153);
    *day = static_cast<int>(e - floorDiv(153 * m + 2, 5) + 1);
    *month = static_cast<int>(m + 3 - 12 * floorDiv(m, 10));
    *year = static_cast<int>(100 * b + d - 4800 + floorDiv(m, 10));
}

bool isPersianLeap(long long year) {
    long long r = (25 * year + 11) % 33;
    if (r < 0)
        r += 33;
    return r < 8;
}

// Leap years among the Persian years [0, year), negative counts for negative years.
long long persianLeapsBefore(long long year) {
    const long long cycles = floorDiv(year, 33);
    long long count = 8 * cycles;
    for (long long y = cycles * 33; y < year; ++y)
        count += isPersianLeap(y) ? 1 : 0;
    return count;
}

long long persianNewYearDay(long long year) {
    return kPersianAnchorDay + 365 * (year - kPersianAnchorYear) + persianLeapsBefore(year) -
           persianLeapsBefore(kPersianAnchorYear);
}

void persianFromJulianDay(long long jd, int* year, int* month, int* day) {
    long long y = kPersianAnchorYear + floorDiv((jd - kPersianAnchorDay) * 33, kDaysPer33Years);
    while (persianNewYearDay(y + 1) <= jd)
        ++y;
    while (persianNewYearDay(y) > jd)
        --y;
    const long long dayOfYear = jd - persianNewYearDay(y); // 0-based
    // Months 1..6 have 31 days, 7..11 have 30, the last 29 (30 in a leap year).
    if (dayOfYear < 186) {
        *month = static_cast<int>(dayOfYear / 31 + 1);
        *day = static_cast<int>(dayOfYear % 31 + 1);
    } else {
        *month = static_cast<int>((dayOfYear - 186) / 30 + 7);
        *day = static_cast<int>((dayOfYear - 186) % 30 + 1);
    }
    *year = static_cast<int>(y);
}

VyDate validOrNull(long long jd) {
    return jd >= kFirstDay && jd <= kLastDay ? VyDate::fromJulianDay(jd) : VyDate();
}

} // namespace

VyDate::VyDate(int year, int month, int day) {
    setDate(year, month, day);
}

bool VyDate::isLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int VyDate::daysInMonth(int year, int month) {
    static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

bool VyDate::isValid(int year, int month, int day) {
    return year >= 1 && year <= 9999 && day >= 1 && day <= daysInMonth(year, month);
}

VyDate VyDate::currentDate() {
    return VyDateTime::currentDateTime().date();
}

VyDate VyDate::fromJulianDay(long long julianDay) {
    VyDate d;
    if (julianDay >= kFirstDay && julianDay <= kLastDay)
        d.m_julianDay = julianDay;
    return d;
}

VyDate VyDate::fromString(const VyString& text, const VyString& format) {
    VyDateTimeFormat::Fields f;
    if (!VyDateTimeFormat::parse(text, format, &f))
        return VyDate();
    return VyDate(f.year, f.month, f.day);
}

void VyDate::setDateMode(bool persian) {
    g_persianDateMode.store(persian);
}

bool VyDate::dateMode() {
    return g_persianDateMode.load();
}

bool VyDate::setDate(int year, int month, int day) {
    m_julianDay = isValid(year, month, day) ? julianDayFromDate(year, month, day) : kInvalidDay;
    return isValid();
}

void VyDate::getDate(int* year, int* month, int* day) const {
    int y = 0, m = 0, d = 0;
    if (isValid())
        dateFromJulianDay(m_julianDay, &y, &m, &d);
    if (year)
        *year = y;
    if (month)
        *month = m;
    if (day)
        *day = d;
}

int VyDate::year() const {
    int y;
    getDate(&y, nullptr, nullptr);
    return y;
}

int VyDate::month() const {
    int m;
    getDate(nullptr, &m, nullptr);
    return m;
}

int VyDate::day() const {
    int d;
    getDate(nullptr, nullptr, &d);
    return d;
}

int VyDate::dayOfWeek() const {
    if (!isValid())
        return 0;
    return static_cast<int>(m_julianDay % 7) + 1; // Julian day 0 was a Monday
}

int VyDate::dayOfYear() const {
    if (!isValid())
        return 0;
    return static_cast<int>(m_julianDay - julianDayFromDate(year(), 1, 1)) + 1;
}

int VyDate::daysInMonth() const {
    int y, m;
    getDate(&y, &m, nullptr);
    return isValid() ? daysInMonth(y, m) : 0;
}

int VyDate::daysInYear() const {
    if (!isValid())
        return 0;
    return isLeapYear(year()) ? 366 : 365;
}

void VyDate::getPersianDate(int* year, int* month, int* day) const {
    int y = 0, m = 0, d = 0;
    if (isValid())
        persianFromJulianDay(m_julianDay, &y, &m, &d);
    *year = y;
    *month = m;
    *day = d;
}

VyDate VyDate::addDays(long long days) const {
    if (!isValid() || days > kLastDay || days < -kLastDay)
        return VyDate();
    return validOrNull(m_julianDay + days);
}

VyDate VyDate::addMonths(int months) const {
    if (!isValid())
        return VyDate();
    int y, m, d;
    getDate(&y, &m, &d);
    const long long total = static_cast<long long>(y) * 12 + (m - 1) + months;
    const long long newYear = floorDiv(total, 12);
    if (newYear < 1 || newYear > 9999)
        return VyDate();
    const int newMonth = static_cast<int>(total - newYear * 12) + 1;
    const int maxDay = daysInMonth(static_cast<int>(newYear), newMonth);
    return VyDate(static_cast<int>(newYear), newMonth, d < maxDay ? d : maxDay);
}

VyDate VyDate::addYears(int years) const {
    if (years > 9999 || years < -9999) // would leave the year range anyway
        return VyDate();
    return addMonths(years * 12);
}

long long VyDate::daysTo(const VyDate& other) const {
    if (!isValid() || !other.isValid())
        return 0;
    return other.m_julianDay - m_julianDay;
}

VyString VyDate::toString(const VyString& format) const {
    if (!isValid())
        return VyString();
    VyDateTimeFormat::Fields f;
    f.hasDate = true;
    if (dateMode())
        getPersianDate(&f.year, &f.month, &f.day);
    else
        getDate(&f.year, &f.month, &f.day);
    return VyDateTimeFormat::format(format, f);
}
