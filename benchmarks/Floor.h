#pragma once

#include "inhouse/data/Mesh.h"

#include <QByteArray>

/// Floors: the least work that gives the same arrays, on trusted input, without a check.
namespace bench::floor {

/// Binary STL → coincident vertices merged → smooth normals weighted by corner angle.
geometry::Mesh readStl(QByteArray const& bytes);
/// The same, one mesh for each tag.
QList<geometry::Mesh> readTaggedStl(QByteArray const& bytes);
/// ASCII STL to the same.
geometry::Mesh readAsciiStl(QByteArray const& bytes);
/// Smooth normals weighted by corner angle.
void addNormals(geometry::Mesh& mesh);
/// The facets of `mesh` as binary STL.
QByteArray writeStl(geometry::Mesh const& mesh);

} // namespace bench::floor
