#pragma once
// Reply to MaintenanceSubType::UpgradeList (request, no body): the firmware files App found
// on the USB stick, a head and `count` UpgradeFileEntry records.
#include <cstddef>
#include <cstdint>

struct UpgradeFileEntry {
    static constexpr size_t kSize = 136; // bytes on the wire
    static constexpr size_t kNameBytes = 64;
    static constexpr size_t kTextBytes = 32;
    // Values of `state`: what App found when it read the file's header and checksum.
    static constexpr uint32_t kIntact = 0;
    static constexpr uint32_t kDamaged = 1; // truncated or checksum wrong

    char name[kNameBytes] = {};       // file name on the stick, UTF-8, NUL-terminated
    char version[kTextBytes] = {};    // firmware version in the file's header
    char deviceType[kTextBytes] = {}; // the model the file is for, from its header
    uint32_t sizeKiB = 0;
    uint32_t state = kIntact;
};

struct UpgradeFileList {
    static constexpr size_t kSize = 8; // bytes of the head
    static constexpr uint32_t kMaxFiles = 32;

    uint32_t count = 0;
    uint32_t reserved = 0;
};

static_assert(sizeof(UpgradeFileEntry) == UpgradeFileEntry::kSize, "wire size");
static_assert(sizeof(UpgradeFileList) == UpgradeFileList::kSize, "wire size");
