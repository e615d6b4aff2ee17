#pragma once

#include "framework/Export.h"
#include "inhouse/data/Mesh.h"

#include <QString>

/// Writes a mesh in one call, choosing the format by the ending of the path. Stateless: any thread, any
/// number at a time on different files.
class SURFACEIO_EXPORT MeshWriter
{
public:
    /// Writes `mesh` as binary PLY when the text after the first dot of the file name ends with "ply", as
    /// binary STL when it ends with "stl" (any letter case; "scan.tar.ply" and "scan.reply" are PLY).
    /// No material, no scan metadata. False after a failure, whose reason is logged.
    static bool write(QString const& path, geometry::Mesh const& mesh);

    /// Writes a mesh array record (see `MeshReader::read`): `vertices` and `normals` hold 3 * `numVertices`
    /// floats, `indices` `numIndices` ints; the arrays stay the caller's and are not changed. False when the
    /// file cannot be opened or there is no memory for the first block. A full disk is not noticed.
    static bool write(QString const& path, int numVertices, float* vertices, float* normals, int numIndices,
                      int* indices);
};
