#pragma once

#include "framework/Export.h"
#include "vmesh/MTModelVMesh.h"

/// Makes the face rows of a mesh out of its tetrahedra: exactly the rows, in exactly the order, that
/// `MTModelVMeshWriter` makes for a mesh without rows, but in expected linear time. The writer then writes
/// them as they are.
///
/// Replaces `faces` and `boundFaces`, which have -1 or the neighbour as second value and their points in
/// ascending order, and `triangles`, so that it goes with `faces`; sets `numFaces` and `numBoundFaces`. All
/// arrays are new: copies of the mesh keep theirs. Broken tetrahedra are taken as the writer takes them:
/// unknown points (-1) count as points, a face that three share is shared by the first two, repeated points
/// are allowed.
///
/// False, with the mesh as it was, when it counts tetrahedra but has none, or when there is no memory or no
/// number for as many rows. Different meshes may be treated by different threads.
SURFACEIO_EXPORT bool deriveFaceRows(MTModelVMesh& mesh);
