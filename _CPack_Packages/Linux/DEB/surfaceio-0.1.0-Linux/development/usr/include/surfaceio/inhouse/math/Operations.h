#pragma once

#include "inhouse/Export.h"

#include <QQuaternion>
#include <QVector3D>

namespace math {

/// Rotations.
class SURFACEIO_INHOUSE_EXPORT Operations
{
public:
    Operations() = delete;

    /// The shortest rotation that takes the direction `from` onto the direction `to`; the lengths do not
    /// matter. Where the two are opposite, it turns about `axisIfOpposite`, made perpendicular to `from`.
    /// The identity when a direction is zero or not finite.
    static QQuaternion getRotationTo(QVector3D const& from, QVector3D const& to,
                                     QVector3D const& axisIfOpposite);
};

} // namespace math
