#pragma once
// The two operations the customisation exchange needs from the link to the recorder service.
// Start-up binds them to the IPC client; tests bind them to a scripted recorder.
#include <cstdint>
#include <functional>
#include <vector>

struct CustomConfigLink {
    // One-way message.
    std::function<void(uint16_t mainType, uint16_t subType, const uint8_t* body, uint32_t size)>
        send;
    // Request without a body, waiting for its reply; answers the reply body.
    std::function<std::vector<uint8_t>(uint16_t mainType, uint16_t subType)> request;
};
