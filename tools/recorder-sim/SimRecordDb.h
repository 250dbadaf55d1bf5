#pragma once
// The simulated recorder's recordings: for every channel and each of the last kDays days, a
// day of segments (continuous, motion, alarm, PIR, analytics and mixed) made from the seed
// alone, so that the same seed always answers the same searches. Nothing is stored: a day
// is generated when it is asked for.
#include "protocol/DaySearchResult.h"

#include <cstdint>
#include <vector>

class SimRecordDb {
public:
    static constexpr int kDays = 30; // today and the 29 days before it hold recordings

    // `today` in days since 1970-01-01 (local calendar).
    SimRecordDb(uint32_t seed, int channels, long today);

    // Days since 1970-01-01 of a calendar date, and back.
    static long daysFromCivil(int year, int month, int day);
    static void civilFromDays(long days, int* year, int* month, int* day);
    static long localToday();
    // Local seconds since 1970-01-01 of a packed time, -1 when its fields are impossible;
    // and back.
    static long long secondsOf(const PackedDateTime& t);
    static PackedDateTime packSeconds(long long secs);

    // The segments of a channel's day, sorted, in seconds from that day's midnight; empty
    // outside the recorded days or the device's channels.
    std::vector<RecordSegmentEntry> day(int channel, long dayNumber) const;
    // Bit d - 1 set when day d of the month holds a segment of one of the channels whose
    // types meet `typeMask` (0: any type).
    uint32_t monthDays(int year, int month, const uint8_t* channelBits, size_t bitBytes,
                       uint32_t typeMask) const;
    int channels() const { return m_channels; }
    long today() const { return m_today; }

private:
    uint32_t m_seed;
    int m_channels;
    long m_today;
};
