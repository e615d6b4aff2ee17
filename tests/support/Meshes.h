#pragma once

#include "inhouse/data/Mesh.h"

#include <QByteArray>

#include <random>

namespace support {

/// The bytes of a list, for comparisons that must see -0 and NaN.
template <typename List>
QByteArray bytesOf(List const& list)
{
    return QByteArray(reinterpret_cast<char const*>(list.constData()),
                      static_cast<qsizetype>(sizeof(typename List::value_type)) * list.size());
}

/// Whether all five lists of both meshes agree bit for bit.
bool sameBits(geometry::Mesh const& a, geometry::Mesh const& b);

/// The unit cube: 8 vertices, 12 outward triangles as a, b, c, -1.
geometry::Mesh cube();

/// `triangles` random triangles over `vertices` random vertices in a box of 100 mm, full mantissas.
/// The same generator state gives the same mesh on every platform.
geometry::Mesh randomMesh(std::mt19937& random, int vertices, int triangles);

/// A float from -`range` to `range`; the same on every platform.
float randomFloat(std::mt19937& random, float range);

} // namespace support
