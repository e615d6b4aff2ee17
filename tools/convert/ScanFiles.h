#pragma once

#include "convert/MeshFile.h"

namespace tool {

// The rows of the formats that carry scan metadata.
bool readStl(QString const& path, MeshFile& file, Reading const& reading);
bool writeStl(QString const& path, MeshFile const& file);
qint64 stlBytes(QString const& path, MeshFile const& file);

/// With the material of the file; a texture becomes colours. Warns when the file is cut short.
bool readPly(QString const& path, MeshFile& file, Reading const& reading);
bool readObj(QString const& path, MeshFile& file, Reading const& reading);
bool writePly(QString const& path, MeshFile const& file);
qint64 plyBytes(QString const& path, MeshFile const& file);
/// Metadata that would make the header unreadable: see docs/formats/ply.md.
QString plyObstacle(MeshFile const& file);

} // namespace tool
