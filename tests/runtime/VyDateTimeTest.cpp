#include "runtime/VyDateTime.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

// Restores TZ and the date mode so that no test leaks its settings into the next.
class VyDateTimeEnv : public ::testing::Test {
protected:
    void SetUp() override {
        const char* tz = std::getenv("TZ");
        m_hadTz = tz != nullptr;
        if (tz)
            m_tz = tz;
    }
    void TearDown() override {
        if (m_hadTz)
            setenv("TZ", m_tz.c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
        VyDate::setDateMode(false);
    }

private:
    bool m_hadTz = false;
    std::string m_tz;
};

using VyDateMode = VyDateTimeEnv;
using VyDateTimeZone = VyDateTimeEnv;

} // namespace

TEST(VyDate, ValidityAndLeapYears) {
    EXPECT_TRUE(VyDate(2024, 2, 29).isValid());
    EXPECT_FALSE(VyDate(2023, 2, 29).isValid());
    EXPECT_TRUE(VyDate(2000, 2, 29).isValid());
    EXPECT_FALSE(VyDate(1900, 2, 29).isValid());
    EXPECT_FALSE(VyDate(2024, 13, 1).isValid());
    EXPECT_FALSE(VyDate(2024, 4, 31).isValid());
    EXPECT_FALSE(VyDate(0, 1, 1).isValid());
    EXPECT_FALSE(VyDate().isValid());
    EXPECT_EQ(VyDate(2024, 2, 1).daysInMonth(), 29);
    EXPECT_EQ(VyDate(2100, 2, 1).daysInMonth(), 28);
    EXPECT_EQ(VyDate::daysInMonth(2023, 12), 31);
    EXPECT_EQ(VyDate(2024, 12, 31).dayOfYear(), 366);
}

TEST(VyDate, FieldsAndWeekdaysRoundTrip) {
    for (long long jd = VyDate(1999, 12, 25).toJulianDay(); jd < VyDate(2001, 1, 10).toJulianDay();
         ++jd) {
        const VyDate d = VyDate::fromJulianDay(jd);
        EXPECT_EQ(VyDate(d.year(), d.month(), d.day()), d);
    }
    EXPECT_EQ(VyDate(2024, 3, 20).dayOfWeek(), 3); // Wednesday
    EXPECT_EQ(VyDate(2000, 1, 1).dayOfWeek(), 6);  // Saturday
    EXPECT_EQ(VyDate(2023, 1, 1).dayOfWeek(), 7);  // Sunday
    EXPECT_EQ(VyDate(1, 1, 1).dayOfWeek(), 1);     // Monday
}

TEST(VyDate, ArithmeticAcrossMonthAndYearEnds) {
    EXPECT_EQ(VyDate(2024, 2, 28).addDays(1), VyDate(2024, 2, 29));
    EXPECT_EQ(VyDate(2023, 2, 28).addDays(1), VyDate(2023, 3, 1));
    EXPECT_EQ(VyDate(2023, 12, 31).addDays(1), VyDate(2024, 1, 1));
    EXPECT_EQ(VyDate(2024, 3, 1).addDays(-1), VyDate(2024, 2, 29));
    EXPECT_EQ(VyDate(2024, 1, 1).daysTo(VyDate(2025, 1, 1)), 366);
    EXPECT_EQ(VyDate(2025, 1, 1).daysTo(VyDate(2024, 1, 1)), -366);
    EXPECT_EQ(VyDate(2024, 1, 31).addMonths(1), VyDate(2024, 2, 29));
    EXPECT_EQ(VyDate(2024, 2, 29).addYears(1), VyDate(2025, 2, 28));
    EXPECT_EQ(VyDate(2024, 1, 15).addMonths(-13), VyDate(2022, 12, 15));
    EXPECT_FALSE(VyDate(9999, 12, 31).addDays(1).isValid());
    EXPECT_FALSE(VyDate(2024, 1, 1).addYears(1000000).isValid());
    EXPECT_FALSE(VyDate().addDays(1).isValid());
    EXPECT_EQ(VyDate().daysTo(VyDate(2024, 1, 1)), 0);
}

