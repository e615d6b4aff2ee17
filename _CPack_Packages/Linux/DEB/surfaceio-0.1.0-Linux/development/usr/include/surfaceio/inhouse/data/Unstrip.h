#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Mesh.h"

namespace geometry {

/// Expands every strip of the index list into single triangles, each written as a, b, c, -1.
///
/// Triangle i of a strip s is (s[i], s[i+1], s[i+2]); every second one has its first two corners
/// swapped, so that all triangles keep the winding of the first. A strip of fewer than three indices
/// gives no triangle, and a last strip without its marker counts as ended. All other lists stay as
/// they are. A mesh whose strips are single triangles comes back unchanged.
SURFACEIO_INHOUSE_EXPORT Mesh unstrip(Mesh mesh);

} // namespace geometry
