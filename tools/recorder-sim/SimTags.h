#pragma once
// App's tags, simulated: every recorded day of every channel holds two tags made from the
// seed ("ENTRY" in the morning, "EXIT" in the evening), and the custom tags the GUI adds
// are kept for the run. A tag search answers those in its range and channels whose name
// holds the keyword (any case).
//
//     SimTags tags(config);   // record_seed, channels
//     tags.attach(server);    // TagSearch and TagAdd of MainType 300
#include "SimRecorderConfig.h"
#include "protocol/PlaybackTag.h"

#include <mutex>
#include <string>
#include <vector>

class SimServer;
struct SimMessage;

class SimTags {
public:
    explicit SimTags(const SimRecorderConfig& config, long today);

    void attach(SimServer& server);
    // The tags of `channel` between two local times (seconds since 1970-01-01, both
    // included) whose name holds `keyword`.
    std::vector<PlaybackTag> find(int channel, long long from, long long to,
                                  const std::string& keyword) const;
    int addedCount() const;

private:
    bool onSearch(SimServer& s, const SimMessage& m);
    bool onAdd(SimServer& s, const SimMessage& m);

    uint32_t m_seed;
    int m_channels;
    long m_today;
    mutable std::mutex m_mutex; // guards m_added
    std::vector<PlaybackTag> m_added;
};
