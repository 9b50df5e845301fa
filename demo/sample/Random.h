#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quellbrook::sample {

// A pseudorandom generator with the same sequence for a seed on every machine.
class Random {
public:
    explicit Random(uint64_t seed) : m_state(seed) {}

    uint64_t Next() {
        m_state += 0x9E3779B97F4A7C15u;
        uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    // From 0 to limit - 1. The limit must be positive.
    int32_t Below(int32_t limit) { return static_cast<int32_t>((Next() >> 32) * static_cast<uint64_t>(limit) >> 32); }
    // Inclusive.
    int32_t Between(int32_t low, int32_t high) { return low + Below(high - low + 1); }
    bool Chance(int32_t percent) { return Below(100) < percent; }

    template <typename T>
    const T& Pick(const std::vector<T>& choices) {
        return choices[static_cast<size_t>(Below(static_cast<int32_t>(choices.size())))];
    }

private:
    uint64_t m_state;
};

}  // namespace quellbrook::sample
