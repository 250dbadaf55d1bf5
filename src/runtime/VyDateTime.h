#pragma once
// A local date and time. Conversions to and from seconds since the epoch follow the TZ
// environment variable as it is at the moment of the call, so a time zone announced by the
// recorder service at run time takes effect at once.
//
// Arithmetic (addSecs, secsTo, daysTo) works on the wall-clock fields: a day always has
// 86400 seconds, whatever daylight saving does to the real clock that day.
#include "runtime/VyDate.h"
#include "runtime/VyTime.h"

class VyDateTime {
public:
    VyDateTime() = default;
    explicit VyDateTime(const VyDate& date, const VyTime& time = VyTime(0, 0));

    static VyDateTime currentDateTime();
    // Seconds since 1970-01-01 00:00:00 UTC to local time; invalid outside years 1..9999.
    static VyDateTime fromTime_t(long long secs);
    static VyDateTime fromMSecsSinceEpoch(long long msecs);
    static VyDateTime fromString(const VyString& text, const VyString& format);

    bool isValid() const { return m_date.isValid() && m_time.isValid(); }
    bool isNull() const { return m_date.isNull() && m_time.isNull(); }
    const VyDate& date() const { return m_date; }
    const VyTime& time() const { return m_time; }
    void setDate(const VyDate& date) { m_date = date; }
    void setTime(const VyTime& time) { m_time = time; }

    // Local time to seconds since the epoch; -1 for an invalid value or one the C library
    // cannot represent. A local time skipped by a daylight-saving change is moved forward.
    long long toTime_t() const;
    long long toMSecsSinceEpoch() const;

    VyDateTime addDays(long long days) const;
    VyDateTime addSecs(long long secs) const;
    VyDateTime addMSecs(long long msecs) const;
    // 0 if either is invalid.
    long long secsTo(const VyDateTime& other) const;
    long long msecsTo(const VyDateTime& other) const;
    long long daysTo(const VyDateTime& other) const { return m_date.daysTo(other.m_date); }

    // Renders date and time tokens; the date part follows VyDate's date mode. An invalid
    // value gives an empty string.
    VyString toString(const VyString& format) const;

    bool operator==(const VyDateTime& o) const { return m_date == o.m_date && m_time == o.m_time; }
    bool operator!=(const VyDateTime& o) const { return !(*this == o); }
    bool operator<(const VyDateTime& o) const {
        return m_date < o.m_date || (m_date == o.m_date && m_time < o.m_time);
    }
    bool operator>(const VyDateTime& o) const { return o < *this; }
    bool operator<=(const VyDateTime& o) const { return !(o < *this); }
    bool operator>=(const VyDateTime& o) const { return !(*this < o); }

private:
    long long wallClockMSecs() const;
    static VyDateTime fromWallClockMSecs(long long msecs);

    VyDate m_date;
    VyTime m_time;
};
