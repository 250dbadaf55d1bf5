#pragma once
// Body of MaintenanceSubType::Power (GUI -> App): the user confirmed shutting the recorder
// down or restarting it. App answers with its shutdown notice (SystemSubType::Shutdown).
#include <cstddef>
#include <cstdint>

struct MaintenancePower {
    static constexpr size_t kSize = 8; // bytes on the wire
    // Values of `action`.
    static constexpr uint32_t kShutDown = 1;
    static constexpr uint32_t kRestart = 2;

    uint32_t action = kShutDown;
    uint32_t reserved = 0;
};

static_assert(sizeof(MaintenancePower) == MaintenancePower::kSize, "wire size");
