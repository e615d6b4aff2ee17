#pragma once

#include "inhouse/Export.h"

#include <atomic>

/// Cleans a triangle soup in place.
///
/// Merges exactly coincident vertices (-0 equals +0; NaN equals nothing, itself included), keeps the order
/// of first appearance, drops triangles with two equal corners after merging (or with an index outside the
/// vertices) and then vertices that no triangle uses. Triangles keep their order and their winding.
/// Linear in the input, with one hash table sized from it.
///
/// The caller owns both buffers and keeps them alive until after `execute`. One thread at a time.
class SURFACEIO_INHOUSE_EXPORT VarnixSurfaceCleaner
{
public:
    VarnixSurfaceCleaner();
    ~VarnixSurfaceCleaner();
    VarnixSurfaceCleaner(VarnixSurfaceCleaner const&) = delete;
    VarnixSurfaceCleaner& operator=(VarnixSurfaceCleaner const&) = delete;

    /// 3 * `vertexCount` floats: x, y, z interleaved.
    void setVertices(float* vertices, int vertexCount);
    /// 4 * `triangleCount` ints: three 0-based indices and -1 for each triangle.
    void setTriangles(int* triangles, int triangleCount);

    /// Writes the cleaned surface to the front of both buffers. False when `cancel` was set (polled inside
    /// the loops) or memory ran out; buffers and counts are then as they were.
    bool execute(std::atomic<bool> const& cancel);

    /// Vertices now in the buffer: the count given, until `execute` has reduced it.
    int getNumberOfVertices() const;
    /// Triangles now in the buffer: the count given, until `execute` has reduced it.
    int getNumberOfTriangles() const;

private:
    float* vertexBuffer = nullptr;
    int* triangleBuffer = nullptr;
    int numberOfVertices = 0;
    int numberOfTriangles = 0;
};
