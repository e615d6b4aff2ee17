#pragma once

#include <QByteArray>
#include <QString>

namespace support {

/// The bytes of a binary STL facet: a right triangle with legs of 1 and 2 mm at x = `offset`, z = 0, whose
/// attribute word holds `subTag` and `tag`.
QByteArray stlFacet(float offset, int tag = 0, int subTag = 0);

/// A binary STL file of `facets` (each 50 bytes, as from `stlFacet`) behind `header`, padded with zeros.
QByteArray binaryStl(QByteArray const& facets, QByteArray const& header = {});

/// Writes `bytes` to a new file; false when that fails.
bool writeFile(QString const& path, QByteArray const& bytes);
/// The content of a file; null when it cannot be read.
QByteArray readFile(QString const& path);

} // namespace support
