#pragma once

#include "inhouse/Export.h"

#include <atomic>

/// Cleans a triangle soup in place.
///
/// Merges exactly coincident vertices: -0 equals +0; NaN equals nothing, so that a vertex with NaN in it is
/// merged with none. Drops triangles with two equal corners after merging and triangles with an index outside
/// the vertices, and then the vertices that no remaining triangle uses. Triangles keep their order, their
/// winding and their first corner. Vertices keep the order in which their positions first appear in the
/// buffer, and the bits of that first appearance. Cleaning a second time changes nothing.
///
/// Time and memory are linear in the input whatever the coordinates are, crafted ones included.
///
/// The caller owns both buffers and keeps them alive until after `execute`. One thread at a time.
class SURFACEIO_INHOUSE_EXPORT VarnixSurfaceCleaner
{
public:
    VarnixSurfaceCleaner();
    ~VarnixSurfaceCleaner();
    VarnixSurfaceCleaner(VarnixSurfaceCleaner const&) = delete;
    VarnixSurfaceCleaner& operator=(VarnixSurfaceCleaner const&) = delete;

    /// 3 * `vertexCount` floats: x, y, z interleaved. A null buffer or a negative count stands for no
    /// vertices.
    void setVertices(float* vertices, int vertexCount);
    /// 4 * `triangleCount` ints: three 0-based indices and -1 for each triangle (the fourth is written, never
    /// read). A null buffer or a negative count stands for no triangles.
    void setTriangles(int* triangles, int triangleCount);

    /// Writes the cleaned surface to the front of both buffers; what lies behind it there is of no use. False
    /// when `cancel` was set (polled inside the loops, until writing begins) or memory ran out; buffers and
    /// counts are then as they were.
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
