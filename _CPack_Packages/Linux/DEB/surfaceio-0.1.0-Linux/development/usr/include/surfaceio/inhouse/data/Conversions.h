#pragma once

#include "inhouse/Export.h"

#include <QList>
#include <QVector3D>

namespace data {

/// From bare arrays to the lists of the mesh model.
class SURFACEIO_INHOUSE_EXPORT Conversions
{
public:
    Conversions() = delete;

    /// `count` points from 3 * `count` floats, x, y, z interleaved. A count below 1 gives an empty list.
    static QList<QVector3D> toVector(float const* coordinates, int count);
    /// The first `count` of `values`. A count below 1 gives an empty list.
    static QList<int> toVector(int const* values, int count);
};

} // namespace data
