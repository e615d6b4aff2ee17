#pragma once

#include "sample/DentalArch.h"

#include <QByteArray>
#include <QIODevice>

namespace sample {

/// Writes the arch as binary STL behind `header` (80 bytes): facets in ascending order of their tags, the tag
/// in the second attribute byte, the first 0. False when `device` does not take all of it.
bool writeTaggedStl(QIODevice& device, DentalArch const& arch, QByteArray const& header);

/// The length of the file that it writes.
constexpr qint64 taggedStlBytes(qint64 facets)
{
    return 84 + 50 * facets;
}

} // namespace sample
