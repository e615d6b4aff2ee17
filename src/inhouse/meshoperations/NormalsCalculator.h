#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Mesh.h"

#include <atomic>

/// Normals of a mesh from its triangles. Both functions take linear time, keep every list but the ones
/// they name, skip triangles with an index outside the mesh, and give finite or zero normals whatever the
/// coordinates are (a degenerate facet, NaN and infinity contribute nothing).
///
/// `cancel` is polled inside the loops; once it is set, an empty mesh comes back.
class SURFACEIO_INHOUSE_EXPORT NormalsCalculator
{
public:
    NormalsCalculator() = delete;

    /// A copy of `mesh` with creases kept sharp: a vertex is split wherever two neighbouring facets (facets
    /// that share an edge at it) have normals further apart than `threshold` radians, and stays one vertex
    /// elsewhere. The first facets of a split vertex keep its index; the further vertices are appended,
    /// with the colour and texture coordinate of the one they came from. The strips become single triangles.
    static geometry::Mesh computeSharpEdgeNormals(geometry::Mesh const& mesh, float threshold,
                                                  std::atomic<bool> const& cancel);

    /// A copy of `mesh` with one smooth normal for each vertex: the sum of the normals of its facets, each
    /// weighted by the facet's angle at the vertex (Thürmer and Wüthrich, "Computing Vertex Normals from
    /// Polygonal Facets", 1998), normalised. A vertex without a usable facet gets (0, 0, 0).
    static geometry::Mesh computeGouraudNormals(geometry::Mesh mesh, std::atomic<bool> const& cancel);
};
