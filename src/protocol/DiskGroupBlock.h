#pragma once
// Parameter block 49, the disks: what App reports of each (capacity, free space, state,
// health, formatting progress), the overwrite policy the user sets, and the format request:
// a set with bit d of `formatRequest` asks App to format disk d; App clears the request,
// reports the disk as formatting and sends "parameter changed" as the progress moves on.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct DiskGroupBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::DiskGroup.number;
    static constexpr size_t kSize = ParamBlock::DiskGroup.size; // bytes on the wire
    static constexpr int kMaxDisks = 8;

    enum State : uint8_t {
        StateNormal = 0,
        StateUnformatted = 1,
        StateError = 2,
        StateFormatting = 3
    };
    enum Health : uint8_t { HealthGood = 0, HealthWarning = 1, HealthFailing = 2 };

    struct Disk {
        uint8_t present;       // 0: no disk in this slot
        uint8_t state;         // State
        uint8_t health;        // Health
        uint8_t formatPercent; // 0..100 while formatting
        uint32_t capacityMB;
        uint32_t freeMB;
        char model[20]; // NUL-terminated unless all 20 are used
    };

    uint8_t diskCount;     // slots in use, at most kMaxDisks
    uint8_t overwrite;     // 1: overwrite the oldest recordings when full, 0: stop recording
    uint8_t formatRequest; // GUI -> App: bit d formats disk d; App answers with 0
    uint8_t reserved3;
    Disk disks[kMaxDisks];
    uint8_t reserved260[252];
};

static_assert(sizeof(DiskGroupBlock::Disk) == 32, "disk record");
static_assert(sizeof(DiskGroupBlock) == DiskGroupBlock::kSize, "wire size");
static_assert(offsetof(DiskGroupBlock, disks) == 4, "disks");
