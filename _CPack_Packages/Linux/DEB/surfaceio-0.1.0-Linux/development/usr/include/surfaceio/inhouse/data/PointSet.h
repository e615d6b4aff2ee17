#pragma once

#include "inhouse/Export.h"

#include <QDebug>

namespace geometry {

/// Base of everything that is made of points. A value type: copies are independent.
class SURFACEIO_INHOUSE_EXPORT PointSet
{
public:
    PointSet() = default;
    PointSet(PointSet const&) = default;
    PointSet& operator=(PointSet const&) = default;
    PointSet(PointSet&&) = default;
    PointSet& operator=(PointSet&&) = default;
    virtual ~PointSet();

    /// True when the set holds no points.
    bool isNull() const { return empty(); }

    /// Writes a one-line summary of the set.
    friend SURFACEIO_INHOUSE_EXPORT QDebug operator<<(QDebug debug, PointSet const& points);

protected:
    /// Writes a one-line summary (counts, not coordinates).
    virtual void print(QDebug debug) const = 0;
    /// What "no points" means for the derived set.
    virtual bool empty() const = 0;
};

/// Writes a one-line summary of the set.
SURFACEIO_INHOUSE_EXPORT QDebug operator<<(QDebug debug, PointSet const& points);

} // namespace geometry
