#pragma once
// Parameter block 32, the wired network: DHCP or static addresses, DNS servers and the
// service ports. Addresses are four bytes, most significant first (192.168.1.10 is
// {192, 168, 1, 10}); ports are u16.
#include "protocol/ParamBlock.h"

#include <cstddef>
#include <cstdint>

struct NetworkBlock {
    static constexpr uint32_t kBlockNumber = ParamBlock::Network.number;
    static constexpr size_t kSize = ParamBlock::Network.size; // bytes on the wire
    static constexpr uint16_t kMinPort = 1;
    // Ports below this are the system's own; only the HTTP port may take 80 among them.
    static constexpr uint16_t kFirstUserPort = 1024;
    static constexpr uint16_t kHttpDefaultPort = 80;

    uint8_t dhcp; // 0 static, 1 addresses from DHCP
    uint8_t reserved1[3];
    uint8_t address[4];
    uint8_t netmask[4];
    uint8_t gateway[4];
    uint8_t dns1[4];
    uint8_t dns2[4];
    uint16_t httpPort;   // web client
    uint16_t serverPort; // the recorder's media port for remote clients
    uint8_t reserved28[484];
};

static_assert(sizeof(NetworkBlock) == NetworkBlock::kSize, "wire size");
static_assert(offsetof(NetworkBlock, address) == 4, "address");
static_assert(offsetof(NetworkBlock, httpPort) == 24, "ports");
