// The simulator's recording database: the same seed gives the same days, only the last 30
// days hold recordings, and a day's segments are ordered, inside the day and of every kind.
#include "SimRecordDb.h"
#include "protocol/RecordTypeBit.h"

#include <gtest/gtest.h>

namespace {

TEST(SimRecordDb, DaysAreDeterministicOrderedAndOfEveryKind) {
    const long today = SimRecordDb::daysFromCivil(2026, 3, 14);
    const SimRecordDb a(7, 8, today), b(7, 8, today), other(8, 8, today);
    uint32_t kinds = 0;
    for (int c = 0; c < 8; ++c) {
        for (long d = today - 29; d <= today; ++d) {
            const auto day = a.day(c, d);
            ASSERT_FALSE(day.empty());
            const auto again = b.day(c, d);
            ASSERT_EQ(day.size(), again.size());
            for (size_t i = 0; i < day.size(); ++i) {
                EXPECT_EQ(day[i].start, again[i].start);
                EXPECT_LT(day[i].start, day[i].end);
                EXPECT_LE(day[i].end, 86400);
                if (i > 0) {
                    EXPECT_GE(day[i].start, day[i - 1].end);
                }
                kinds |= day[i].typeBits;
            }
        }
    }
    EXPECT_EQ(kinds & 0x7u, 0x7u);
    EXPECT_NE(kinds & RecordTypeBit::Pir, 0u);
    EXPECT_NE(kinds & RecordTypeBit::AnalyticsMask, 0u);
    bool differs = false;
    for (int c = 0; c < 8 && !differs; ++c)
        differs = a.day(c, today).size() != other.day(c, today).size() ||
                  a.day(c, today).front().start != other.day(c, today).front().start;
    EXPECT_TRUE(differs) << "another seed gives another database";
    EXPECT_TRUE(a.day(0, today - 30).empty());
    EXPECT_TRUE(a.day(0, today + 1).empty());
    EXPECT_TRUE(a.day(8, today).empty());
    EXPECT_TRUE(a.day(-1, today).empty());
}

TEST(SimRecordDb, MonthSearchMarksTheRecordedDaysOfTheAskedChannels) {
    const long today = SimRecordDb::daysFromCivil(2026, 3, 14);
    const SimRecordDb db(1, 4, today);
    const uint8_t one[16] = {0x01};
    // March 1..14 and February 13..28 are inside the last 30 days.
    EXPECT_EQ(db.monthDays(2026, 3, one, 16, 0), 0x3FFFu);
    EXPECT_EQ(db.monthDays(2026, 2, one, 16, 0), 0x0FFFF000u);
    const uint8_t none[16] = {};
    EXPECT_EQ(db.monthDays(2026, 3, none, 16, 0), 0u);
    EXPECT_EQ(db.monthDays(2026, 13, one, 16, 0), 0u);
}

} // namespace
