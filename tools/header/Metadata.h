#pragma once

#include "Problem.h"
#include "inhouse/data/MeshHeader.h"

#include <QFile>

#include <optional>

namespace tool {

using Metadata = std::optional<MeshHeader>;

/// One kind of file that carries scan metadata, as a row of the table in Metadata.cpp.
struct MetadataFormat
{
    /// Suffixes, separated by spaces.
    QLatin1StringView suffixes;
    /// Reads the metadata of the file in `in`, or finds that it has none.
    Problem (*read)(QIODevice& in, Metadata& metadata);
    /// Copies the file in `in` to `out` with other metadata, or with none; every other byte stays.
    Problem (*write)(QIODevice& in, Metadata const& metadata, QFile& out);
};

/// The row for the suffix of `path`, or null.
MetadataFormat const* metadataFormatFor(QString const& path);

/// Copies from where `in` stands to its end.
Problem copyRest(QIODevice& in, QFile& out);

// The rows.
Problem readStlMetadata(QIODevice& in, Metadata& metadata);
Problem writeStlMetadata(QIODevice& in, Metadata const& metadata, QFile& out);
Problem readPlyMetadata(QIODevice& in, Metadata& metadata);
Problem writePlyMetadata(QIODevice& in, Metadata const& metadata, QFile& out);

} // namespace tool
