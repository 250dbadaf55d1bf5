#pragma once
// Reply to MaintenanceSubType::UpgradeStatus (request, no body): how far the upgrade App was
// asked for (MaintenanceSubType::UpgradeStart, body: the file name, UpgradeFileEntry::kNameBytes)
// has come. The GUI asks about once a second while its progress dialog is up.
#include <cstddef>
#include <cstdint>

struct UpgradeProgress {
    static constexpr size_t kSize = 16; // bytes on the wire
    // Values of `state`.
    static constexpr uint32_t kIdle = 0;
    static constexpr uint32_t kRunning = 1;
    static constexpr uint32_t kDone = 2; // App restarts the device next
    static constexpr uint32_t kFailed = 3;
    // Values of `error` with kFailed.
    static constexpr uint32_t kNoDevice = 1;    // the stick went away
    static constexpr uint32_t kDamagedFile = 2; // truncated, or its checksum is wrong
    static constexpr uint32_t kWrongModel = 3;  // the file is for another model
    static constexpr uint32_t kNoFile = 4;      // no such file on the stick

    uint32_t state = kIdle;
    uint32_t percent = 0; // 0..100
    uint32_t error = 0;
    uint32_t reserved = 0;
};

static_assert(sizeof(UpgradeProgress) == UpgradeProgress::kSize, "wire size");
