#pragma once
// Body of App's AnalyticsCountSubType::CountLive notification: one channel's counts since
// midnight (or the last CountReset), sent whenever they change.
#include "protocol/ByteOrder.h"

#include <cstddef>
#include <cstdint>
#include <optional>

struct CountLiveNotice {
    static constexpr size_t kSize = 20;         // bytes
    static constexpr uint32_t kOverLimit = 0x1; // `flags`: more people inside than the limit

    uint32_t channel = 0; // 0-based
    uint32_t in = 0;
    uint32_t out = 0;
    uint32_t limit = 0; // the rule's limit, 0: none
    uint32_t flags = 0;

    // People inside: those in less those out, never below zero (a count may start with
    // people already inside).
    uint32_t inside() const { return in > out ? in - out : 0; }

    static std::optional<CountLiveNotice> decode(const uint8_t* body, size_t len) {
        if (body == nullptr || len < kSize)
            return std::nullopt;
        CountLiveNotice n;
        n.channel = ByteOrder::loadLe32(body);
        n.in = ByteOrder::loadLe32(body + 4);
        n.out = ByteOrder::loadLe32(body + 8);
        n.limit = ByteOrder::loadLe32(body + 12);
        n.flags = ByteOrder::loadLe32(body + 16);
        return n;
    }
    void encode(uint8_t* out20) const {
        ByteOrder::storeLe32(out20, channel);
        ByteOrder::storeLe32(out20 + 4, in);
        ByteOrder::storeLe32(out20 + 8, out);
        ByteOrder::storeLe32(out20 + 12, limit);
        ByteOrder::storeLe32(out20 + 16, flags);
    }
};

static_assert(sizeof(CountLiveNotice) == CountLiveNotice::kSize, "wire size");
