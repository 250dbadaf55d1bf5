#include "runtime/VyTime.h"

#include "runtime/VyDateTime.h"
#include "runtime/VyDateTimeFormat.h"

namespace {

constexpr int kMSecsPerDay = 24 * 60 * 60 * 1000;

} // namespace

VyTime::VyTime(int hour, int minute, int second, int msec) {
    setHMS(hour, minute, second, msec);
}

bool VyTime::isValid(int hour, int minute, int second, int msec) {
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60 &&
           msec >= 0 && msec < 1000;
}

VyTime VyTime::currentTime() {
    return VyDateTime::currentDateTime().time();
}

VyTime VyTime::fromMSecsSinceStartOfDay(int msecs) {
    VyTime t;
    if (msecs >= 0 && msecs < kMSecsPerDay)
        t.m_msecs = msecs;
    return t;
}

VyTime VyTime::fromString(const VyString& text, const VyString& format) {
    VyDateTimeFormat::Fields f;
    if (!VyDateTimeFormat::parse(text, format, &f))
        return VyTime();
    return VyTime(f.hour, f.minute, f.second, f.msec);
}

bool VyTime::setHMS(int hour, int minute, int second, int msec) {
    m_msecs = isValid(hour, minute, second, msec)
                  ? ((hour * 60 + minute) * 60 + second) * 1000 + msec
                  : -1;
    return isValid();
}

int VyTime::hour() const {
    return isValid() ? m_msecs / 3600000 : -1;
}

int VyTime::minute() const {
    return isValid() ? m_msecs / 60000 % 60 : -1;
}

int VyTime::second() const {
    return isValid() ? m_msecs / 1000 % 60 : -1;
}

int VyTime::msec() const {
    return isValid() ? m_msecs % 1000 : -1;
}

VyTime VyTime::addSecs(int secs) const {
    return addMSecs(static_cast<int>(static_cast<long long>(secs) % (kMSecsPerDay / 1000) * 1000));
}

VyTime VyTime::addMSecs(int msecs) const {
    if (!isValid())
        return VyTime();
    long long ms = (static_cast<long long>(m_msecs) + msecs) % kMSecsPerDay;
    if (ms < 0)
        ms += kMSecsPerDay;
    return fromMSecsSinceStartOfDay(static_cast<int>(ms));
}

int VyTime::secsTo(const VyTime& other) const {
    if (!isValid() || !other.isValid())
        return 0;
    // Whole seconds, ignoring the milliseconds of both, so 10:00:00.900 -> 10:00:01.000 is 1.
    return other.m_msecs / 1000 - m_msecs / 1000;
}

int VyTime::msecsTo(const VyTime& other) const {
    if (!isValid() || !other.isValid())
        return 0;
    return other.m_msecs - m_msecs;
}

VyString VyTime::toString(const VyString& format) const {
    if (!isValid())
        return VyString();
    VyDateTimeFormat::Fields f;
    f.hasTime = true;
    f.hour = hour();
    f.minute = minute();
    f.second = second();
    f.msec = msec();
    return VyDateTimeFormat::format(format, f);
}
