#pragma once
// A wall-clock time of day with millisecond resolution. A default-constructed time, or one
// built from impossible fields, is invalid.
#include "runtime/VyString.h"

class VyTime {
public:
    VyTime() = default;
    VyTime(int hour, int minute, int second = 0, int msec = 0);

    static bool isValid(int hour, int minute, int second, int msec = 0);
    static VyTime currentTime();
    static VyTime fromMSecsSinceStartOfDay(int msecs);
    static VyTime fromString(const VyString& text, const VyString& format);

    bool isValid() const { return m_msecs >= 0; }
    bool isNull() const { return !isValid(); }
    bool setHMS(int hour, int minute, int second, int msec = 0);
    // The fields read -1 on an invalid time.
    int hour() const;
    int minute() const;
    int second() const;
    int msec() const;
    int msecsSinceStartOfDay() const { return isValid() ? m_msecs : 0; }

    // Arithmetic wraps around midnight: 23:59:00 + 120 s is 00:01:00.
    VyTime addSecs(int secs) const;
    VyTime addMSecs(int msecs) const;
    // Seconds (milliseconds) from this time to other on the same day; negative when other
    // is earlier, 0 if either is invalid.
    int secsTo(const VyTime& other) const;
    int msecsTo(const VyTime& other) const;

    // An invalid time gives an empty string.
    VyString toString(const VyString& format) const;

    bool operator==(const VyTime& o) const { return m_msecs == o.m_msecs; }
    bool operator!=(const VyTime& o) const { return m_msecs != o.m_msecs; }
    bool operator<(const VyTime& o) const { return m_msecs < o.m_msecs; }
    bool operator<=(const VyTime& o) const { return m_msecs <= o.m_msecs; }
    bool operator>(const VyTime& o) const { return m_msecs > o.m_msecs; }
    bool operator>=(const VyTime& o) const { return m_msecs >= o.m_msecs; }

private:
    int m_msecs = -1; // since midnight
};
