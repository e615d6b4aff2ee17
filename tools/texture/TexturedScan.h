#pragma once

#include "Problem.h"
#include "inhouse/data/Mesh.h"

#include <QImage>
#include <QStringList>

namespace tool {

/// A mesh with texture coordinates, and the one image that they are for.
struct TexturedScan
{
    geometry::Mesh mesh;
    QImage texture;
    /// What the library said while reading.
    QStringList log;
};

/// Reads an OBJ or PLY file with its texture; several become an atlas. A problem says what the file lacks: a
/// texture that is named has to be there, all of several too. An interruption is a problem.
Problem readTexturedScan(QString const& path, TexturedScan& scan);

} // namespace tool
