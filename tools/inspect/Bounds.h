#pragma once

#include "Report.h"

#include <QVector3D>

#include <cmath>

namespace tool {

inline bool isFinite(QVector3D const& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y()) && std::isfinite(point.z());
}

/// The box around points, and how many of them are not finite and stay outside.
class Bounds
{
public:
    void add(QVector3D const& point)
    {
        if (!isFinite(point)) {
            ++nonFinite;
            return;
        }
        low = isEmpty
                  ? point
                  : QVector3D(qMin(low.x(), point.x()), qMin(low.y(), point.y()), qMin(low.z(), point.z()));
        high = isEmpty ? point
                       : QVector3D(qMax(high.x(), point.x()), qMax(high.y(), point.y()),
                                   qMax(high.z(), point.z()));
        isEmpty = false;
    }

    /// Adds "boundingBox" with min, max and size, and "nonFiniteVertices" where there are any.
    void addTo(Report& report) const;

    /// Zero when there is no point inside.
    QVector3D size() const { return high - low; }
    qint64 nonFiniteCount() const { return nonFinite; }

private:
    QVector3D low;
    QVector3D high;
    qint64 nonFinite = 0;
    bool isEmpty = true;
};

} // namespace tool
