#pragma once

#include "inhouse/data/Mesh.h"

namespace geometry {

OTHER_INHOUSE_EXPORT Mesh unstrip(Mesh mesh);

} // namespace geometry
