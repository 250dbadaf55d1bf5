#pragma once
// Body of UserSubType::Login (GUI -> App, a request answered by UserLoginAnswer): who wants
// in and the secret that proves it. The GUI wipes this record as soon as it is sent; App
// checks the secret and the GUI never stores it.
#include <cstddef>
#include <cstdint>
#include <cstring>

struct UserLoginRequest {
    static constexpr size_t kSize = 72; // bytes on the wire
    // Both fields are UTF-8, zero-padded, with at least one zero byte at the end.
    static constexpr size_t kNameBytes = 32;
    static constexpr size_t kSecretBytes = 32;
    // Values of `method`.
    static constexpr uint32_t kPassword = 0;
    static constexpr uint32_t kPattern = 1; // the secret is the dots' numbers 1-9 in order

    char name[kNameBytes] = {};
    char secret[kSecretBytes] = {};
    uint32_t method = kPassword;
    uint32_t reserved = 0;

    // False (and the record left empty) when a field does not fit; never truncates, so a
    // longer password is refused rather than checked in part.
    bool fill(const char* user, size_t userLen, const char* pass, size_t passLen, uint32_t how) {
        if (userLen == 0 || userLen >= kNameBytes || passLen >= kSecretBytes)
            return false;
        std::memcpy(name, user, userLen);
        std::memcpy(secret, pass, passLen);
        method = how;
        return true;
    }
};

static_assert(sizeof(UserLoginRequest) == UserLoginRequest::kSize, "wire size");
