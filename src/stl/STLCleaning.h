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

/// What the surface cleaner leaves of `soup` and its first `triangleCount` triangles; more than there are
/// count as all of them. A set `cancel` leaves the vertices as they are, and those triangles.
geometry::Mesh cleanedMesh(Soup soup, int triangleCount, std::atomic<bool> const& cancel);

/// The same with the mesh's vertices and triangles, which takes a copy of the vertices. Normals, colours and
/// texture coordinates stay as they are. A mesh for which there is no memory loses its triangles.
void cleanMesh(geometry::Mesh& mesh, int triangleCount, std::atomic<bool> const& cancel);

} // namespace stl
