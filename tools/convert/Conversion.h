#pragma once

#include "Console.h"
#include "convert/Changes.h"
#include "convert/MeshFile.h"

namespace tool {

/// One file to read and one to write.
struct Conversion
{
    QString in;
    QString out;
    /// Whether `out` may exist.
    bool mayReplace = false;
    Changes changes = {};
    /// Whether a texture becomes colours of the vertices, or is left out.
    bool bakesTexture = true;
    /// Why there is nothing to read at `in`; empty when there may be.
    QString obstacle = {};
    /// Told how far the reading is; see `Reading`.
    std::atomic<qint64>* bytesRead = nullptr;
};

/// Reads, writes beside the target, checks, and moves into place. Failures and losses go to the console; an
/// interruption is an exit code only.
ExitCode convert(Conversion const& conversion, Console& console);

/// Whether `convert` would begin, told from the two paths without opening or making anything. Says why not.
ExitCode rehearse(Conversion const& conversion, Console& console);

/// Writes `file` to `path` with the same care.
ExitCode writeMeshFile(QString const& path, MeshFile const& file, bool mayReplace, Console& console);

} // namespace tool
