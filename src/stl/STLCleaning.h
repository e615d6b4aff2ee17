#pragma once

#include "inhouse/data/Mesh.h"

#include <atomic>

namespace stl {

/// Runs the surface cleaner over copies of the mesh's vertices and of its first `triangleCount` triangles
/// and puts what it leaves in their place. Normals, colours and texture coordinates stay as they are.
/// `triangleCount` beyond the triangles of the mesh counts as all of them. A set `cancel` leaves the vertices
/// as they are, and the first `triangleCount` triangles.
void cleanMesh(geometry::Mesh& mesh, int triangleCount, std::atomic<bool> const& cancel);

} // namespace stl
