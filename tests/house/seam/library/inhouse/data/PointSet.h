#pragma once

#include "inhouse/Export.h"

#include <QDebug>

namespace geometry {

class OTHER_INHOUSE_EXPORT PointSet
{
public:
    PointSet() = default;
    PointSet(PointSet const&) = default;
    PointSet& operator=(PointSet const&) = default;
    virtual ~PointSet();

    bool isNull() const { return empty(); }

protected:
    virtual void print(QDebug debug) const = 0;
    virtual bool empty() const = 0;
};

} // namespace geometry
