#pragma once

#include <cstdint>

namespace sample {

/// A number from -1 to 1 that depends on `seed` and `index` alone, the same on every platform (the mixing
/// step of SplitMix64, and nothing but exact floating-point operations).
inline double randomAt(std::uint64_t seed, std::uint64_t index)
{
    std::uint64_t bits = seed + (index + 1) * 0x9E3779B97F4A7C15ULL;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9ULL;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBULL;
    bits ^= bits >> 31;
    constexpr double step = 1.0 / 9007199254740992.0; // 2^-53
    return static_cast<double>(bits >> 11) * step * 2.0 - 1.0;
}

} // namespace sample
