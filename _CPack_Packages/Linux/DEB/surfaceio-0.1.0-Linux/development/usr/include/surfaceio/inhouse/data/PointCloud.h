#pragma once

#include "inhouse/Export.h"
#include "inhouse/data/Material.h"
#include "inhouse/data/Optional.h"

#include <QList>
#include <QVector3D>

namespace geometry {

/// Points without connectivity, in millimetres.
class SURFACEIO_INHOUSE_EXPORT PointCloud
{
public:
    PointCloud() = default;
    PointCloud(PointCloud const&) = default;
    PointCloud& operator=(PointCloud const&) = default;
    PointCloud(PointCloud&&) = default;
    PointCloud& operator=(PointCloud&&) = default;
    virtual ~PointCloud();

    /// One colour for each point, packed 0xAABBGGRR (red in the lowest byte), or empty.
    QList<unsigned int>& colors() { return packedColors; }
    /// The same, for reading.
    QList<unsigned int> const& colors() const { return packedColors; }

    /// Sets how the points are to be shown.
    void setMaterial(Material const& material) { appearance = material; }
    /// How the points are to be shown, where that is known.
    utility::Optional<Material> const& material() const { return appearance; }

    /// Positions in millimetres.
    QList<QVector3D> positions;
    /// One normal for each point, or empty.
    QList<QVector3D> normals;

private:
    QList<unsigned int> packedColors;
    utility::Optional<Material> appearance;
};

} // namespace geometry
