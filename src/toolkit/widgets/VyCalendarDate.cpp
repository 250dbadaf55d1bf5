#include "toolkit/widgets/VyCalendarDate.h"

namespace {

// 1 Farvardin 1403 is 2024-03-20; years around it are counted from there.
constexpr int kAnchorPersianYear = 1403;
constexpr int kPersianYearRange = 700; // further than any date a recorder holds

long long anchorDay() {
    static const long long day = VyDate(2024, 3, 20).toJulianDay();
    return day;
}

long long persianNewYearDay(int year) {
    long long day = anchorDay();
    if (year >= kAnchorPersianYear) {
        for (int y = kAnchorPersianYear; y < year; ++y)
            day += VyCalendarDate::isPersianLeapYear(y) ? 366 : 365;
    } else {
        for (int y = kAnchorPersianYear - 1; y >= year; --y)
            day -= VyCalendarDate::isPersianLeapYear(y) ? 366 : 365;
    }
    return day;
}

} // namespace

bool VyCalendarDate::isPersianLeapYear(int year) {
    long long r = (25LL * year + 11) % 33;
    if (r < 0)
        r += 33;
    return r < 8;
}

int VyCalendarDate::daysInMonth(bool persian, int year, int month) {
    if (month < 1 || month > 12)
        return 0;
    if (!persian)
        return VyDate::daysInMonth(year, month);
    if (month <= 6)
        return 31;
    if (month <= 11)
        return 30;
    return isPersianLeapYear(year) ? 30 : 29;
}

void VyCalendarDate::fields(const VyDate& date, bool persian, int* year, int* month, int* day) {
    if (persian && date.isValid())
        date.getPersianDate(year, month, day);
    else
        date.getDate(year, month, day);
}

VyDate VyCalendarDate::toDate(bool persian, int year, int month, int day) {
    if (!persian)
        return VyDate(year, month, day);
    if (year < kAnchorPersianYear - kPersianYearRange ||
        year > kAnchorPersianYear + kPersianYearRange || day < 1 ||
        day > daysInMonth(true, year, month))
        return VyDate();
    const int before = month <= 7 ? (month - 1) * 31 : 186 + (month - 7) * 30;
    return VyDate::fromJulianDay(persianNewYearDay(year) + before + day - 1);
}

VyDate VyCalendarDate::addMonths(const VyDate& date, bool persian, int months) {
    if (!date.isValid())
        return VyDate();
    if (!persian)
        return date.addMonths(months);
    int y = 0;
    int m = 0;
    int d = 0;
    fields(date, true, &y, &m, &d);
    const int index = y * 12 + (m - 1) + months;
    y = index >= 0 ? index / 12 : (index - 11) / 12;
    m = index - y * 12 + 1;
    const int last = daysInMonth(true, y, m);
    return toDate(true, y, m, d > last ? last : d);
}

VyDate VyCalendarDate::addYears(const VyDate& date, bool persian, int years) {
    return addMonths(date, persian, years * 12);
}

VyDate VyCalendarDate::firstOfMonth(const VyDate& date, bool persian) {
    int y = 0;
    int m = 0;
    int d = 0;
    fields(date, persian, &y, &m, &d);
    return toDate(persian, y, m, 1);
}
