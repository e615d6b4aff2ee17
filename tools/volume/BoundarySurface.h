#pragma once

#include "inhouse/data/Mesh.h"
#include "vmesh/MTModelVMesh.h"

namespace tool {

/// The boundary of a volume mesh as an oriented surface: the bound faces, or where there are none the face
/// rows with a tetrahedron on one side only. Each triangle is turned so that the fourth point of its
/// tetrahedron is behind it; one of a tetrahedron that is flat or not known stays as it stands in the row.
/// Points that no triangle uses are left out, the others keep their order. Every row must refer to points
/// that are there.
geometry::Mesh boundarySurfaceOf(MTModelVMesh const& mesh);

} // namespace tool
