#include "runtime/VyDateTime.h"

#include "runtime/VyDateTimeFormat.h"
#include "runtime/VyLog.h"

#include <cerrno>
#include <climits>
#include <ctime>
#include <limits>

namespace {

constexpr long long kMSecsPerDay = 24LL * 60 * 60 * 1000;
// Wall-clock milliseconds are counted from Julian day 0; this bound keeps every sum of a
// valid value and a valid offset inside 64 bits.
constexpr long long kMaxOffsetMSecs = 6000000LL * kMSecsPerDay;

long long floorDiv(long long a, long long b) {
    long long q = a / b;
    if ((a % b != 0) && ((a < 0) != (b < 0)))
        --q;
    return q;
}

} // namespace

VyDateTime::VyDateTime(const VyDate& date, const VyTime& time)
    : m_date(date)
    , m_time(time) {}

VyDateTime VyDateTime::currentDateTime() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return fromMSecsSinceEpoch(static_cast<long long>(now.tv_sec) * 1000 + now.tv_nsec / 1000000);
}

VyDateTime VyDateTime::fromTime_t(long long secs) {
    if (secs > LLONG_MAX / 1000 || secs < LLONG_MIN / 1000)
        return VyDateTime();
    return fromMSecsSinceEpoch(secs * 1000);
}

VyDateTime VyDateTime::fromMSecsSinceEpoch(long long msecs) {
    const long long wholeSecs = floorDiv(msecs, 1000);
    // Where time_t is 32 bits a cast would wrap a date after 2038 into 1901; refuse instead.
    if (wholeSecs > std::numeric_limits<time_t>::max() ||
        wholeSecs < std::numeric_limits<time_t>::min()) {
        vyFrameworkLog("VyDateTime: %lld seconds since the epoch is out of range !!!\n", wholeSecs);
        return VyDateTime();
    }
    const time_t secs = static_cast<time_t>(wholeSecs);
    // The remainder, not msecs - wholeSecs * 1000: near LLONG_MIN that product overflows.
    const int rem = static_cast<int>(msecs % 1000);
    const int ms = rem < 0 ? rem + 1000 : rem;
    // The C library caches the zone; TZ may have been changed since the last call.
    tzset();
    tm local{};
    if (!localtime_r(&secs, &local) || local.tm_year < -1900 || local.tm_year > 9999 - 1900)
        return VyDateTime();
    const VyDate date(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
    // A leap second (tm_sec 60) is folded into the last ordinary second.
    const VyTime time(local.tm_hour, local.tm_min, local.tm_sec > 59 ? 59 : local.tm_sec, ms);
    if (!date.isValid() || !time.isValid())
        return VyDateTime();
    return VyDateTime(date, time);
}

VyDateTime VyDateTime::fromString(const VyString& text, const VyString& format) {
    VyDateTimeFormat::Fields f;
    if (!VyDateTimeFormat::parse(text, format, &f))
        return VyDateTime();
    const VyDateTime dt(VyDate(f.year, f.month, f.day), VyTime(f.hour, f.minute, f.second, f.msec));
    return dt.isValid() ? dt : VyDateTime();
}

long long VyDateTime::toTime_t() const {
    if (!isValid())
        return -1;
    tzset();
    tm local{};
    local.tm_year = m_date.year() - 1900;
    local.tm_mon = m_date.month() - 1;
    local.tm_mday = m_date.day();
    local.tm_hour = m_time.hour();
    local.tm_min = m_time.minute();
    local.tm_sec = m_time.second();
    local.tm_isdst = -1; // let the zone rules decide
    errno = 0;
    const time_t t = mktime(&local);
    // -1 is also the genuine second before the epoch; only errno tells them apart.
    if (t == static_cast<time_t>(-1) && errno != 0) {
        vyFrameworkLog("VyDateTime: cannot convert %s to epoch seconds !!!\n",
                       toString("yyyy/MM/dd hh:mm:ss").c_str());
        return -1;
    }
    return static_cast<long long>(t);
}

long long VyDateTime::toMSecsSinceEpoch() const {
    if (!isValid())
        return -1;
    const long long secs = toTime_t();
    if (secs == -1)
        return -1;
    return secs * 1000 + m_time.msec();
}

long long VyDateTime::wallClockMSecs() const {
    return m_date.toJulianDay() * kMSecsPerDay + m_time.msecsSinceStartOfDay();
}

VyDateTime VyDateTime::fromWallClockMSecs(long long msecs) {
    const long long day = floorDiv(msecs, kMSecsPerDay);
    const VyDate date = VyDate::fromJulianDay(day);
    if (!date.isValid())
        return VyDateTime();
    return VyDateTime(
        date, VyTime::fromMSecsSinceStartOfDay(static_cast<int>(msecs - day * kMSecsPerDay)));
}

VyDateTime VyDateTime::addDays(long long days) const {
    if (!isValid())
        return VyDateTime();
    const VyDate date = m_date.addDays(days);
    return date.isValid() ? VyDateTime(date, m_time) : VyDateTime();
}

VyDateTime VyDateTime::addSecs(long long secs) const {
    if (secs > kMaxOffsetMSecs / 1000 || secs < -kMaxOffsetMSecs / 1000)
        return VyDateTime();
    return addMSecs(secs * 1000);
}

VyDateTime VyDateTime::addMSecs(long long msecs) const {
    if (!isValid() || msecs > kMaxOffsetMSecs || msecs < -kMaxOffsetMSecs)
        return VyDateTime();
    return fromWallClockMSecs(wallClockMSecs() + msecs);
}

long long VyDateTime::secsTo(const VyDateTime& other) const {
    if (!isValid() || !other.isValid())
        return 0;
    // Whole seconds of both ends, as VyTime::secsTo counts.
    return floorDiv(other.wallClockMSecs(), 1000) - floorDiv(wallClockMSecs(), 1000);
}

long long VyDateTime::msecsTo(const VyDateTime& other) const {
    if (!isValid() || !other.isValid())
        return 0;
    return other.wallClockMSecs() - wallClockMSecs();
}

VyString VyDateTime::toString(const VyString& format) const {
    if (!isValid())
        return VyString();
    VyDateTimeFormat::Fields f;
    f.hasDate = true;
    if (VyDate::dateMode())
        m_date.getPersianDate(&f.year, &f.month, &f.day);
    else
        m_date.getDate(&f.year, &f.month, &f.day);
    f.hasTime = true;
    f.hour = m_time.hour();
    f.minute = m_time.minute();
    f.second = m_time.second();
    f.msec = m_time.msec();
    return VyDateTimeFormat::format(format, f);
}
