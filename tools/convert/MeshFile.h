#pragma once

#include "inhouse/data/Mesh.h"

#include <QStringList>

#include <span>

namespace tool {

/// What is carried from one file to the next.
struct MeshFile
{
    geometry::Mesh mesh;
};

/// One kind of file that can be read, as a row of the table in MeshFile.cpp.
struct MeshSource
{
    /// Suffixes, separated by spaces.
    QLatin1StringView suffixes;
    /// False when the file cannot be read; the library has logged what it knows.
    bool (*read)(QString const& path, MeshFile& file);
};

/// One kind of file that can be written.
struct MeshTarget
{
    QLatin1StringView suffixes;
    QLatin1StringView title;
    /// False when something went wrong; the library has logged what it knows.
    bool (*write)(QString const& path, MeshFile const& file);
    /// How long the file is when all went well, found without looking at its size; -1 when that is unknown.
    qint64 (*expectedBytes)(QString const& path, MeshFile const& file);
};

std::span<MeshSource const> meshSources();
std::span<MeshTarget const> meshTargets();

/// The row for the suffix of `path`, or null.
MeshSource const* meshSourceFor(QString const& path);
MeshTarget const* meshTargetFor(QString const& path);

/// All suffixes of a table, for messages: ".stl, .xyz".
QString suffixesOf(std::span<MeshSource const> sources);
QString suffixesOf(std::span<MeshTarget const> targets);

} // namespace tool
