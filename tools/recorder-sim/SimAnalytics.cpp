#include "SimAnalytics.h"

#include "SimParamStore.h"
#include "SimRecordDb.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "SimSnapshot.h"
#include "protocol/AnalyticsCountSubType.h"
#include "protocol/ByteOrder.h"
#include "protocol/CountRuleBlock.h"
#include "protocol/HeatMapReply.h"
#include "protocol/MainType.h"
#include "protocol/PeopleStatsReply.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kHoursPerDay = 24;
constexpr int kMinutesPerDay = 24 * 60;

// splitmix64: a good spread from consecutive inputs, the same on every host.
uint64_t mix(uint64_t x) {
    x += 0x9E3779B97F4A7C15ull;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ull;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBull;
    return x ^ (x >> 31);
}

int daysInMonth(int year, int month) {
    static const int days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days[(month - 1) % 12];
}

bool validDate(const PackedDateTime& d) {
    return d.year >= 1970 && d.year <= 2200 && d.month >= 1 && d.month <= 12 && d.day >= 1 &&
           d.day <= daysInMonth(d.year, d.month) && d.hour < 24;
}

} // namespace

SimAnalytics::SimAnalytics(uint32_t seed, int channels)
    : m_seed(seed)
    , m_channels(std::max(0, std::min(channels, int(CountRuleBlock::kChannels))))
    , m_in(size_t(m_channels), 0)
    , m_out(size_t(m_channels), 0)
    , m_alarmed(size_t(m_channels), false) {}

SimAnalytics::~SimAnalytics() {
    {
        std::lock_guard<std::mutex> lock(m_tickMutex);
        m_stopping = true;
    }
    m_tickCond.notify_all();
    if (m_tickThread.joinable())
        m_tickThread.join();
}

uint64_t SimAnalytics::noise(int channel, int64_t index, uint32_t salt) const {
    return mix(uint64_t(m_seed) << 32 ^ uint64_t(uint32_t(channel)) << 24 ^ uint64_t(salt) << 56 ^
               uint64_t(index));
}

uint32_t SimAnalytics::arrivals(int channel, int64_t hour) const {
    const int h = int(((hour % kHoursPerDay) + kHoursPerDay) % kHoursPerDay);
    const int64_t day = hour >= 0 ? hour / kHoursPerDay : (hour - kHoursPerDay + 1) / kHoursPerDay;
    const double morning = 40 * std::exp(-(h - 9) * (h - 9) / 4.0);
    const double evening = 55 * std::exp(-(h - 18) * (h - 18) / 5.0);
    const double base = 1 + morning + evening + (h >= 7 && h <= 21 ? 8 : 0);
    const double channelFactor = 0.5 + double(noise(channel, 0, 1) % 100) / 100.0;
    const int weekday = int(((day + 4) % 7 + 7) % 7); // 1970-01-01 was a Thursday; 0 = Sunday
    const double weekFactor = weekday == 0 || weekday == 6 ? 0.6 : 1.0;
    const double jitter = 0.7 + double(noise(channel, hour, 2) % 61) / 100.0;
    return uint32_t(std::lround(base * channelFactor * weekFactor * jitter));
}

uint32_t SimAnalytics::departures(int channel, int64_t hour) const {
    const uint32_t in = arrivals(channel, hour);
    return in * uint32_t(85 + noise(channel, hour, 3) % 16) / 100;
}

std::vector<uint32_t> SimAnalytics::heatGrid(int channel, int64_t day, int days) const {
    std::vector<uint32_t> grid(size_t(kHeatColumns) * kHeatRows, 0);
    uint64_t people = 0;
    for (int64_t h = day * kHoursPerDay; h < (day + days) * kHoursPerDay; ++h)
        people += arrivals(channel, h);
    struct Spot {
        double x, y, sigma, weight;
    };
    const Spot spots[2] = {
        {double(8 + noise(channel, 0, 4) % 48), double(6 + noise(channel, 0, 5) % 24),
         4.0 + double(noise(channel, 0, 6) % 5), 1.0},
        {double(8 + noise(channel, 1, 4) % 48), double(6 + noise(channel, 1, 5) % 24),
         5.0 + double(noise(channel, 1, 6) % 6), 0.6},
    };
    for (int y = 0; y < kHeatRows; ++y)
        for (int x = 0; x < kHeatColumns; ++x) {
            double heat = 0;
            for (const Spot& s : spots) {
                const double d2 = (x - s.x) * (x - s.x) + (y - s.y) * (y - s.y);
                heat += s.weight * std::exp(-d2 / (2 * s.sigma * s.sigma));
            }
            // Far from both spots nobody walks: those cells stay 0.
            grid[size_t(y) * kHeatColumns + size_t(x)] =
                heat < 0.02 ? 0 : uint32_t(std::lround(heat * double(people) / 20.0));
        }
    return grid;
}

