#pragma once

#include "inhouse/data/Mesh.h"

#include <QByteArray>

/// The files that are read and the meshes that are written: synthetic dental arches, made once for each size.
namespace bench {

/// Tagged binary STL, facets in the order of their tags.
QByteArray const& stl(int facets);
/// The same facets in random order, so that neighbours are far apart.
QByteArray const& shuffledStl(int facets);
/// The arch as an indexed mesh, without normals.
geometry::Mesh const& mesh(int facets);

} // namespace bench
