#pragma once
// Reply to the account changes (UserEditRequest): done, or why not.
#include <cstddef>
#include <cstdint>

struct UserEditAnswer {
    static constexpr size_t kSize = 8; // bytes on the wire
    // Values of `result`.
    static constexpr uint32_t kOk = 0;
    static constexpr uint32_t kUnknownUser = 1;
    static constexpr uint32_t kExists = 2;        // Add: the name is taken
    static constexpr uint32_t kFull = 3;          // Add: UserListHeader::kMaxUsers reached
    static constexpr uint32_t kWrongPassword = 4; // counts towards the lock like a login
    static constexpr uint32_t kLocked = 5;        // lockSeconds until the next try is heard
    static constexpr uint32_t kRefused = 6;       // the administrator cannot be deleted
    static constexpr uint32_t kMalformed = 7;     // a field without its closing zero, an empty name

    uint32_t result = kMalformed;
    uint32_t lockSeconds = 0;
};

static_assert(sizeof(UserEditAnswer) == UserEditAnswer::kSize, "wire size");
