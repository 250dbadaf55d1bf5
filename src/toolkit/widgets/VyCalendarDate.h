#pragma once
// Dates as the controls show them: Gregorian fields, or Solar Hijri fields when the recorder
// runs in that date mode. VyDate stays Gregorian underneath; this turns its days into the
// fields of either calendar and back, and steps by months and years in the calendar shown
// (a day past the end of the new month becomes its last day). Solar Hijri leap years follow
// the same 33-year rule as VyDate's Persian rendering, so both agree on every day.
#include "runtime/VyDate.h"

class VyCalendarDate {
public:
    static bool isPersianLeapYear(int year);
    // 0 for a month outside 1..12.
    static int daysInMonth(bool persian, int year, int month);
    static void fields(const VyDate& date, bool persian, int* year, int* month, int* day);
    // Invalid when the fields name no day (or one outside VyDate's range).
    static VyDate toDate(bool persian, int year, int month, int day);
    static VyDate addMonths(const VyDate& date, bool persian, int months);
    static VyDate addYears(const VyDate& date, bool persian, int years);
    // The first day of the month that holds the date.
    static VyDate firstOfMonth(const VyDate& date, bool persian);
};
