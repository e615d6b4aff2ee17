#pragma once

#include "inhouse/meshoperations/VertexMerge_p.h"

#include <bit>
#include <cstdint>
#include <vector>

namespace support {

/// Inverse of an odd number modulo 2^64, by Newton's method.
constexpr std::uint64_t inverseOf(std::uint64_t odd)
{
    std::uint64_t x = odd;
    for (int i = 0; i < 6; ++i)
        x *= 2 - odd * x;
    return x;
}

/// `x ^ x >> 32` undoes itself.
constexpr std::uint64_t folded(std::uint64_t x)
{
    return x ^ x >> 32;
}

/// Points that all have the hash `hash`: the hash function, run backwards.
inline std::vector<meshoperations::Point> collidingPoints(std::size_t count, std::uint32_t hash)
{
    constexpr std::uint64_t first = inverseOf(0x9E3779B97F4A7C15u);
    constexpr std::uint64_t second = inverseOf(0xD6E8FEB86659FD93u);
    constexpr float z = 0.25f;
    std::vector<meshoperations::Point> points;
    for (std::uint64_t low = 0; points.size() < count; ++low) {
        std::uint64_t const sum = folded((std::uint64_t(hash) << 32 | low) * second) * second;
        std::uint64_t const xy = folded(sum - std::bit_cast<std::uint32_t>(z)) * first;
        meshoperations::Point const point{std::bit_cast<float>(static_cast<std::uint32_t>(xy)),
                                          std::bit_cast<float>(static_cast<std::uint32_t>(xy >> 32)), z};
        if (!meshoperations::hasNaN(point) && point.x != 0.0f && point.y != 0.0f)
            points.push_back(point);
    }
    return points;
}

} // namespace support
