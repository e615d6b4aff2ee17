#pragma once

#include "inspect/Format.h"
#include "inspect/PlyHeaderText.h"
#include "ply/PLYReader.h"

#include <memory>

namespace tool::ply {

/// What the library made of a file.
struct Reading
{
    std::unique_ptr<PLYReader> reader;
    bool success = false;
    /// Read as points, as there are no faces.
    bool isCloud = false;
    /// Read with colours of faces switched on.
    bool hasFaceColors = false;
    /// What the library said about it.
    QStringList log;
};

/// Reads the file as a mesh and, where that is refused, as the header suggests.
Reading readFile(QString const& path, HeaderText const& header);

/// Finds what is wrong with a file, or unusual: it could not be read, it is no mesh, or bytes are missing.
void judge(Source const& source, HeaderText const& header, Reading const& reading, Inspection& inspection);

} // namespace tool::ply
