#include "SimRecordDb.h"

#include "protocol/RecordTypeBit.h"

#include <ctime>

namespace {

// splitmix64: a good spread from a counter, the same on every host.
uint64_t mix(uint64_t x) {
    x += 0x9E3779B97F4A7C15ull;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ull;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBull;
    return x ^ (x >> 31);
}

constexpr int32_t kDaySeconds = 86400;

} // namespace

SimRecordDb::SimRecordDb(uint32_t seed, int channels, long today)
    : m_seed(seed)
    , m_channels(channels)
    , m_today(today) {}

long SimRecordDb::daysFromCivil(int y, int m, int d) {
    y -= m <= 2;
    const long era = (y >= 0 ? y : y - 399) / 400;
    const long yoe = y - era * 400;
    const long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

void SimRecordDb::civilFromDays(long z, int* year, int* month, int* day) {
    z += 719468;
    const long era = (z >= 0 ? z : z - 146096) / 146097;
    const long doe = z - era * 146097;
    const long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long mp = (5 * doy + 2) / 153;
    const int d = int(doy - (153 * mp + 2) / 5 + 1);
    const int m = int(mp < 10 ? mp + 3 : mp - 9);
    *year = int(yoe + era * 400 + (m <= 2));
    *month = m;
    *day = d;
}

long SimRecordDb::localToday() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return daysFromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

std::vector<RecordSegmentEntry> SimRecordDb::day(int channel, long dayNumber) const {
    std::vector<RecordSegmentEntry> out;
    if (channel < 0 || channel >= m_channels || dayNumber > m_today || dayNumber <= m_today - kDays)
        return out;
    uint64_t state = mix(uint64_t(m_seed) << 32 ^ uint64_t(channel) << 20 ^ uint64_t(dayNumber));
    auto next = [&](uint32_t bound) {
        state = mix(state);
        return uint32_t(state % bound);
    };
    // Every fifth channel records only on events: short segments with long gaps.
    const bool eventsOnly = channel % 5 == 4;
    int32_t t = int32_t(next(600));
    while (t < kDaySeconds) {
        RecordSegmentEntry e;
        const uint32_t pick = next(100);
        int32_t length;
        if (!eventsOnly && pick < 55) {
            e.typeBits = RecordTypeBit::Continuous;
            length = 900 + int32_t(next(3600));
        } else if (pick < 70) {
            e.typeBits = RecordTypeBit::Motion;
            length = 20 + int32_t(next(300));
        } else if (pick < 78) {
            e.typeBits = RecordTypeBit::Alarm;
            length = 30 + int32_t(next(240));
        } else if (pick < 83) {
            e.typeBits = RecordTypeBit::Pir;
            length = 15 + int32_t(next(120));
        } else if (pick < 93) {
            const uint32_t kind = next(6);
            e.typeBits = 1u << (RecordTypeBit::AnalyticsFirst + kind);
            e.analyticsBits = uint16_t(1u << next(8));
            length = 10 + int32_t(next(180));
        } else {
            e.typeBits = RecordTypeBit::Motion | RecordTypeBit::Alarm;
            length = 30 + int32_t(next(300));
        }
        e.start = t;
        e.end = t + length > kDaySeconds ? kDaySeconds : t + length;
        out.push_back(e);
        t = e.end + int32_t(eventsOnly ? 300 + next(3600) : next(900));
    }
    return out;
}

uint32_t SimRecordDb::monthDays(int year, int month, const uint8_t* channelBits, size_t bitBytes,
                                uint32_t typeMask) const {
    uint32_t days = 0;
    if (month < 1 || month > 12)
        return 0;
    const long first = daysFromCivil(year, month, 1);
    const long next =
        month == 12 ? daysFromCivil(year + 1, 1, 1) : daysFromCivil(year, month + 1, 1);
    for (long d = first; d < next && d - first < 31; ++d) {
        for (int c = 0; c < m_channels && size_t(c / 8) < bitBytes; ++c) {
            if ((channelBits[c / 8] & (1u << (c % 8))) == 0)
                continue;
            bool found = false;
            for (const RecordSegmentEntry& e : day(c, d)) {
                if (typeMask == 0 || (e.typeBits & typeMask) != 0) {
                    found = true;
                    break;
                }
            }
            if (found) {
                days |= 1u << (d - first);
                break;
            }
        }
    }
    return days;
}

long long SimRecordDb::secondsOf(const PackedDateTime& t) {
    if (t.month < 1 || t.month > 12 || t.day < 1 || t.day > 31 || t.hour > 23 || t.minute > 59 ||
        t.second > 59)
        return -1;
    return daysFromCivil(t.year, t.month, t.day) * 86400LL + t.hour * 3600 + t.minute * 60 +
           t.second;
}

PackedDateTime SimRecordDb::packSeconds(long long secs) {
    PackedDateTime p;
    int y, m, d;
    civilFromDays(long(secs / 86400), &y, &m, &d);
    const long long s = secs % 86400;
    p.year = uint16_t(y);
    p.month = uint8_t(m);
    p.day = uint8_t(d);
    p.hour = uint8_t(s / 3600);
    p.minute = uint8_t(s / 60 % 60);
    p.second = uint8_t(s % 60);
    return p;
}