std::vector<uint8_t> SimAnalytics::heatMapReply(const HeatMapRequest& r) const {
    if (int64_t(r.channel) >= m_channels || !validDate(r.day) || r.span > HeatMapRequest::kWeek) {
        simRecorderLog("sim: heat map of channel %u refused", r.channel);
        return {};
    }
    HeatMapReply reply;
    reply.head.channel = r.channel;
    reply.head.columns = kHeatColumns;
    reply.head.rows = kHeatRows;
    reply.picture = SimSnapshot::jpeg(m_seed, int(r.channel));
    reply.values =
        heatGrid(int(r.channel), SimRecordDb::daysFromCivil(r.day.year, r.day.month, r.day.day),
                 r.span == HeatMapRequest::kWeek ? 7 : 1);
    return reply.encode();
}

std::vector<uint8_t> SimAnalytics::peopleStatsReply(const PeopleStatsRequest& r) const {
    if (r.period > PeopleStatsRequest::kMonth || r.bucketCount > PeopleStatsRequest::kMaxBuckets ||
        !validDate(r.start)) {
        simRecorderLog("sim: people statistics (period %u, %u buckets) refused", r.period,
                       r.bucketCount);
        return {};
    }
    PeopleStatsReply reply;
    reply.head.period = r.period;
    reply.head.bucketCount = r.bucketCount;
    const int64_t startDay = SimRecordDb::daysFromCivil(r.start.year, r.start.month, r.start.day);
    auto hours = [&](int channel, int64_t firstHour, int64_t count, uint32_t* in, uint32_t* out) {
        for (int64_t h = firstHour; h < firstHour + count; ++h) {
            *in += arrivals(channel, h);
            *out += departures(channel, h);
        }
    };
    for (int ch = 0; ch < m_channels; ++ch) {
        if ((r.channels >> ch & 1) == 0)
            continue;
        PeopleStatsReply::Channel c;
        c.channel = uint32_t(ch);
        c.in.assign(r.bucketCount, 0);
        c.out.assign(r.bucketCount, 0);
        int year = r.start.year, month = r.start.month;
        for (uint32_t b = 0; b < r.bucketCount; ++b) {
            switch (r.period) {
            case PeopleStatsRequest::kHour:
                hours(ch, startDay * kHoursPerDay + r.start.hour + b, 1, &c.in[b], &c.out[b]);
                break;
            case PeopleStatsRequest::kDay:
                hours(ch, (startDay + b) * kHoursPerDay, kHoursPerDay, &c.in[b], &c.out[b]);
                break;
            case PeopleStatsRequest::kWeek:
                hours(ch, (startDay + 7 * int64_t(b)) * kHoursPerDay, 7 * kHoursPerDay, &c.in[b],
                      &c.out[b]);
                break;
            default: {
                const int64_t first = SimRecordDb::daysFromCivil(year, month, 1);
                hours(ch, first * kHoursPerDay, int64_t(daysInMonth(year, month)) * kHoursPerDay,
                      &c.in[b], &c.out[b]);
                if (++month > 12) {
                    month = 1;
                    ++year;
                }
            }
            }
        }
        reply.channels.push_back(std::move(c));
    }
    return reply.encode();
}

void SimAnalytics::attach(SimServer& server) {
    m_server = &server;
    server.addHandler(MainType::Analytics, AnalyticsCountSubType::HeatMap,
                      [this](SimServer& s, const SimMessage& m) {
                          if (m.body.size() < HeatMapRequest::kSize)
                              return false;
                          HeatMapRequest r;
                          std::memcpy(&r, m.body.data(), sizeof r);
                          const std::vector<uint8_t> body = heatMapReply(r);
                          return s.reply(m, body.data(), uint32_t(body.size()));
                      });
    server.addHandler(MainType::Analytics, AnalyticsCountSubType::PeopleStats,
                      [this](SimServer& s, const SimMessage& m) {
                          if (m.body.size() < PeopleStatsRequest::kSize)
                              return false;
                          PeopleStatsRequest r;
                          std::memcpy(&r, m.body.data(), sizeof r);
                          const std::vector<uint8_t> body = peopleStatsReply(r);
                          return s.reply(m, body.data(), uint32_t(body.size()));
                      });
    server.addHandler(MainType::Analytics, AnalyticsCountSubType::Snapshot,
                      [this](SimServer& s, const SimMessage& m) {
                          if (m.body.size() < 4)
                              return false;
                          const uint32_t ch = ByteOrder::loadLe32(m.body.data());
                          const std::vector<uint8_t> picture =
                              int64_t(ch) < m_channels ? SimSnapshot::jpeg(m_seed, int(ch))
                                                       : std::vector<uint8_t>();
                          return s.reply(m, picture.data(), uint32_t(picture.size()));
                      });
    server.addHandler(MainType::Analytics, AnalyticsCountSubType::CountReset,
                      [this](SimServer&, const SimMessage& m) {
                          if (m.body.size() < 4)
                              return false;
                          const uint32_t ch = ByteOrder::loadLe32(m.body.data());
                          if (int64_t(ch) >= m_channels)
                              return false;
                          {
                              std::lock_guard<std::mutex> lock(m_mutex);
                              m_in[ch] = m_out[ch] = 0;
                          }
                          send(live(int(ch)));
                          return true;
                      });
}

