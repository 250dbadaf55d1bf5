#pragma once
// The wire is little-endian whatever the host. These read and write integers byte by byte,
// so they hold on any host and at any alignment.
#include <cstdint>

namespace ByteOrder {

inline uint16_t loadLe16(const uint8_t* p) {
    return uint16_t(p[0] | (p[1] << 8));
}
inline uint32_t loadLe32(const uint8_t* p) {
    return uint32_t(p[0]) | (uint32_t(p[1]) << 8) | (uint32_t(p[2]) << 16) | (uint32_t(p[3]) << 24);
}
inline uint64_t loadLe64(const uint8_t* p) {
    return uint64_t(loadLe32(p)) | (uint64_t(loadLe32(p + 4)) << 32);
}
inline void storeLe16(uint8_t* p, uint16_t v) {
    p[0] = uint8_t(v);
    p[1] = uint8_t(v >> 8);
}
inline void storeLe32(uint8_t* p, uint32_t v) {
    p[0] = uint8_t(v);
    p[1] = uint8_t(v >> 8);
    p[2] = uint8_t(v >> 16);
    p[3] = uint8_t(v >> 24);
}
inline void storeLe64(uint8_t* p, uint64_t v) {
    storeLe32(p, uint32_t(v));
    storeLe32(p + 4, uint32_t(v >> 32));
}
// The low `size` bytes (1 to 8) of v; the integer fields of the shared records come in
// several widths.
inline void storeLe(uint8_t* p, uint64_t v, uint32_t size) {
    for (uint32_t i = 0; i < size && i < 8; ++i)
        p[i] = uint8_t(v >> (8 * i));
}

} // namespace ByteOrder
