#pragma once

#include "framework/MeshReader.h"
#include "inhouse/data/Material.h"
#include "support/StlFiles.h"

#include <QByteArray>
#include <QMap>
#include <QString>

/// Bundles of associated shapes in memory, and what they are made of.
namespace bundle_test {

using Files = QMap<QString, QByteArray>;

/// A mesh file that no other number gives.
inline QByteArray stl(int number)
{
    return support::binaryStl({support::loneFacet(number)});
}

inline geometry::Mesh meshOf(QByteArray const& bytes, QString const& name)
{
    return MeshReader::read(bytes, name).value();
}

/// A material that no other number gives.
inline geometry::Material numbered(int number)
{
    geometry::Material material = geometry::Material::metal();
    material.shininess = static_cast<float>(number);
    return material;
}

inline QByteArray documentWith(QByteArray const& content)
{
    return "<root>" + content + "</root>";
}

inline QByteArray materialsWith(QByteArray const& attributes)
{
    return "<materials><material id='m' " + attributes + "/></materials>";
}

} // namespace bundle_test
