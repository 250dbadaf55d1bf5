#pragma once
// The 12-byte body of a parameter get or set (MainType::Param, ParamSubType::Access). For a
// set, the record follows the 12 bytes in the same body.
#include "protocol/ByteOrder.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

struct ParamRequest {
    static constexpr size_t kSize = 12; // bytes on the wire, little-endian

    uint32_t blockNumber = 0;
    uint32_t blockSize = 0; // get: the caller's buffer; set: the record that follows
    uint8_t index = 0;      // get: channel or sub-index; set: 0
    uint8_t getFlag = 0;    // 1 get, 0 set

    void encode(uint8_t* out) const {
        ByteOrder::storeLe32(out, blockNumber);
        ByteOrder::storeLe32(out + 4, blockSize);
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
        r.blockNumber = ByteOrder::loadLe32(body);
        r.blockSize = ByteOrder::loadLe32(body + 4);
        r.index = body[8];
        r.getFlag = body[9];
        return r;
    }
};
