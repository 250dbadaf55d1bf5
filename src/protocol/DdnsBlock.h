#pragma once
// Parameter block 54, dynamic DNS: on or off, the service, the host name registered and its
// account, and App's status of the registration. Texts are UTF-8, NUL-terminated within
// their fields.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct DdnsBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Ddns.number;
    static constexpr size_t kSize = ParamBlock::Ddns.size; // bytes on the wire
    // The maker's own service, or any server speaking the common update protocol at `server`.
    enum Provider : uint8_t { BuiltIn = 0, Custom = 1, ProviderCount = 2 };
    enum Status : uint8_t {
        StatusOff = 0,
        StatusUpdating = 1,
        StatusRegistered = 2,
        StatusFailed = 3
    };

    uint8_t enabled;
    uint8_t provider; // Provider
    uint8_t status;   // App -> GUI: Status
    uint8_t reserved3;
    char host[64];
    char user[32];
    char password[32];
    char server[64]; // Custom only
    uint8_t reserved196[60];
};

static_assert(sizeof(DdnsBlock) == DdnsBlock::kSize, "wire size");
static_assert(offsetof(DdnsBlock, host) == 4, "host");
static_assert(offsetof(DdnsBlock, server) == 132, "server");
