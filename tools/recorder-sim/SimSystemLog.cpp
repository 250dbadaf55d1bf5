#include "SimSystemLog.h"

#include "SimRecordDb.h"

#include <algorithm>
#include <cstring>
#include <ctime>

namespace {

constexpr long long kDaySeconds = 86400;

// splitmix64, as the record database: the same log on every host for one seed.
uint64_t mix(uint64_t x) {
    x += 0x9E3779B97F4A7C15ull;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ull;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBull;
    return x ^ (x >> 31);
}

long long seconds(const PackedDateTime& t) {
    return SimRecordDb::daysFromCivil(t.year, t.month, t.day) * kDaySeconds + t.hour * 3600 +
           t.minute * 60 + t.second;
}

PackedDateTime packed(long long secs) {
    PackedDateTime p;
    int y = 0, m = 0, d = 0;
    SimRecordDb::civilFromDays(long(secs / kDaySeconds), &y, &m, &d);
    const long long rest = secs % kDaySeconds;
    p.year = uint16_t(y);
    p.month = uint8_t(m);
    p.day = uint8_t(d);
    p.hour = uint8_t(rest / 3600);
    p.minute = uint8_t(rest / 60 % 60);
    p.second = uint8_t(rest % 60);
    return p;
}

bool isSet(const PackedDateTime& t) {
    return t.year != 0;
}

// What the made-up entries say, by type bit.
const char* const kTexts[] = {"Device started", "Settings changed", "Motion detected",
                              "Disk check passed", "User admin logged in"};

} // namespace

SimSystemLog::SimSystemLog(uint32_t seed, int perDay, long today, int channels) {
    m_entries.reserve(size_t(std::max(0, perDay)));
    for (int i = 0; i < perDay; ++i) {
        const uint64_t r = mix(uint64_t(seed) << 32 | uint32_t(i));
        const int typeIndex = int(r % 5);
        const long long at = today * kDaySeconds + i * kDaySeconds / perDay;
        const int channel =
            typeIndex == 2 && channels > 0 ? int((r >> 8) % uint64_t(channels)) : -1;
        m_entries.push_back({at, make(at, 1u << typeIndex, channel, kTexts[typeIndex])});
    }
}

LogEntry SimSystemLog::make(long long secs, uint32_t type, int channel, const std::string& text) {
    LogEntry e;
    e.time = packed(secs);
    e.type = type;
    e.channel = channel;
    std::strncpy(e.text, text.c_str(), sizeof e.text - 1);
    return e;
}

void SimSystemLog::add(uint32_t type, const std::string& text, int channel) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const long long at =
        SimRecordDb::daysFromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) *
            kDaySeconds +
        local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
    std::lock_guard<std::mutex> lock(m_mutex);
    // Kept in time order: the made-up day may reach past now.
    const Stamped s{at, make(at, type, channel, text)};
    m_entries.insert(
        std::upper_bound(m_entries.begin(), m_entries.end(), s,
                         [](const Stamped& a, const Stamped& b) { return a.seconds < b.seconds; }),
        s);
}

size_t SimSystemLog::size() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_entries.size();
}

bool SimSystemLog::matchesOne(const Stamped& s, const LogSearchRequest& req) {
    return (s.entry.type & req.typeMask) != 0 &&
           (!isSet(req.from) || s.seconds >= seconds(req.from)) &&
           (!isSet(req.to) || s.seconds <= seconds(req.to));
}

uint32_t SimSystemLog::matches(const LogSearchRequest& req) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return uint32_t(std::count_if(m_entries.begin(), m_entries.end(),
                                  [&](const Stamped& s) { return matchesOne(s, req); }));
}

std::vector<uint8_t> SimSystemLog::search(const LogSearchRequest& req) const {
    const uint32_t most = std::min(req.maxCount, LogSearchRequest::kMaxPage);
    LogSearchReply head;
    head.first = req.first;
    std::vector<LogEntry> page;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        for (const Stamped& s : m_entries) {
            if (!matchesOne(s, req))
                continue;
            if (head.total >= req.first && page.size() < most)
                page.push_back(s.entry);
            ++head.total;
        }
    }
    head.first = std::min(req.first, head.total);
    head.count = uint32_t(page.size());
    std::vector<uint8_t> out(sizeof head + page.size() * sizeof(LogEntry));
    std::memcpy(out.data(), &head, sizeof head);
    if (!page.empty())
        std::memcpy(out.data() + sizeof head, page.data(), page.size() * sizeof(LogEntry));
    return out;
}
