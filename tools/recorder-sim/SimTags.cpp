#include "SimTags.h"

#include "SimRecordDb.h"
#include "SimRecorder.h"
#include "SimServer.h"
#include "protocol/MainType.h"
#include "protocol/SubType.h"
#include "protocol/TagSearchRequest.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace {

constexpr long long kDaySeconds = 86400;

long long seconds(const PackedDateTime& t) {
    return SimRecordDb::secondsOf(t);
}

PackedDateTime packed(long long secs) {
    return SimRecordDb::packSeconds(secs);
}

std::string lower(std::string s) {
    for (char& c : s)
        c = char(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::string nameOf(const PlaybackTag& t) {
    return std::string(t.name, strnlen(t.name, sizeof t.name));
}

} // namespace

SimTags::SimTags(const SimRecorderConfig& config, long today)
    : m_seed(config.recordSeed)
    , m_channels(config.channels)
    , m_today(today) {}

void SimTags::attach(SimServer& server) {
    server.addHandler(MainType::Playback, PlaybackSubType::TagSearch,
                      [this](SimServer& s, const SimMessage& m) { return onSearch(s, m); });
    server.addHandler(MainType::Playback, PlaybackSubType::TagAdd,
                      [this](SimServer& s, const SimMessage& m) { return onAdd(s, m); });
}

int SimTags::addedCount() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return int(m_added.size());
}

std::vector<PlaybackTag> SimTags::find(int channel, long long from, long long to,
                                       const std::string& keyword) const {
    std::vector<PlaybackTag> all;
    const long first =
        long(std::max<long long>(from / kDaySeconds, m_today - SimRecordDb::kDays + 1));
    const long last = long(std::min<long long>(to / kDaySeconds, m_today));
    for (long day = first; day <= last && channel < m_channels; ++day) {
        // Minutes past 07:00 and 17:00, different for every channel and day.
        const uint32_t h = m_seed * 2654435761u ^ uint32_t(channel) * 40503u ^ uint32_t(day) * 97u;
        const long long entry = day * kDaySeconds + 7 * 3600 + (h % 120) * 60;
        const long long exit = day * kDaySeconds + 17 * 3600 + (h / 120 % 120) * 60;
        const std::pair<long long, const char*> made[] = {{entry, "ENTRY"}, {exit, "EXIT"}};
        for (const auto& [at, name] : made) {
            PlaybackTag t;
            t.time = packed(at);
            t.channel = uint32_t(channel);
            t.id = uint32_t(day % 100000) * 1000 + uint32_t(channel) * 2 + (at == exit ? 1 : 0);
            std::strncpy(t.name, name, sizeof t.name - 1);
            all.push_back(t);
        }
    }
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        for (const PlaybackTag& t : m_added)
            if (int(t.channel) == channel)
                all.push_back(t);
    }
    const std::string key = lower(keyword);
    std::vector<PlaybackTag> out;
    for (const PlaybackTag& t : all) {
        const long long at = seconds(t.time);
        if (at >= from && at <= to && lower(nameOf(t)).find(key) != std::string::npos)
            out.push_back(t);
    }
    return out;
}

bool SimTags::onSearch(SimServer& s, const SimMessage& m) {
    TagSearchRequest req;
    if (m.body.size() < sizeof req)
        return false;
    std::memcpy(&req, m.body.data(), sizeof req);
    const long long from = seconds(req.start), to = seconds(req.end);
    if (from < 0 || to < from)
        return false;
    const std::string keyword(req.keyword, strnlen(req.keyword, sizeof req.keyword));
    std::vector<PlaybackTag> found;
    for (int c = 0; c < m_channels && c < PlaybackChannelBits::kMaxChannels; ++c) {
        if (req.channelBits[c / 8] & (1u << (c % 8))) {
            const std::vector<PlaybackTag> tags = find(c, from, to, keyword);
            found.insert(found.end(), tags.begin(), tags.end());
        }
    }
    if (found.size() > TagSearchResult::kMaxTags)
        found.resize(TagSearchResult::kMaxTags);
    TagSearchResult head;
    head.tagCount = uint32_t(found.size());
    std::vector<uint8_t> body(sizeof head + found.size() * sizeof(PlaybackTag));
    std::memcpy(body.data(), &head, sizeof head);
    if (!found.empty())
        std::memcpy(body.data() + sizeof head, found.data(), found.size() * sizeof(PlaybackTag));
    return s.notify(MainType::Playback, PlaybackSubType::TagSearch, 0, body.data(),
                    uint32_t(body.size()));
}

bool SimTags::onAdd(SimServer&, const SimMessage& m) {
    PlaybackTag t;
    if (m.body.size() < sizeof t)
        return false;
    std::memcpy(&t, m.body.data(), sizeof t);
    if (seconds(t.time) < 0 || t.channel >= uint32_t(m_channels))
        return false;
    t.name[sizeof t.name - 1] = '\0';
    std::lock_guard<std::mutex> lock(m_mutex);
    // Numbers of added tags start where made tags cannot reach.
    t.id = 0x80000000u + uint32_t(m_added.size());
    m_added.push_back(t);
    simRecorderLog("sim: tag \"%s\" added on channel %u", t.name, t.channel + 1);
    return true;
}
