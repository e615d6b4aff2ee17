#pragma once

#include "inhouse/data/Mesh.h"

namespace tool {

/// Why an image of this name cannot be named in a PLY header so that it is found again; empty when it can.
QString textureNameProblem(QString const& name);

/// A binary little-endian PLY file with positions, normals and texture coordinates (s, t; t = 0 is the bottom
/// row) whose header names the image in a line "comment TextureFile". `mesh` has as many texture coordinates
/// as vertices; normals are left out unless there are as many.
QByteArray texturedPly(geometry::Mesh const& mesh, QString const& textureName);

} // namespace tool
