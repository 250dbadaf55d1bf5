#pragma once
// Reply to MaintenanceSubType::UsbInfo (request, no body): the USB stick backups, exports
// and upgrades use, and its room.
#include <cstddef>
#include <cstdint>

struct UsbDeviceInfo {
    static constexpr size_t kSize = 16; // bytes on the wire

    uint32_t present = 0; // 1: a stick is plugged in and mounted
    uint32_t totalMiB = 0;
    uint32_t freeMiB = 0; // never more than totalMiB
    uint32_t reserved = 0;
};

static_assert(sizeof(UsbDeviceInfo) == UsbDeviceInfo::kSize, "wire size");
