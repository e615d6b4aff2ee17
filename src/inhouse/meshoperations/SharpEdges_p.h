#pragma once

#include "inhouse/data/Mesh.h"

#include <atomic>

namespace meshoperations {

/// Turns the strips of `mesh` into single triangles and splits its vertices at sharp edges, as
/// `NormalsCalculator::computeSharpEdgeNormals` describes; the normals are left to the caller. False when
/// `cancel` was set or the result would pass the 2^31 indices of a mesh; `mesh` is then of no use.
/// Throws std::bad_alloc.
bool splitAtSharpEdges(geometry::Mesh& mesh, float threshold, std::atomic<bool> const& cancel);

} // namespace meshoperations