CountLiveNotice SimAnalytics::live(int channel) const {
    CountLiveNotice n;
    if (channel < 0 || channel >= m_channels)
        return n;
    std::lock_guard<std::mutex> lock(m_mutex);
    n.channel = uint32_t(channel);
    n.in = m_in[size_t(channel)];
    n.out = m_out[size_t(channel)];
    return n;
}

void SimAnalytics::send(const CountLiveNotice& n) {
    if (m_server == nullptr)
        return;
    uint8_t body[CountLiveNotice::kSize];
    n.encode(body);
    m_server->notify(MainType::Analytics, AnalyticsCountSubType::CountLive, 0, body, sizeof body);
}

void SimAnalytics::tick(SimParamStore& store) {
    const std::vector<uint8_t> block =
        store.get(CountRuleBlock::kBlockNumber, uint32_t(CountRuleBlock::kSize));
    std::vector<CountLiveNotice> notices;
    std::vector<std::pair<int, bool>> alarms;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const int64_t minute = m_minute++;
        const int64_t hour = minute / 60;
        const int64_t inHour = minute % 60;
        for (int ch = 0; ch < m_channels; ++ch) {
            const uint8_t* rule = block.data() + size_t(ch) * CountRule::kSize;
            if (rule[0] == 0)
                continue;
            if (minute % kMinutesPerDay == 0)
                m_in[size_t(ch)] = m_out[size_t(ch)] = 0; // a new day counts from 0
            // This minute's share of the hour, so that the hour adds up exactly.
            const uint32_t a = arrivals(ch, hour), d = departures(ch, hour);
            m_in[size_t(ch)] += uint32_t(a * (inHour + 1) / 60 - a * inHour / 60);
            m_out[size_t(ch)] += uint32_t(d * (inHour + 1) / 60 - d * inHour / 60);
            CountLiveNotice n;
            n.channel = uint32_t(ch);
            n.in = m_in[size_t(ch)];
            n.out = m_out[size_t(ch)];
            n.limit = ByteOrder::loadLe32(rule + 4);
            const bool over = n.limit != 0 && n.inside() > n.limit;
            n.flags = over ? CountLiveNotice::kOverLimit : 0;
            if (over != m_alarmed[size_t(ch)]) {
                m_alarmed[size_t(ch)] = over;
                alarms.emplace_back(ch, over);
            }
            notices.push_back(n);
        }
    }
    // Sent with no lock held: notify() may block on the socket.
    for (const CountLiveNotice& n : notices)
        send(n);
    if (m_alarm)
        for (const auto& a : alarms)
            m_alarm(a.first, a.second);
}

void SimAnalytics::setAlarm(std::function<void(int, bool)> alarm) {
    m_alarm = std::move(alarm);
}

void SimAnalytics::startTicking(int periodMs, SimParamStore& store) {
    if (m_tickThread.joinable() || periodMs <= 0)
        return;
    m_tickThread = std::thread([this, periodMs, &store] {
        std::unique_lock<std::mutex> lock(m_tickMutex);
        while (!m_stopping) {
            m_tickCond.wait_for(lock, std::chrono::milliseconds(periodMs));
            if (m_stopping)
                break;
            lock.unlock();
            tick(store);
            lock.lock();
        }
    });
}

bool SimAnalytics::runCommand(const std::vector<std::string>& w) {
    if (w.size() != 2 || w[0] != "count")
        return false;
    const int ch = std::atoi(w[1].c_str()) - 1;
    if (ch < 0 || ch >= m_channels)
        return false;
    const CountLiveNotice n = live(ch);
    simRecorderLog("sim: channel %d in %u out %u", ch + 1, n.in, n.out);
    send(n);
    return true;
}
