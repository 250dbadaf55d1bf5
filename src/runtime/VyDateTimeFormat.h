#pragma once
// The format interpreter shared by VyDate, VyTime and VyDateTime.
//
// Tokens: yyyy (4-digit year), yy (2-digit year), MM/M (month with/without leading zero),
// dd/d (day), hh/h (hour; 12-hour when the format holds AP, A, ap or a), HH/H (hour, always
// 24-hour), mm/m (minute), ss/s (second), zzz/z (milliseconds), AP/A ("AM"/"PM") and
// ap/a ("am"/"pm"). Text in single quotes is literal ('' is a quote); every other
// character is copied as it stands. Tokens of a part that the value does not have (a time
// token in a date-only format) are copied literally.
#include "runtime/VyString.h"

class VyDateTimeFormat {
public:
    struct Fields {
        bool hasDate = false;
        int year = 2000;
        int month = 1;
        int day = 1;
        bool hasTime = false;
        int hour = 0;
        int minute = 0;
        int second = 0;
        int msec = 0;
    };

    static VyString format(const VyString& format, const Fields& fields);

    // Reads text laid out as format into fields (only the parts that have tokens; the rest
    // keep their values). Numbers take one or two digits for the single-letter tokens, an
    // exact width otherwise; "yy" reads as 20yy. Returns false when the text does not
    // match; range checks are left to the caller.
    static bool parse(const VyString& text, const VyString& format, Fields* fields);
};
