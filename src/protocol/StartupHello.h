#pragma once
// Body of the GUI's first message, (MainType::System, SystemSubType::Hello): two u32 words,
// little-endian.
#include "protocol/ByteOrder.h"

#include <cstddef>
#include <cstdint>
#include <optional>

struct StartupHello {
    static constexpr size_t kSize = 8; // bytes on the wire
    // First word: the revision of the start-up exchange this GUI speaks. App refuses a GUI
    // built against another revision of the shared record layouts.
    static constexpr uint32_t kRevision = 32;

    uint32_t revision = kRevision;
    uint32_t recordSize = 0; // bytes of the device default record the GUI sends next

    void encode(uint8_t* out) const {
        ByteOrder::storeLe32(out, revision);
        ByteOrder::storeLe32(out + 4, recordSize);
    }
    // Empty unless the body is exactly kSize bytes.
    static std::optional<StartupHello> decode(const uint8_t* body, size_t len) {
        if (body == nullptr || len != kSize)
            return std::nullopt;
        StartupHello h;
        h.revision = ByteOrder::loadLe32(body);
        h.recordSize = ByteOrder::loadLe32(body + 4);
        return h;
    }
};
