#pragma once
// Parameter block 96 (ours), read only: every get makes App search the local network for
// cameras and answers what it found. A set is refused.
#include <cstddef>
#include <cstdint>

struct CameraSearchBlock {
    static constexpr uint32_t kBlockNumber = 96;
    static constexpr size_t kSize = 1024; // bytes on the wire
    static constexpr int kMaxCameras = 20;

    struct Found {
        uint8_t address[4]; // most significant first
        uint16_t port;
        uint8_t mac[6];
        char model[32]; // UTF-8, NUL-terminated
    };

    uint8_t count; // entries filled, 0..kMaxCameras
    uint8_t reserved1[3];
    Found cameras[kMaxCameras];
    uint8_t reserved884[140];
};

static_assert(sizeof(CameraSearchBlock::Found) == 44, "entry");
static_assert(sizeof(CameraSearchBlock) == CameraSearchBlock::kSize, "wire size");
