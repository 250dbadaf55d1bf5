#pragma once
// One decoded wheel-mouse packet: the movement as the device counts it (y upward).
#include <cstdint>

struct VyMousePacket {
    int buttons = 0; // 1 = left, 2 = right, 4 = middle
    int dx = 0;
    int dy = 0;
    int wheel = 0; // multiples of 120
};
