// The simulator's analytics: the same seed gives the same numbers, a coarser period is the
// sum of the finer ones (months of any length, leap years included), nobody leaves who did
// not come, and a count over its limit raises and then clears the channel's alarm.
#include "SimAnalytics.h"
#include "SimParamStore.h"
#include "SimRecordDb.h"
#include "protocol/CountRuleBlock.h"
#include "protocol/HeatMapReply.h"
#include "protocol/PeopleStatsReply.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

PeopleStatsRequest statsRequest(uint32_t period, uint32_t buckets, int y, int m, int d,
                                uint64_t channels = 0x5) {
    PeopleStatsRequest r;
    r.channels = channels;
    r.period = period;
    r.bucketCount = buckets;
    r.start.year = uint16_t(y);
    r.start.month = uint8_t(m);
    r.start.day = uint8_t(d);
    return r;
}

PeopleStatsReply stats(const SimAnalytics& sim, const PeopleStatsRequest& r) {
    const std::vector<uint8_t> body = sim.peopleStatsReply(r);
    auto reply = PeopleStatsReply::decode(body.data(), body.size());
    EXPECT_TRUE(reply.has_value());
    return reply ? *reply : PeopleStatsReply{};
}

uint64_t sum(const std::vector<uint32_t>& v) {
    return std::accumulate(v.begin(), v.end(), uint64_t(0));
}

TEST(SimAnalytics, CoarserPeriodsAreSumsOfFinerOnesAndTheSeedDecides) {
    const SimAnalytics sim(7, 8), same(7, 8), other(8, 8);
    // February 2028 has 29 days.
    const PeopleStatsReply days =
        stats(sim, statsRequest(PeopleStatsRequest::kDay, 29, 2028, 2, 1));
    const PeopleStatsReply month =
        stats(sim, statsRequest(PeopleStatsRequest::kMonth, 2, 2028, 2, 1));
    const PeopleStatsReply hours =
        stats(sim, statsRequest(PeopleStatsRequest::kHour, 24, 2028, 2, 1));
    const PeopleStatsReply week =
        stats(sim, statsRequest(PeopleStatsRequest::kWeek, 1, 2028, 2, 1));
    ASSERT_EQ(days.channels.size(), 2u); // channels 0 and 2
    EXPECT_EQ(days.channels[1].channel, 2u);
    for (size_t c = 0; c < 2; ++c) {
        EXPECT_EQ(sum(days.channels[c].in), month.channels[c].in[0]);
        EXPECT_EQ(sum(days.channels[c].out), month.channels[c].out[0]);
        EXPECT_EQ(sum(hours.channels[c].in), days.channels[c].in[0]);
        EXPECT_EQ(std::accumulate(days.channels[c].in.begin(), days.channels[c].in.begin() + 7,
                                  uint64_t(0)),
                  week.channels[c].in[0]);
        for (size_t b = 0; b < days.channels[c].in.size(); ++b)
            EXPECT_LE(days.channels[c].out[b], days.channels[c].in[b]);
        // Busier by day than by night.
        EXPECT_GT(hours.channels[c].in[18], hours.channels[c].in[3]);
    }
    EXPECT_EQ(sim.peopleStatsReply(statsRequest(PeopleStatsRequest::kDay, 7, 2028, 2, 1)),
              same.peopleStatsReply(statsRequest(PeopleStatsRequest::kDay, 7, 2028, 2, 1)));
    EXPECT_NE(sim.peopleStatsReply(statsRequest(PeopleStatsRequest::kDay, 7, 2028, 2, 1)),
              other.peopleStatsReply(statsRequest(PeopleStatsRequest::kDay, 7, 2028, 2, 1)));
    // Out of range: too many buckets, a date that does not exist, an unknown period.
    EXPECT_TRUE(
        sim.peopleStatsReply(statsRequest(PeopleStatsRequest::kHour, 745, 2028, 2, 1)).empty());
    EXPECT_TRUE(
        sim.peopleStatsReply(statsRequest(PeopleStatsRequest::kDay, 1, 2027, 2, 29)).empty());
    EXPECT_TRUE(sim.peopleStatsReply(statsRequest(9, 1, 2028, 2, 1)).empty());
}

TEST(SimAnalytics, HeatGridsWarmWithTheSpanAndStayDeterministic) {
    const SimAnalytics sim(3, 4);
    HeatMapRequest r;
    r.channel = 1;
    r.day = {2026, 11, 23, 0, 0, 0, 0};
    const std::vector<uint8_t> dayBody = sim.heatMapReply(r);
    r.span = HeatMapRequest::kWeek;
    const std::vector<uint8_t> weekBody = sim.heatMapReply(r);
    const auto day = HeatMapReply::decode(dayBody.data(), dayBody.size());
    const auto week = HeatMapReply::decode(weekBody.data(), weekBody.size());
    ASSERT_TRUE(day && week);
    EXPECT_EQ(day->head.columns, SimAnalytics::kHeatColumns);
    EXPECT_EQ(day->head.rows, SimAnalytics::kHeatRows);
    const uint32_t dayMax = *std::max_element(day->values.begin(), day->values.end());
    const uint32_t weekMax = *std::max_element(week->values.begin(), week->values.end());
    EXPECT_GT(dayMax, 0u);
    EXPECT_GT(weekMax, dayMax);
    EXPECT_GT(std::count(day->values.begin(), day->values.end(), 0u), 0) << "cold corners";
    ASSERT_GT(day->picture.size(), 2u);
    EXPECT_EQ(day->picture[0], 0xFF) << "a JPEG snapshot of the scene";
    EXPECT_EQ(day->picture[1], 0xD8);
    EXPECT_EQ(sim.heatGrid(1, 100, 1), SimAnalytics(3, 4).heatGrid(1, 100, 1));
    r.channel = 4; // the recorder has channels 0..3
    EXPECT_TRUE(sim.heatMapReply(r).empty());
}

TEST(SimAnalytics, LiveCountsFollowTheRuleAndRaiseTheAlarmOverTheLimit) {
    SimAnalytics sim(5, 4);
    SimParamStore store;
    CountRuleBlock block;
    block.rules[2].enabled = 1;
    block.rules[2].limit = 3;
    store.set(CountRuleBlock::kBlockNumber, reinterpret_cast<const uint8_t*>(&block), sizeof block);
    std::vector<std::pair<int, bool>> alarms;
    sim.setAlarm([&](int ch, bool on) { alarms.emplace_back(ch, on); });
    // No thread: the ticks are driven by hand, one simulated minute each, from 9:00.
    for (int minute = 0; minute < 120; ++minute) {
        sim.tick(store);
        const CountLiveNotice n = sim.live(2);
        EXPECT_LE(n.out, n.in);
    }
    EXPECT_GT(sim.live(2).inside(), 3u) << "two morning hours bring more than three people in";
    ASSERT_EQ(alarms.size(), 1u);
    EXPECT_EQ(alarms[0], std::make_pair(2, true));
    EXPECT_EQ(sim.live(0).in, 0u) << "a channel without a rule does not count";
    // At midnight the day's counts start again, and the alarm clears.
    for (int minute = 120; minute < 15 * 60 + 1; ++minute)
        sim.tick(store);
    EXPECT_LT(sim.live(2).in, 10u);
    ASSERT_EQ(alarms.size(), 2u);
    EXPECT_EQ(alarms[1], std::make_pair(2, false));
}

} // namespace
