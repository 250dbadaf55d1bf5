#pragma once
// Reply to FaceSubType::GroupList: FaceGroupListHeader, then `count` FaceGroupEntry records.
#include <cstddef>
#include <cstdint>

struct FaceGroupListHeader {
    static constexpr size_t kSize = 8; // bytes on the wire
    static constexpr uint32_t kMaxGroups = 16;

    uint32_t count = 0;
    uint32_t reserved = 0;
};

struct FaceGroupEntry {
    static constexpr size_t kSize = 40; // bytes on the wire
    static constexpr size_t kNameBytes = 32;

    uint32_t groupId = 0; // never 0
    uint32_t faceCount = 0;
    char name[kNameBytes] = {}; // UTF-8, zero-padded, zero-terminated
};

static_assert(sizeof(FaceGroupListHeader) == FaceGroupListHeader::kSize, "wire size");
static_assert(sizeof(FaceGroupEntry) == FaceGroupEntry::kSize, "wire size");
