#pragma once

#include "framework/Export.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/data/Optional.h"

#include <QByteArray>
#include <QString>

/// Reads a mesh in one call, choosing the format by the file's suffix (the text after the last dot, any
/// letter case).
///
/// Default options throughout: no cancellation, no texture kept (a texture becomes vertex colours), smooth
/// normals where the file has none. Coordinates are passed on as they stand in the file, taken as
/// millimetres. An empty result means failure; the log holds the reason that the format's reader gave.
/// Stateless: any thread, any number at a time.
class SURFACEIO_EXPORT MeshReader
{
public:
    /// Whether `suffix` (a suffix, not a path) is "ply" in any letter case.
    static bool isPLY(QString const& suffix);

    /// Reads the file at `path`. A missing file is logged; an unknown suffix is not.
    static utility::Optional<geometry::Mesh> read(QString const& path);

    /// Reads `data`, the content of a file of the name `fileName`, which chooses the format and is what
    /// a texture is looked up relative to. For "obj" the bytes, as text, are taken as the path of a file.
    static utility::Optional<geometry::Mesh> read(QByteArray const& data, QString const& fileName);

    /// Reads a mesh array record: big-endian int32 vertex and index counts, then 3 doubles for each vertex
    /// (position), 3 for each vertex (normal), then the int32 indices.
    ///
    /// On success the three arrays, made with array new, belong to the caller, who releases them with
    /// `delete[]`. What a short file lacks reads as 0; what follows the record is reported in the log.
    /// False, with every output as it was, when the file cannot be opened, when a count is negative, or when
    /// a count is beyond anything that the file's size, with room for a record cut short, can account for.
    static bool read(QString const& path, int* numVertices, float** vertices, float** normals,
                     int* numIndices, int** indices);
};