TEST(VyDate, FormatsUsedByTheScreens) {
    const VyDate d(2024, 3, 5);
    EXPECT_EQ(d.toString("yyyy/MM/dd"), "2024/03/05");
    EXPECT_EQ(d.toString("dd/MM/yyyy"), "05/03/2024");
    EXPECT_EQ(d.toString("d.M.yy"), "5.3.24");
    EXPECT_EQ(d.toString("'day' d 'o''clock' hh"), "day 5 o'clock hh");
    EXPECT_EQ(d.toString(""), "");
    EXPECT_EQ(VyDate().toString("yyyy"), "");
}

TEST(VyTime, FormatsIncludingTwelveHourClock) {
    EXPECT_EQ(VyTime(9, 5, 7).toString("hh:mm:ss"), "09:05:07");
    EXPECT_EQ(VyTime(0, 15, 0).toString("hh:mm:ss AP"), "12:15:00 AM");
    EXPECT_EQ(VyTime(12, 0, 1).toString("hh:mm:ss AP"), "12:00:01 PM");
    EXPECT_EQ(VyTime(23, 59, 59).toString("hh:mm:ss AP"), "11:59:59 PM");
    EXPECT_EQ(VyTime(13, 4).toString("h:mm ap"), "1:04 pm");
    EXPECT_EQ(VyTime(13, 4).toString("HH:mm AP"), "13:04 PM");
    EXPECT_EQ(VyTime(1, 2, 3, 45).toString("ss.zzz"), "03.045");
    EXPECT_EQ(VyTime(1, 2).toString("yyyy hh"), "yyyy 01");
}

TEST(VyTime, ArithmeticWrapsAroundMidnight) {
    EXPECT_EQ(VyTime(23, 59).addSecs(120), VyTime(0, 1));
    EXPECT_EQ(VyTime(0, 0, 30).addSecs(-60), VyTime(23, 59, 30));
    EXPECT_EQ(VyTime(10, 0).addSecs(86400 * 3 + 1), VyTime(10, 0, 1));
    EXPECT_EQ(VyTime(10, 0).secsTo(VyTime(9, 59)), -60);
    EXPECT_EQ(VyTime(10, 0, 0, 900).secsTo(VyTime(10, 0, 1)), 1);
    EXPECT_FALSE(VyTime(24, 0).isValid());
    EXPECT_FALSE(VyTime(10, 60).isValid());
    EXPECT_FALSE(VyTime().addSecs(1).isValid());
    EXPECT_EQ(VyTime().hour(), -1);
}

TEST(VyDateTime, ArithmeticCrossesDaysOnTheWallClock) {
    const VyDateTime leapEve(VyDate(2024, 2, 28), VyTime(23, 30));
    EXPECT_EQ(leapEve.addSecs(3600), VyDateTime(VyDate(2024, 2, 29), VyTime(0, 30)));
    EXPECT_EQ(leapEve.addSecs(-86400), VyDateTime(VyDate(2024, 2, 27), VyTime(23, 30)));
    EXPECT_EQ(leapEve.addDays(2), VyDateTime(VyDate(2024, 3, 1), VyTime(23, 30)));
    const VyDateTime newYear(VyDate(2025, 1, 1), VyTime(0, 0));
    EXPECT_EQ(leapEve.secsTo(newYear), 307 * 86400LL + 1800);
    EXPECT_EQ(newYear.secsTo(leapEve), -(307 * 86400LL + 1800));
    EXPECT_EQ(leapEve.daysTo(newYear), 308);
    EXPECT_TRUE(leapEve < newYear);
    EXPECT_EQ(leapEve.addMSecs(1500).time(), VyTime(23, 30, 1, 500));
    EXPECT_FALSE(VyDateTime(VyDate(9999, 12, 31), VyTime(23, 0)).addSecs(7200).isValid());
    EXPECT_FALSE(leapEve.addSecs(9000000000000000000LL).isValid());
}

