#pragma once
// The message families of the socket to the recorder service (the header's MainType).
#include <cstdint>

namespace MainType {

constexpr uint16_t Preview = 100;  // live preview; App's notices go to the main-view manager
constexpr uint16_t Playback = 300; // playback and record search
constexpr uint16_t Param = 600;    // parameter blocks and the start-up defaults exchange
constexpr uint16_t System = 1000;  // start-up handshake, system information, notifications
constexpr uint16_t User = 1100;    // login, log-out and the user list
constexpr uint16_t Analytics = 1200;

} // namespace MainType
