#pragma once
// SHA-256 of a byte string, for the simulator's password hashes (the simulator links no
// crypto library, and this is all it needs of one).
#include <array>
#include <cstddef>
#include <cstdint>

using SimDigest = std::array<uint8_t, 32>;

SimDigest simSha256(const void* data, size_t size);
