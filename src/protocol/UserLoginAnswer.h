#pragma once
// Reply to UserSubType::Login: whether the user is in, and if not, why and for how long.
#include "protocol/UserRights.h"

#include <cstddef>
#include <cstdint>

struct UserLoginAnswer {
    static constexpr size_t kSize = 48; // bytes on the wire
    // Values of `result`.
    static constexpr uint32_t kOk = 0;
    static constexpr uint32_t kWrongSecret = 1; // wrongCount of maxWrong used up
    static constexpr uint32_t kLocked = 2;      // lockSeconds until the next try is heard
    static constexpr uint32_t kUnknownUser = 3;
    static constexpr uint32_t kMalformed = 4; // a field without its closing zero byte

    uint32_t result = kMalformed;
    uint32_t wrongCount = 0; // consecutive wrong secrets so far
    uint32_t maxWrong = 0;   // the one that locks the user
    uint32_t lockSeconds = 0;
    uint32_t userId = 0;
    uint32_t admin = 0; // 1: the administrator
    UserRights rights;  // valid with kOk
};

static_assert(sizeof(UserLoginAnswer) == UserLoginAnswer::kSize, "wire size");
