#pragma once
// Reply to the AnalyticsCountSubType::PeopleStats request: a 12-byte head, then per channel
// a u32 channel number followed by bucketCount pairs of u32 (in, out). Counts above the
// limits, or more records than the body holds, refuse the reply.
#include "protocol/ByteOrder.h"
#include "protocol/PeopleStatsRequest.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

struct PeopleStatsReply {
    static constexpr size_t kHeadSize = 12; // bytes
    static constexpr uint32_t kMaxChannels = 64;

    struct Head {
        uint32_t period = 0;
        uint32_t channelCount = 0;
        uint32_t bucketCount = 0;
    };
    struct Channel {
        uint32_t channel = 0;
        std::vector<uint32_t> in;
        std::vector<uint32_t> out;
    };

    Head head;
    std::vector<Channel> channels;

    static size_t bodySize(uint32_t channelCount, uint32_t bucketCount) {
        return kHeadSize + size_t(channelCount) * (4 + size_t(bucketCount) * 8);
    }

    static std::optional<PeopleStatsReply> decode(const uint8_t* body, size_t len) {
        if (body == nullptr || len < kHeadSize)
            return std::nullopt;
        PeopleStatsReply r;
        r.head.period = ByteOrder::loadLe32(body);
        r.head.channelCount = ByteOrder::loadLe32(body + 4);
        r.head.bucketCount = ByteOrder::loadLe32(body + 8);
        if (r.head.period > PeopleStatsRequest::kMonth || r.head.channelCount > kMaxChannels ||
            r.head.bucketCount > PeopleStatsRequest::kMaxBuckets ||
            len < bodySize(r.head.channelCount, r.head.bucketCount))
            return std::nullopt;
        const uint8_t* p = body + kHeadSize;
        r.channels.resize(r.head.channelCount);
        for (Channel& c : r.channels) {
            c.channel = ByteOrder::loadLe32(p);
            p += 4;
            c.in.resize(r.head.bucketCount);
            c.out.resize(r.head.bucketCount);
            for (uint32_t b = 0; b < r.head.bucketCount; ++b, p += 8) {
                c.in[b] = ByteOrder::loadLe32(p);
                c.out[b] = ByteOrder::loadLe32(p + 4);
            }
        }
        return r;
    }
    std::vector<uint8_t> encode() const {
        std::vector<uint8_t> out(bodySize(uint32_t(channels.size()), head.bucketCount), 0);
        ByteOrder::storeLe32(out.data(), head.period);
        ByteOrder::storeLe32(out.data() + 4, uint32_t(channels.size()));
        ByteOrder::storeLe32(out.data() + 8, head.bucketCount);
        uint8_t* p = out.data() + kHeadSize;
        for (const Channel& c : channels) {
            ByteOrder::storeLe32(p, c.channel);
            p += 4;
            for (uint32_t b = 0; b < head.bucketCount; ++b, p += 8) {
                ByteOrder::storeLe32(p, b < c.in.size() ? c.in[b] : 0);
                ByteOrder::storeLe32(p + 4, b < c.out.size() ? c.out[b] : 0);
            }
        }
        return out;
    }
};

static_assert(sizeof(PeopleStatsReply::Head) == PeopleStatsReply::kHeadSize, "wire size");
