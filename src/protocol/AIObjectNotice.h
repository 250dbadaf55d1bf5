#pragma once
// FaceSubType::ObjectNote: an object App's analytics found in a channel's picture.
#include <cstddef>
#include <cstdint>

struct AIObjectNotice {
    static constexpr size_t kSize = 32;          // bytes on the wire
    static constexpr uint32_t kBoxScale = 10000; // box fields are parts of the picture in 1/10000

    // Values of `objectType`.
    static constexpr uint32_t kFace = 0;
    static constexpr uint32_t kPerson = 1;
    static constexpr uint32_t kVehicle = 2;

    int64_t time = 0; // seconds since the epoch, local time
    uint32_t channel = 0;
    uint32_t objectType = 0;
    uint16_t x = 0;
    uint16_t y = 0;
    uint16_t width = 0;
    uint16_t height = 0;
    uint32_t confidence = 0; // percent
    uint32_t reserved = 0;
};

static_assert(sizeof(AIObjectNotice) == AIObjectNotice::kSize, "wire size");
