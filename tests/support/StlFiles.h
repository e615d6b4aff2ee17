#pragma once

#include "inhouse/data/Mesh.h"

#include <QByteArray>
#include <QList>
#include <QVector3D>

#include <random>

namespace support {

/// A facet of a binary STL file: its corners and the two bytes after them.
struct StlFacet
{
    QVector3D a;
    QVector3D b;
    QVector3D c;
    int subTagByte = 0;
    int tagByte = 0;
};

/// A facet that shares no corner with that of another number, and is not degenerate.
StlFacet loneFacet(int number, int subTagByte = 0, int tagByte = 0);

/// The bytes of a binary STL file, byte by byte (not by the writer under test). The facet normals are
/// (7, 8, 9), which no reader is to use.
QByteArray binaryStl(QList<StlFacet> const& facets, QByteArray const& header = QByteArray(80, '\0'));
/// A binary STL file that claims `count` facets and has the bytes `body` for them.
QByteArray binaryStl(quint32 count, QByteArray const& body);
/// The 50 bytes of a facet.
QByteArray facetBytes(StlFacet const& facet);
/// An ASCII STL file of the facets, in the usual layout.
QByteArray asciiStl(QList<StlFacet> const& facets);

/// The corners of all facets, three for each.
QList<QVector3D> cornersOf(QList<StlFacet> const& facets);
/// The corners of all triangles of a mesh of single triangles.
QList<QVector3D> cornersOf(geometry::Mesh const& mesh);

/// The two facet counts whose 84 + 50 * count is `size` in 32 bits though the count is far beyond the bytes:
/// the one below 2^31 or the one from there on. `size` is even.
quint32 wrappingCount(quint32 size, bool isNegative);

} // namespace support
