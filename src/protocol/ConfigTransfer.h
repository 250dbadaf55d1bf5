#pragma once
// Reply to MaintenanceSubType::ConfigExport and ConfigImport (requests, no body): App saved
// every setting to a file on the USB stick, or replaced every setting with that file's.
#include <cstddef>
#include <cstdint>

struct ConfigTransferAnswer {
    static constexpr size_t kSize = 8; // bytes on the wire
    // Values of `result`.
    static constexpr uint32_t kDone = 0;
    static constexpr uint32_t kNoDevice = 1; // no stick
    static constexpr uint32_t kNoSpace = 2;  // the stick is full
    static constexpr uint32_t kNoFile = 3;   // import: no configuration file on the stick
    static constexpr uint32_t kDamaged = 4;  // import: the file is damaged or another model's

    uint32_t result = kNoDevice;
    uint32_t bytes = 0; // size of the file written or read
};

static_assert(sizeof(ConfigTransferAnswer) == ConfigTransferAnswer::kSize, "wire size");
