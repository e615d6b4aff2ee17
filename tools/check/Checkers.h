#pragma once

#include "check/Finding.h"
#include "inhouse/data/Mesh.h"
#include "inspect/Format.h"

namespace tool {

// What the rows of Formats.cpp check.
void checkVolume(Check& check);
void checkConditions(Check& check);
void checkStl(Check& check);
/// The inspector's verdict, then the mesh. For every format without a check of its own.
void checkMeshFile(Check& check);

void checkPly(Check& check);
void checkObj(Check& check);

/// The image that a PLY file names, and the coordinates in it.
void checkPlyTexture(Check& check);
/// What any mesh can have: size, edges, facets, normals. Linear in the mesh, but for sorting its edges.
void checkMesh(geometry::Mesh const& mesh, Findings& findings);
/// What only the facets of a binary STL file can have, whose size was found to be right.
void checkStlFacets(Source const& source, Findings& findings);

} // namespace tool
