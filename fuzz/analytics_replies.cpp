// libFuzzer target: arbitrary bytes as App's crowd-counting, heat-map and statistics
// messages. Never crashes, never reads past its input, never allocates more than the limits
// allow, and what it keeps agrees with itself; a counting rule read from arbitrary bytes
// ends up inside the picture with a point count its buffer holds.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "protocol/CountLiveNotice.h"
#include "protocol/CountRule.h"
#include "protocol/HeatMapReply.h"
#include "protocol/PeopleStatsReply.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (auto n = CountLiveNotice::decode(data, size)) {
        if (n->inside() > n->in)
            std::abort();
    }
    if (auto h = HeatMapReply::decode(data, size)) {
        if (h->head.columns > HeatMapReply::kMaxColumns || h->head.rows > HeatMapReply::kMaxRows ||
            h->values.size() != size_t(h->head.columns) * h->head.rows ||
            h->picture.size() != h->head.pictureBytes)
            std::abort();
        // Decoding what was encoded gives the same grid back.
        const std::vector<uint8_t> again = h->encode();
        const auto h2 = HeatMapReply::decode(again.data(), again.size());
        if (!h2 || h2->values != h->values || h2->picture != h->picture)
            std::abort();
    }
    if (auto s = PeopleStatsReply::decode(data, size)) {
        if (s->channels.size() > PeopleStatsReply::kMaxChannels ||
            s->head.bucketCount > PeopleStatsRequest::kMaxBuckets)
            std::abort();
        for (const PeopleStatsReply::Channel& c : s->channels)
            if (c.in.size() != s->head.bucketCount || c.out.size() != s->head.bucketCount)
                std::abort();
    }
    if (size >= CountRule::kSize) {
        CountRule r;
        std::memcpy(&r, data, sizeof r);
        r.sanitise();
        if (r.pointCount > CountRule::kMaxPoints ||
            (r.pointCount != 0 && r.pointCount < r.minimumPoints()))
            std::abort();
        for (const CountRule::Point& p : r.points)
            if (p.x > CountRule::kCoordRange || p.y > CountRule::kCoordRange)
                std::abort();
    }
    return 0;
}
