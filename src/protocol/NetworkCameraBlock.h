#pragma once
// Parameter block 95 (ours), the network camera a channel shows: its address and port,
// the account App logs in with, and what the camera reported of itself. A get names the
// channel in the request's index; a set carries it in `channel`. Texts are UTF-8,
// NUL-terminated within their fields.
#include <cstddef>
#include <cstdint>

struct NetworkCameraBlock {
    static constexpr uint32_t kBlockNumber = 95;
    static constexpr size_t kSize = 128; // bytes on the wire
    static constexpr uint16_t kDefaultPort = 80;

    uint8_t channel;    // 0-based
    uint8_t enabled;    // 0: the channel has no network camera
    uint16_t port;      // 1..65535
    uint8_t address[4]; // most significant first
    char user[32];
    char password[32];
    char model[32]; // as the search found it; App's
    uint8_t reserved104[24];
};

static_assert(sizeof(NetworkCameraBlock) == NetworkCameraBlock::kSize, "wire size");
static_assert(offsetof(NetworkCameraBlock, user) == 8, "user");
static_assert(offsetof(NetworkCameraBlock, model) == 72, "model");
