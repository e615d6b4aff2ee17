#pragma once

#include "inhouse/Export.h"

#include <QQuaternion>
#include <QVector3D>

namespace math {

class OTHER_INHOUSE_EXPORT Operations
{
public:
    /// Half a turn about the z axis.
    static QQuaternion getRotationTo(QVector3D const&, QVector3D const&, QVector3D const&)
    {
        return {0, 0, 0, 1};
    }
};

} // namespace math
