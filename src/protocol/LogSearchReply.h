#pragma once
// Reply to MaintenanceSubType::LogSearch: a 16-byte head and `count` LogEntry records, the
// matches first .. first + count - 1 of `total`.
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct LogEntry {
    static constexpr size_t kSize = 64;      // bytes on the wire
    static constexpr size_t kTextBytes = 48; // UTF-8, NUL-terminated

    PackedDateTime time;
    uint32_t type = 0;    // one LogSearchRequest type bit
    int32_t channel = -1; // 0-based, -1: not about a channel
    char text[kTextBytes] = {};
};

struct LogSearchReply {
    static constexpr size_t kSize = 16; // bytes of the head
    // More matches than this are not a real log: the answer is refused.
    static constexpr uint32_t kMaxTotal = 1000000;

    uint32_t total = 0; // matches of the whole search
    uint32_t first = 0; // index of the first entry carried
    uint32_t count = 0; // entries that follow the head
    uint32_t reserved = 0;
};

static_assert(sizeof(LogEntry) == LogEntry::kSize, "wire size");
static_assert(sizeof(LogSearchReply) == LogSearchReply::kSize, "wire size");
