#pragma once

#include "vmesh/MTModelBoundaryConditions.h"
#include "vmesh/MTModelVMesh.h"

/// A beam of `cells` cubes of 10 mm along the x axis, five tetrahedra in each. Without face rows.
MTModelVMesh makeBeam(int cells);

/// Holds the four points at x = 0 and moves the four at the other end by `pull` millimetres along x.
MTModelBoundaryConditions pullBeam(MTModelVMesh const& beam, float pull);
