#pragma once
// Body of MaintenanceSubType::FactoryDefaults (request) and its reply: App puts every setting
// back to its factory value except the groups the user chose to keep.
#include <cstddef>
#include <cstdint>

struct FactoryDefaultsRequest {
    static constexpr size_t kSize = 8; // bytes on the wire
    // Bits of `keep`.
    static constexpr uint32_t kKeepNetwork = 1u << 0;   // addresses, ports, remote access
    static constexpr uint32_t kKeepRecording = 1u << 1; // record parameters and schedules
    static constexpr uint32_t kKeepGeneral = 1u << 2;   // language, date format, time-outs

    uint32_t keep = 0;
    uint32_t reserved = 0;
};

struct FactoryDefaultsAnswer {
    static constexpr size_t kSize = 8; // bytes on the wire

    uint32_t result = 1;      // 0: done
    uint32_t blocksReset = 0; // stored blocks put back to factory values
};

static_assert(sizeof(FactoryDefaultsRequest) == FactoryDefaultsRequest::kSize, "wire size");
static_assert(sizeof(FactoryDefaultsAnswer) == FactoryDefaultsAnswer::kSize, "wire size");
