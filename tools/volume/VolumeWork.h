#pragma once

#include "Console.h"

#include <QString>

namespace tool::volume {

struct FromOptions
{
    QString in;
    QString out;
    /// Whether points that no tetrahedron has are kept, so that all keep their numbers.
    bool keepsPoints = false;
    bool mayReplace = false;
    bool json = false;
};

/// Writes the tetrahedra of a Gmsh or VTK file as a volume mesh, and prints what was taken and left out.
ExitCode from(FromOptions const& options, Console& console);

struct FacesOptions
{
    QString in;
    QString out;
    bool mayReplace = false;
    bool json = false;
};

/// Writes a volume mesh with face and bound-face rows that are made anew from its tetrahedra.
ExitCode faces(FacesOptions const& options, Console& console);

struct ConditionsOptions
{
    QString in;
    /// The volume mesh that they are for; may be empty.
    QString mesh;
    bool json = false;
};

/// Prints boundary conditions: a summary, and each of them, with the place of its point when there is a mesh.
ExitCode conditions(ConditionsOptions const& options, Console& console);

} // namespace tool::volume
