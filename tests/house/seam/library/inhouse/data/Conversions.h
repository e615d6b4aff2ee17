#pragma once

#include "inhouse/Export.h"

#include <QList>
#include <QVector3D>

namespace data {

class OTHER_INHOUSE_EXPORT Conversions
{
public:
    static QList<QVector3D> toVector(float const* coordinates, int count);
    static QList<int> toVector(int const* values, int count);
};

} // namespace data
