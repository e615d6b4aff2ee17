#pragma once

#include "convert/Reading.h"
#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/data/MeshHeader.h"

#include <QStringList>

#include <optional>
#include <span>

namespace tool {

/// What is carried from one file to the next.
struct MeshFile
{
    geometry::Mesh mesh;
    std::optional<geometry::Material> material = {};
    std::optional<MeshHeader> metadata = {};
    /// Whether its facets had tags other than 0; no target holds them.
    bool hasTags = false;
    /// Whether the alpha of colours is written too.
    bool withAlpha = false;
    /// Set before reading: whether a texture becomes colours of the vertices, or is left out.
    bool bakesTexture = true;
};

/// One kind of file that can be read, as a row of the table in MeshFile.cpp.
struct MeshSource
{
    /// Suffixes, separated by spaces.
    QLatin1StringView suffixes;
    /// False when the file cannot be read, or when the reading was stopped; the library has logged what it
    /// knows.
    bool (*read)(QString const& path, MeshFile& file, Reading const& reading);
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
    /// Why such a file cannot hold what it is to hold, empty when it can; null when it always can.
    QString (*obstacle)(MeshFile const& file) = nullptr;
    bool holdsMetadata = false;
    /// Material and alpha.
    bool holdsAppearance = false;
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
