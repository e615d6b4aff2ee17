#pragma once

#include <QtGlobal>

/// Binary STL, byte by byte: all little-endian, floats in IEEE-754 single precision.
namespace stl {

constexpr int headerBytes = 80;
constexpr int countBytes = 4;
constexpr int firstFacetOffset = headerBytes + countBytes;

constexpr int floatBytes = 4;
constexpr int normalBytes = 3 * floatBytes;
constexpr int vertexBlockBytes = 3 * 3 * floatBytes;
constexpr int attributeBytes = 2;
constexpr int facetBytes = normalBytes + vertexBlockBytes + attributeBytes;
constexpr int firstVertexOffset = firstFacetOffset + normalBytes;

static_assert(sizeof(quint32) == countBytes && sizeof(float) == floatBytes);
static_assert(firstFacetOffset == 84);
static_assert(firstVertexOffset == 96);
static_assert(facetBytes == 50);

/// Length of a file of `count` facets, in 32 bits: a claim of 4 GiB or more wraps.
constexpr quint32 fileBytes(quint32 count)
{
    return quint32(firstFacetOffset) + quint32(facetBytes) * count;
}

/// Entries of an index list for one triangle: a, b, c, -1.
constexpr int indicesPerTriangle = 4;

} // namespace stl
