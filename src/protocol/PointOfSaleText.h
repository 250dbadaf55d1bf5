#pragma once
// Request MainType::System, SystemSubType::PointOfSaleText: a text read from the
// point-of-sale device on the EIA-485 port. The GUI copies it into a zeroed buffer of
// kBufferSize bytes and sends its length plus the terminator.
#include <cstddef>

struct PointOfSaleText {
    static constexpr size_t kBufferSize = 512; // bytes
    static constexpr size_t kMaxText = 64;     // bytes the key library delivers at once
    char text[kBufferSize];
};

static_assert(sizeof(PointOfSaleText) == PointOfSaleText::kBufferSize, "buffer size");
