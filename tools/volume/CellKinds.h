#pragma once

#include <QLatin1StringView>
#include <QtGlobal>

namespace tool::volume {

/// A kind of element in the files of meshers.
struct CellKind
{
    int code;
    int dimension;
    /// Number of its nodes, its corners first; 0 when that may be any.
    int nodes;
    /// In the plural.
    QLatin1StringView name;

    bool isTetrahedron() const { return name == tetrahedra; }

    static constexpr QLatin1StringView tetrahedra{"tetrahedra"};
};

/// The kind that a Gmsh or a VTK file means by a number, or null.
CellKind const* gmshKind(qint64 code);
CellKind const* vtkKind(qint64 code);

} // namespace tool::volume
