#include "inhouse/data/Conversions.h"
#include "inhouse/data/Material.h"
#include "inhouse/data/MeshHeader.h"
#include "inhouse/data/PointCloud.h"
#include "inhouse/data/STLSurfaceData.h"
#include "inhouse/data/Unstrip.h"

namespace geometry {

PointSet::~PointSet() = default;

void Mesh::print(QDebug debug) const
{
    debug << "other mesh";
}

bool Mesh::empty() const
{
    return vertices.isEmpty();
}

Mesh unstrip(Mesh mesh)
{
    return mesh;
}

PointCloud::~PointCloud() = default;

Material::Material(QColor const& ambientColor_, QColor const& diffuseColor_, QColor const& specularColor_,
                   QColor const& emissiveColor_, float ambientIntensity_, float diffuseIntensity_,
                   float specularIntensity_, float emissiveIntensity_, float shininess_, float transparency_,
                   float baseReflectance_, bool detailNoise_)
    : ambientColor(ambientColor_)
    , diffuseColor(diffuseColor_)
    , specularColor(specularColor_)
    , emissiveColor(emissiveColor_)
    , ambientIntensity(ambientIntensity_)
    , diffuseIntensity(diffuseIntensity_)
    , specularIntensity(specularIntensity_)
    , emissiveIntensity(emissiveIntensity_)
    , shininess(shininess_)
    , transparency(transparency_)
    , baseReflectance(baseReflectance_)
    , detailNoise(detailNoise_)
{}

} // namespace geometry

MeshHeader::~MeshHeader() = default;
STLSurfaceData::~STLSurfaceData() = default;

namespace data {

QList<QVector3D> Conversions::toVector(float const* coordinates, int count)
{
    QList<QVector3D> points;
    for (int i = 0; i < count; ++i)
        points.append({coordinates[3 * i], coordinates[3 * i + 1], coordinates[3 * i + 2]});
    return points;
}

QList<int> Conversions::toVector(int const* values, int count)
{
    return {values, values + count};
}

} // namespace data
