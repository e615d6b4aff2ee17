#pragma once

#include <QString>

#include <cstddef>

namespace hostile {

/// What reading `bytes` may hold at a time: 64 MiB, and 12 times the bytes. Images that a file names count
/// at their decoded size.
constexpr std::size_t allowedPeak(qint64 bytes)
{
    constexpr std::size_t base = std::size_t(64) * 1024 * 1024;
    constexpr std::size_t factor = 12;
    return base + factor * static_cast<std::size_t>(bytes);
}

/// For the message of a test.
inline QString megabytes(std::size_t bytes)
{
    return QString::number(double(bytes) / (1024.0 * 1024.0), 'f', 1) + QStringLiteral(" MiB");
}

} // namespace hostile
