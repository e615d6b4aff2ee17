#pragma once

#include "Console.h"

#include <QStringList>

namespace tool::bundle {

struct ListOptions
{
    QString document;
    bool json = false;
};

/// Prints what an associated-shapes document lists: what loads, what is skipped, and why.
ExitCode list(ListOptions const& options, Console& console);

struct PackOptions
{
    QString out;
    QStringList meshes;
    /// "own" for the material that a PLY file carries, else the name of a preset.
    QString material;
    bool mayReplace = false;
};

/// The names that `PackOptions::material` may have.
QStringList materialNames();

/// Writes the document that lists the meshes, relative to its own folder. Every mesh must be readable.
ExitCode pack(PackOptions const& options, Console& console);

struct UnpackOptions
{
    QString document;
    QString folder;
    bool mayReplace = false;
    bool json = false;
};

/// Writes each shape of a document as a PLY file that carries its material. Prints their names; warns of
/// shapes that a bundle in memory leaves out.
ExitCode unpack(UnpackOptions const& options, Console& console);

} // namespace tool::bundle