TEST(VyDateTime, FormatsAndParsesBack) {
    const VyDateTime dt(VyDate(2024, 2, 29), VyTime(13, 2, 3));
    EXPECT_EQ(dt.toString("yyyy/MM/dd hh:mm:ss"), "2024/02/29 13:02:03");
    EXPECT_EQ(dt.toString("MM/dd/yyyy hh:mm:ss AP"), "02/29/2024 01:02:03 PM");
    for (const char* format : {"yyyy/MM/dd hh:mm:ss", "dd/MM/yyyy hh:mm:ss AP", "yyyyMMddhhmmss"})
        EXPECT_EQ(VyDateTime::fromString(dt.toString(format), format), dt) << format;
    EXPECT_EQ(VyDateTime::fromString("2024/01/01 12:30:00 am", "yyyy/MM/dd hh:mm:ss AP"),
              VyDateTime(VyDate(2024, 1, 1), VyTime(0, 30)));
    EXPECT_EQ(VyDate::fromString("3/7/24", "d/M/yy"), VyDate(2024, 7, 3));
    EXPECT_EQ(VyTime::fromString("07:08", "hh:mm"), VyTime(7, 8));
    // Impossible values, wrong layout and trailing text are refused.
    EXPECT_FALSE(VyDate::fromString("2023/02/29", "yyyy/MM/dd").isValid());
    EXPECT_FALSE(VyDate::fromString("2023-02-01", "yyyy/MM/dd").isValid());
    EXPECT_FALSE(VyDate::fromString("2023/02/01x", "yyyy/MM/dd").isValid());
    EXPECT_FALSE(VyTime::fromString("13:00 PM", "hh:mm AP").isValid());
    EXPECT_FALSE(VyDateTime::fromString("", "yyyy").isValid());
}

TEST_F(VyDateTimeZone, LocalTimeFollowsTzChangedAtRunTime) {
    const long long fixed = 1700000000; // 2023-11-14 22:13:20 UTC
    setenv("TZ", "UTC0", 1);
    const VyDateTime utc = VyDateTime::fromTime_t(fixed);
    EXPECT_EQ(utc.toString("yyyy/MM/dd hh:mm:ss"), "2023/11/14 22:13:20");
    EXPECT_EQ(utc.toTime_t(), fixed);

    setenv("TZ", "CST-8", 1);
    const VyDateTime east = VyDateTime::fromTime_t(fixed);
    EXPECT_EQ(east.toString("yyyy/MM/dd hh:mm:ss"), "2023/11/15 06:13:20");
    EXPECT_EQ(east.toTime_t(), fixed);
    // The same wall-clock reading is a different instant in another zone.
    EXPECT_EQ(utc.toTime_t(), fixed - 8 * 3600);
    EXPECT_EQ(VyDateTime::fromMSecsSinceEpoch(fixed * 1000 + 250).toMSecsSinceEpoch(),
              fixed * 1000 + 250);
}

TEST_F(VyDateTimeZone, InstantsPast2038ConvertBothWays) {
    // A recorder keeps recordings for years: the first second past 32-bit time_t, and a
    // date in 2100, must neither wrap into 1901 nor fail.
    setenv("TZ", "UTC0", 1);
    const VyDateTime wrapPoint = VyDateTime::fromTime_t(2147483648LL);
    EXPECT_EQ(wrapPoint.toString("yyyy/MM/dd hh:mm:ss"), "2038/01/19 03:14:08");
    EXPECT_EQ(wrapPoint.toTime_t(), 2147483648LL);

    const VyDateTime late(VyDate(2100, 3, 1), VyTime(12, 0, 0, 5));
    const long long lateSecs = 4107585600LL; // 2100-03-01 12:00:00 UTC
    EXPECT_EQ(late.toTime_t(), lateSecs);
    EXPECT_EQ(late.toMSecsSinceEpoch(), lateSecs * 1000 + 5);
    EXPECT_EQ(VyDateTime::fromTime_t(lateSecs), VyDateTime(VyDate(2100, 3, 1), VyTime(12, 0)));
    EXPECT_EQ(VyDateTime::fromMSecsSinceEpoch(lateSecs * 1000 + 5), late);

    // Beyond what a calendar year of four digits holds: refused, not wrapped.
    EXPECT_FALSE(VyDateTime::fromTime_t(1LL << 60).isValid());
    EXPECT_FALSE(VyDateTime::fromMSecsSinceEpoch(LLONG_MIN).isValid());
}

