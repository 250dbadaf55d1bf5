#pragma once
// The body of App's key notification (MainType::System, SystemSubType::ServiceKey): the key
// code itself (128..173, a network or virtual remote's key) travels in the header's
// msgValue; the optional body says whether the key came from a remote control that carries
// a device address. A notification without a body is a key from any other source.
#include <cstddef>
#include <cstdint>

#include "protocol/ByteOrder.h"

struct ServiceKeyNotice {
    static constexpr size_t kSize = 4; // bytes on the wire
    static constexpr uint32_t kFirstCode = 128;
    static constexpr uint32_t kLastCode = 173;

    uint32_t origin; // 1: an addressed remote control; 0: any other source

    static ServiceKeyNotice decode(const uint8_t* body, size_t length) {
        ServiceKeyNotice n{0};
        if (body != nullptr && length >= kSize)
            n.origin = ByteOrder::loadLe32(body);
        return n;
    }
};

static_assert(sizeof(ServiceKeyNotice) == ServiceKeyNotice::kSize, "wire size");
