#pragma once
// Body of the account changes (UserSubType::Add, Delete, ChangePassword, SetRights,
// SetPattern; GUI -> App, each answered by UserEditAnswer). One record serves them all; a
// change leaves the fields it does not use zero. It may carry two passwords, so the GUI
// wipes it as soon as it is sent.
#include "protocol/UserRights.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

struct UserEditRequest {
    static constexpr size_t kSize = 128; // bytes on the wire
    // UTF-8, zero-padded, with at least one zero byte at the end.
    static constexpr size_t kNameBytes = 32;
    static constexpr size_t kSecretBytes = 32;

    char name[kNameBytes] = {};
    char secret[kSecretBytes] = {};    // the password App checks (Add: the new user's)
    char newSecret[kSecretBytes] = {}; // the new password, or the pattern's dots 1-9
    uint32_t admin = 0;                // Add: 1 makes an administrator
    uint32_t reserved = 0;
    UserRights rights; // Add and SetRights

    // False when a text does not fit its field with its closing zero; nothing is truncated.
    static bool store(char* field, size_t size, const char* text, size_t len) {
        if (len >= size)
            return false;
        std::memcpy(field, text, len);
        return true;
    }
};

static_assert(sizeof(UserEditRequest) == UserEditRequest::kSize, "wire size");
