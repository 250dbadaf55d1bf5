#pragma once
// Reply to UserSubType::List: UserListHeader, then `count` UserListEntry records, one per
// user, the administrator first.
#include "protocol/UserRights.h"

#include <cstddef>
#include <cstdint>

struct UserListHeader {
    static constexpr size_t kSize = 8; // bytes on the wire
    static constexpr uint32_t kMaxUsers = 16;

    // Bits of `flags`.
    static constexpr uint32_t kLoginRequired = 1u << 0; // else every function is open to all

    uint32_t count = 0;
    uint32_t flags = 0;
};

struct UserListEntry {
    static constexpr size_t kSize = 64; // bytes on the wire
    static constexpr size_t kNameBytes = 32;

    char name[kNameBytes] = {}; // UTF-8, zero-padded, zero-terminated
    uint32_t userId = 0;
    uint32_t admin = 0; // 1: the administrator
    UserRights rights;
};

static_assert(sizeof(UserListHeader) == UserListHeader::kSize, "wire size");
static_assert(sizeof(UserListEntry) == UserListEntry::kSize, "wire size");
