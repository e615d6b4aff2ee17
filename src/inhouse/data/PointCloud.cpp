#include "inhouse/data/PointCloud.h"

namespace geometry {

PointCloud::~PointCloud() = default;

} // namespace geometry
