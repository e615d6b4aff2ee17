#include "inhouse/data/PointSet.h"

namespace geometry {

PointSet::~PointSet() = default;

QDebug operator<<(QDebug debug, PointSet const& points)
{
    points.print(debug);
    return debug;
}

} // namespace geometry
