#pragma once
// Body of MaintenanceSubType::LogSearch (request): one page of App's system log, the entries
// between two times whose type is among `typeMask`, oldest first, from the `first`-th match.
#include "protocol/PackedDateTime.h"

#include <cstddef>
#include <cstdint>

struct LogSearchRequest {
    static constexpr size_t kSize = 32; // bytes on the wire
    // Entry types (bits of `typeMask`, value of LogEntry::type).
    static constexpr uint32_t kSystem = 1u << 0;  // start, shutdown, restart, upgrade
    static constexpr uint32_t kConfig = 1u << 1;  // settings changed, defaults loaded
    static constexpr uint32_t kAlarm = 1u << 2;   // alarm inputs, motion, video loss
    static constexpr uint32_t kStorage = 1u << 3; // disks: formatted, full, failing
    static constexpr uint32_t kUser = 1u << 4;    // logins, log-outs, wrong passwords
    static constexpr uint32_t kAllTypes = (1u << 5) - 1;
    // Most entries one answer may carry.
    static constexpr uint32_t kMaxPage = 100;

    PackedDateTime from;
    PackedDateTime to;
    uint32_t typeMask = kAllTypes;
    uint32_t first = 0;
    uint32_t maxCount = kMaxPage; // 1..kMaxPage
    uint32_t reserved = 0;
};

static_assert(sizeof(LogSearchRequest) == LogSearchRequest::kSize, "wire size");
