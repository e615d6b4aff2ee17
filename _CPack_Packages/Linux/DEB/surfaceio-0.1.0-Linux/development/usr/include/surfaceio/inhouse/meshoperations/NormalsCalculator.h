#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Mesh.h"

#include <atomic>

/// Normals of a mesh from its triangles.
///
/// A facet counts as degenerate when its corners lie on one line or in one point, and when NaN or infinity is
/// among their coordinates. Degenerate facets and facets with an index outside the vertices contribute
/// nothing. The normal of a vertex is the sum of the unit normals of its facets, each weighted by the facet's
/// angle at the vertex (Thürmer and Wüthrich, "Computing Vertex Normals from Polygonal Facets", 1998),
/// normalised; every component is within 1e-6 of the exact result, for coordinates from 1e-45 to 3e38 (unless
/// one facet spans ten orders of magnitude, where doubles run out). A vertex without facets that contribute
/// gets (0, 0, 0), and so does one whose facets cancel out (a sum shorter than a millionth of its weights).
/// Normals that the mesh brings along are replaced.
///
/// Strips may have any length; every second triangle of one has its first two corners swapped, as in
/// `geometry::unstrip`. Time and memory are linear in the mesh. Nothing is kept between calls, which may run
/// on several threads at once.
///
/// An empty mesh comes back when `cancel` was set (polled inside the loops), when memory runs out, and when
/// the result would pass the 2^31 entries that a mesh can hold.
class SURFACEIO_INHOUSE_EXPORT NormalsCalculator
{
public:
    NormalsCalculator() = delete;

    /// A copy of `mesh` with creases kept sharp. The strips become single triangles, a, b, c, -1.
    ///
    /// Two facets that share an edge are neighbours there; where more than two share it, each one and the
    /// next in the order of the index list. An edge is sharp when the normals of two neighbours are further
    /// apart than `threshold`, an angle in radians (a difference below 1e-6 does not count; from pi on no
    /// edge is sharp, below 0 and for NaN every edge). Degenerate facets make no edge sharp.
    ///
    /// A vertex that no sharp edge ends at stays as it is. At any other, the facets that hang together across
    /// edges that are not sharp form a part; degenerate facets that hang together with no others belong to
    /// the first part that has any. The part of the lowest facet keeps the vertex. Each further part gets a
    /// vertex of its own, with the position, colour and texture coordinate of the first, appended in the
    /// order in which the index list reaches the parts. Facets with an index outside the vertices stay in the
    /// list untouched.
    static geometry::Mesh computeSharpEdgeNormals(geometry::Mesh const& mesh, float threshold,
                                                  std::atomic<bool> const& cancel);

    /// A copy of `mesh` with one smooth normal for each vertex. All other lists stay as they are.
    static geometry::Mesh computeGouraudNormals(geometry::Mesh mesh, std::atomic<bool> const& cancel);
};
