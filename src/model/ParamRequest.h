#pragma once
// The 12-byte body of a parameter get or set (MainType 600, SubType 0). For a set, the record
// follows the 12 bytes in the same body. Shared with recorder-sim, which decodes what the GUI
// encodes here.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

struct ParamRequest {
    static constexpr uint16_t kMainType = 600;
    static constexpr uint16_t kSubType = 0;
    static constexpr size_t kSize = 12; // bytes on the wire, little-endian

    uint32_t blockNumber = 0;
    uint32_t blockSize = 0; // get: the caller's buffer; set: the record that follows
    uint8_t index = 0;      // get: channel or sub-index; set: 0
    uint8_t getFlag = 0;    // 1 get, 0 set

    void encode(uint8_t* out) const {
        for (int i = 0; i < 4; ++i) {
            out[i] = uint8_t(blockNumber >> (8 * i));
            out[4 + i] = uint8_t(blockSize >> (8 * i));
        }
        out[8] = index;
        out[9] = getFlag;
        out[10] = 0; // reserved
        out[11] = 0;
    }

    // Empty when the body is too short to hold the request.
    static std::optional<ParamRequest> decode(const uint8_t* body, size_t len) {
        if (body == nullptr || len < kSize)
            return std::nullopt;
        ParamRequest r;
        for (int i = 0; i < 4; ++i) {
            r.blockNumber |= uint32_t(body[i]) << (8 * i);
            r.blockSize |= uint32_t(body[4 + i]) << (8 * i);
        }
        r.index = body[8];
        r.getFlag = body[9];
        return r;
    }
};
