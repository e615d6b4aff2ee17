#pragma once

#include "Problem.h"
#include "vmesh/MTModelVMesh.h"

#include <QByteArrayView>

#include <map>
#include <span>
#include <vector>

namespace tool::volume {

/// The tetrahedra in a file of a mesher, in its order.
struct TetrahedralMesh
{
    /// 3 for each point: x, y, z.
    std::vector<float> points;
    /// 4 for each tetrahedron, all of points that are there, no two the same.
    std::vector<qint32> tetrahedra;
    /// Tetrahedra with nodes on their edges, of which only the corners were taken.
    qint64 curved = 0;
    /// Elements of fewer dimensions, which were left out: how many of each kind.
    std::map<QString, qint64> leftOut;

    qint64 pointCount() const { return qint64(points.size()) / 3; }
    qint64 tetrahedronCount() const { return qint64(tetrahedra.size()) / 4; }
};

/// Read the text of a Gmsh file (version 2.2, ASCII), and that of a legacy VTK file (ASCII, unstructured
/// grid). `mesh` is to be used only without a problem; it has tetrahedra then. Memory grows with `text`,
/// never with the counts in it. An interruption is a problem.
Problem readGmsh(QByteArrayView text, TetrahedralMesh& mesh);
Problem readVtk(QByteArrayView text, TetrahedralMesh& mesh);

/// Files of a mesher that "vmesh from" takes, and nothing else: known by their suffix, their content is
/// judged by the reader.
struct MesherFormat
{
    QLatin1StringView suffixes;
    /// A source text of the translations.
    char const* title;
    Problem (*read)(QByteArrayView text, TetrahedralMesh& mesh);
};

std::span<MesherFormat const> mesherFormats();

/// Takes points out that no tetrahedron has; the others keep their order. Returns how many it took out.
qint64 removeUnusedPoints(TetrahedralMesh& mesh);

/// The same points and tetrahedra as the library holds them, without rows. Throws std::bad_alloc.
MTModelVMesh toVolumeMesh(TetrahedralMesh const& mesh);

// For the readers.

struct CellKind;

/// That elements of a kind cannot be left out: solid ones other than tetrahedra.
Problem problemOf(CellKind const& kind, qint64 line);
/// What is wrong with a mesh that was read to its end: that it has no tetrahedra.
Problem problemOf(TetrahedralMesh const& mesh);

inline Problem malformed(QString const& sentence)
{
    return {ExitCode::Malformed, sentence};
}

inline Problem unsupported(QString const& sentence)
{
    return {ExitCode::Unsupported, sentence};
}

} // namespace tool::volume
