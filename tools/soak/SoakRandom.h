#pragma once
// The soak's one source of chance: splitmix64, so that a seed gives the same run on every
// machine and library (the standard distributions are free to differ between them).
#include <cstdint>

class SoakRandom {
public:
    explicit SoakRandom(uint64_t seed)
        : m_state(seed) {}

    uint64_t next() {
        uint64_t z = (m_state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // Uniform in [lo, hi]; the modulo bias is far below anything a soak can notice.
    int range(int lo, int hi) {
        const auto span = static_cast<uint64_t>(int64_t(hi) - int64_t(lo) + 1);
        return static_cast<int>(int64_t(lo) + int64_t(next() % span));
    }
    bool chance(int percent) { return range(0, 99) < percent; }

private:
    uint64_t m_state;
};
