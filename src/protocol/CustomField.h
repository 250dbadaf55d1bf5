#pragma once
// One key of the device customisation file and the place its value takes in a record that the
// GUI and the recorder service share. The record headers list their fields in tables of these.
#include <cstddef>
#include <cstdint>

struct CustomField {
    enum Storage : uint8_t {
        Unsigned, // little-endian unsigned integer of `size` bytes (1, 4 or 8)
        Signed,   // little-endian two's-complement integer of `size` bytes
        Text,     // UTF-8, NUL-terminated, cut to size - 1 bytes
    };

    const char* key; // full key, "Section/Key"
    char conversion; // how the text is read: 'U' unsigned, 'I' signed, 'L' 64-bit, 'T' text
    Storage storage; // how the value is stored
    uint32_t offset; // bytes from the start of the record
    uint32_t size;   // bytes
};

// The shapes the tables use: integers of 1, 4 or 8 bytes and text of a given size.
constexpr CustomField customU8(const char* key, uint32_t offset) {
    return {key, 'U', CustomField::Unsigned, offset, 1};
}
constexpr CustomField customU32(const char* key, uint32_t offset) {
    return {key, 'U', CustomField::Unsigned, offset, 4};
}
constexpr CustomField customU64(const char* key, uint32_t offset) {
    return {key, 'L', CustomField::Unsigned, offset, 8};
}
constexpr CustomField customI8(const char* key, uint32_t offset) {
    return {key, 'I', CustomField::Signed, offset, 1};
}
constexpr CustomField customI32(const char* key, uint32_t offset) {
    return {key, 'I', CustomField::Signed, offset, 4};
}
constexpr CustomField customText(const char* key, uint32_t offset, uint32_t size) {
    return {key, 'T', CustomField::Text, offset, size};
}

// True when every field lies inside [begin, end) and no two fields share a byte; the record
// headers check their tables with it at compile time.
template <size_t N>
constexpr bool customFieldsDisjoint(const CustomField (&fields)[N], uint32_t begin, uint32_t end) {
    for (size_t i = 0; i < N; ++i) {
        if (fields[i].size == 0 || fields[i].offset < begin ||
            fields[i].offset + fields[i].size > end)
            return false;
        for (size_t j = i + 1; j < N; ++j) {
            const bool apart = fields[i].offset + fields[i].size <= fields[j].offset ||
                               fields[j].offset + fields[j].size <= fields[i].offset;
            if (!apart)
                return false;
        }
    }
    return true;
}
