#pragma once
// Parameter block 55, setting the clock from a time server: on or off, the server and its
// port, how often, and "sync now": a set with `syncRequest` 1 asks App to synchronise at
// once; App stores the request as 0, puts the outcome in `syncResult` and sends "parameter
// changed". Texts are UTF-8, NUL-terminated within their fields.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct NtpBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Ntp.number;
    static constexpr size_t kSize = ParamBlock::Ntp.size; // bytes on the wire
    static constexpr uint16_t kDefaultPort = 123;
    static constexpr uint16_t kMinIntervalMin = 1;
    static constexpr uint16_t kMaxIntervalMin = 10080; // a week
    enum SyncResult : uint8_t { SyncNone = 0, SyncDone = 1, SyncFailed = 2 };

    uint8_t enabled;
    uint8_t syncRequest; // GUI -> App
    uint8_t syncResult;  // App -> GUI: SyncResult
    uint8_t reserved3;
    uint16_t port;        // 1..65535
    uint16_t intervalMin; // kMinIntervalMin..kMaxIntervalMin
    char server[64];
    uint8_t reserved72[184];
};

static_assert(sizeof(NtpBlock) == NtpBlock::kSize, "wire size");
static_assert(offsetof(NtpBlock, server) == 8, "server");