TEST_F(VyDateTimeZone, CurrentTimeAgreesWithTheSystemClock) {
    setenv("TZ", "UTC0", 1);
    // The clock the implementation reads: time() may use a coarser one that lags it by up
    // to a tick, which made this fail now and then at a second's boundary.
    auto realtimeSeconds = [] {
        timespec ts{};
        clock_gettime(CLOCK_REALTIME, &ts);
        return static_cast<long long>(ts.tv_sec);
    };
    const long long before = realtimeSeconds();
    const long long now = VyDateTime::currentDateTime().toTime_t();
    const long long after = realtimeSeconds();
    EXPECT_GE(now, before);
    EXPECT_LE(now, after);
    EXPECT_EQ(VyDateTime().toTime_t(), -1);
}

TEST_F(VyDateMode, PersianCalendarOnKnownDates) {
    VyDate::setDateMode(true);
    EXPECT_TRUE(VyDate::dateMode());
    EXPECT_EQ(VyDate(2024, 3, 20).toString("yyyy/MM/dd"), "1403/01/01");
    EXPECT_EQ(VyDate(2025, 3, 20).toString("yyyy/MM/dd"), "1403/12/30"); // 1403 is leap
    EXPECT_EQ(VyDate(2025, 3, 21).toString("yyyy/MM/dd"), "1404/01/01");
    EXPECT_EQ(VyDate(2024, 9, 22).toString("yyyy/MM/dd"), "1403/07/01");
    EXPECT_EQ(VyDate(2023, 3, 20).toString("yyyy/MM/dd"), "1401/12/29"); // 1401 is not
    EXPECT_EQ(VyDate(1979, 2, 11).toString("yyyy/MM/dd"), "1357/11/22");
    EXPECT_EQ(VyDateTime(VyDate(2024, 3, 20), VyTime(8, 0)).toString("yyyy-MM-dd hh:mm"),
              "1403-01-01 08:00");
    // Only the rendering changes: the fields and arithmetic stay Gregorian.
    EXPECT_EQ(VyDate(2024, 3, 20).addDays(1).month(), 3);
    VyDate::setDateMode(false);
    EXPECT_EQ(VyDate(2024, 3, 20).toString("yyyy/MM/dd"), "2024/03/20");
}

TEST(VyDatePersian, DaysAdvanceOneByOneThroughYears) {
    // Every day from 1390 to 1410 must step the Persian date by exactly one day.
    int py, pm, pd;
    VyDate(2011, 3, 21).getPersianDate(&py, &pm, &pd);
    ASSERT_EQ(py * 10000 + pm * 100 + pd, 13900101);
    for (VyDate d = VyDate(2011, 3, 22); d < VyDate(2032, 3, 21); d = d.addDays(1)) {
        int y, m, dd;
        d.getPersianDate(&y, &m, &dd);
        const bool nextDay = y == py && m == pm && dd == pd + 1;
        const bool nextMonth =
            y == py && m == pm + 1 && dd == 1 && pd == (pm <= 6 ? 31 : (pm <= 11 ? 30 : pd));
        const bool nextYear = y == py + 1 && m == 1 && dd == 1 && pm == 12 && pd >= 29;
        ASSERT_TRUE(nextDay || nextMonth || nextYear) << d.toString("yyyy-MM-dd").c_str();
        py = y;
        pm = m;
        pd = dd;
    }
}
