#pragma once

#include "inhouse/data/Material.h"
#include "inhouse/data/Optional.h"

#include <QList>
#include <QVector3D>

namespace geometry {

class OTHER_INHOUSE_EXPORT PointCloud
{
public:
    PointCloud() = default;
    PointCloud(PointCloud const&) = default;
    PointCloud& operator=(PointCloud const&) = default;
    virtual ~PointCloud();

    QList<unsigned int>& colors() { return packedColors; }
    QList<unsigned int> const& colors() const { return packedColors; }
    void setMaterial(Material const& material) { appearance = material; }
    utility::Optional<Material> const& material() const { return appearance; }

    QList<QVector3D> positions;
    QList<QVector3D> normals;

private:
    QList<unsigned int> packedColors;
    utility::Optional<Material> appearance;
};

} // namespace geometry
