#pragma once

#include "inhouse/data/Mesh.h"

#include <atomic>
#include <memory>

namespace stl {

/// Triangles as the surface cleaner takes them: three coordinates for each vertex, and in `indices` three
/// corners and -1 for each triangle.
struct Soup
{
    std::unique_ptr<float[]> vertices;
    int vertexCount;
    QList<int> indices;
};

/// What the surface cleaner leaves of `soup`. A set `cancel` leaves it as it is.
geometry::Mesh cleanedMesh(Soup soup, std::atomic<bool> const& cancel);

/// Runs the surface cleaner over copies of the mesh's vertices and of its first `triangleCount` triangles
/// and puts what it leaves in their place. Normals, colours and texture coordinates stay as they are.
/// `triangleCount` beyond the triangles of the mesh counts as all of them. A set `cancel` leaves the vertices
/// as they are, and the first `triangleCount` triangles.
void cleanMesh(geometry::Mesh& mesh, int triangleCount, std::atomic<bool> const& cancel);

} // namespace stl
