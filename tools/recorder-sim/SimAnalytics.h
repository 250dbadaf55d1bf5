#pragma once
// Crowd counting, heat maps and people statistics, simulated: every number follows from the
// seed, the channel and the time asked about, so the same seed shows the same results on
// every run and in every test. People arrive in a daily pattern (few at night, peaks around
// 9:00 and 18:00) that differs per channel; a heat grid has two warm spots per channel.
//
//     SimAnalytics analytics(config.recordSeed, config.channels);
//     analytics.attach(server);              // the MainType 1200 SubTypes 51..54 requests
//     analytics.startTicking(1000, store);   // live counts of the channels with a rule
//
// Console command (runCommand): "count CH" prints and sends channel CH's live counts now.
#include "protocol/CountLiveNotice.h"
#include "protocol/HeatMapRequest.h"
#include "protocol/PackedDateTime.h"
#include "protocol/PeopleStatsRequest.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class SimParamStore;
class SimServer;
struct SimMessage;

class SimAnalytics {
public:
    static constexpr int kHeatColumns = 64;
    static constexpr int kHeatRows = 36;
    static constexpr int kTickMs = 1000; // one simulated minute of counting per second

    SimAnalytics(uint32_t seed, int channels);
    ~SimAnalytics();
    SimAnalytics(const SimAnalytics&) = delete;
    SimAnalytics& operator=(const SimAnalytics&) = delete;

    // People entering and leaving channel `channel` during hour `hour` (hours since
    // 1970-01-01 00:00); leaving never exceeds entering over a day.
    uint32_t arrivals(int channel, int64_t hour) const;
    uint32_t departures(int channel, int64_t hour) const;
    // The activity grid (kHeatColumns x kHeatRows, row by row) over `days` days from `day`.
    std::vector<uint32_t> heatGrid(int channel, int64_t day, int days) const;
    // Reply bodies; empty for a request that is out of range (logged).
    std::vector<uint8_t> heatMapReply(const HeatMapRequest& request) const;
    std::vector<uint8_t> peopleStatsReply(const PeopleStatsRequest& request) const;

    void attach(SimServer& server);
    // Raises (on) and clears the analytics alarm of a channel whose count passes its limit.
    void setAlarm(std::function<void(int channel, bool on)> alarm);
    // Every `periodMs` the channels whose rule (parameter block 120 in `store`) is enabled
    // move on by one simulated minute and their counts are sent.
    void startTicking(int periodMs, SimParamStore& store);
    // One step of that, by hand (tests).
    void tick(SimParamStore& store);
    CountLiveNotice live(int channel) const;
    bool runCommand(const std::vector<std::string>& words);

private:
    uint64_t noise(int channel, int64_t index, uint32_t salt) const;
    void send(const CountLiveNotice& n);

    uint32_t m_seed;
    int m_channels;
    SimServer* m_server = nullptr;
    mutable std::mutex m_mutex; // guards m_in, m_out, m_minute, m_alarmed
    std::vector<uint32_t> m_in, m_out;
    std::vector<bool> m_alarmed;
    int64_t m_minute = 9 * 60; // simulated minute of the day the live counts are at
    std::function<void(int, bool)> m_alarm;
    std::mutex m_tickMutex; // guards m_stopping with m_tickCond
    std::condition_variable m_tickCond;
    bool m_stopping = false;
    std::thread m_tickThread;
};
