#pragma once
// Parameter block 22, the device parameters: the device's name, its ID on the control
// keyboard and remote bus, and the remote-access service it registers with.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

struct DeviceParamBlock {
    static constexpr uint32_t kBlockNumber = 22;
    static constexpr size_t kSize = 880; // bytes on the wire

    char deviceName[64];          // NUL-terminated text
    uint32_t deviceId;            // address on the remote control and the 485 bus
    uint32_t remoteAccessEnabled; // non-zero: register with the remote-access server
    char remoteAddress[128];      // server host name or address, NUL-terminated
    uint16_t remotePort;          // TCP port of the remote-access server
    uint8_t reserved202[2];
    uint32_t remoteControlAddress; // address last entered on an addressed remote, 0..999
    uint8_t reserved208[672];      // the device page's own fields

    std::string remoteAddressText() const {
        return std::string(remoteAddress, strnlen(remoteAddress, sizeof remoteAddress));
    }
};

static_assert(sizeof(DeviceParamBlock) == DeviceParamBlock::kSize, "wire size");
static_assert(offsetof(DeviceParamBlock, deviceId) == 64, "device id");
static_assert(offsetof(DeviceParamBlock, remoteAddress) == 72, "remote address");
static_assert(offsetof(DeviceParamBlock, remoteControlAddress) == 204, "remote control address");
