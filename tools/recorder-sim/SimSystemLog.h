#pragma once
// App's system log: a day of entries made from a seed (the same seed gives the same log, so
// tests can count on it), and the entries the simulator adds as things happen. Answers the
// GUI's searches a page at a time.
//
//     SimSystemLog log(seed, 10000, SimRecordDb::localToday());
//     log.add(LogSearchRequest::kSystem, "Restart requested");
#include "protocol/LogSearchReply.h"
#include "protocol/LogSearchRequest.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

class SimSystemLog {
public:
    // `perDay` entries spread evenly over `today` (days since 1970-01-01, local calendar).
    SimSystemLog(uint32_t seed, int perDay, long today, int channels = 4);

    // An entry stamped with the local time now.
    void add(uint32_t type, const std::string& text, int channel = -1);
    size_t size() const;

    // The head and entries answering `req` (an empty `to` or `from` means no bound).
    std::vector<uint8_t> search(const LogSearchRequest& req) const;
    // The number of entries `req` matches, whatever page it asks for.
    uint32_t matches(const LogSearchRequest& req) const;

private:
    struct Stamped {
        long long seconds; // local seconds since 1970-01-01
        LogEntry entry;
    };
    static LogEntry make(long long seconds, uint32_t type, int channel, const std::string& text);
    static bool matchesOne(const Stamped& s, const LogSearchRequest& req);

    mutable std::mutex m_mutex;     // guards m_entries (console, handlers and tests)
    std::vector<Stamped> m_entries; // oldest first
};
