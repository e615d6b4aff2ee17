#pragma once

#include "Console.h"

#include <QString>

namespace tool {

struct AtlasOptions
{
    QString in;
    /// The PNG file to write, and the PLY file; the latter may be empty.
    QString image;
    QString mesh;
    bool mayReplace = false;
};

/// Writes the textures of an OBJ or PLY file as one image and, when asked for, the mesh with coordinates in
/// it. Either both files appear or none: both are written and checked before the image is moved into place,
/// and then the mesh.
ExitCode writeAtlas(AtlasOptions const& options, Console& console);

} // namespace tool
