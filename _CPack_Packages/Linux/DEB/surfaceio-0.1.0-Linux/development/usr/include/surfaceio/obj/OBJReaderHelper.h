#pragma once

#include "framework/Export.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/data/Optional.h"

#include <QString>

/// Reads an OBJ file in one call. Stateless: any thread, any number at a time.
class SURFACEIO_EXPORT OBJReaderHelper
{
public:
    /// The mesh of the file at `fileName` with smooth normals where the file has none, and without texture.
    /// Material and texture files are looked for in the current directory, as only the bytes of the file are
    /// handed on to the reader. Empty after a failure, which is logged.
    static utility::Optional<geometry::Mesh> read(QString const& fileName);
};
