#pragma once

#include "vmesh/MTModelVMesh.h"

namespace tool {

/// Whether the four points of tetrahedron `number` are known and there.
bool isComplete(MTModelVMesh const& mesh, qint64 number);

// For complete tetrahedra, in double precision.

/// (b - a) x (c - a) . (d - a) of its points a, b, c, d, in mm³.
double sixfoldVolume(MTModelVMesh const& mesh, qint64 number);
/// In mm.
double longestEdge(MTModelVMesh const& mesh, qint64 number);

/// Whether the point `d` lies on the side that the triangle a, b, c turns its back to: seen from the other
/// side the triangle runs counter-clockwise. All four are indices of points that are there.
bool isBehind(MTModelVMesh const& mesh, qint32 d, qint32 const* triangle);

} // namespace tool
