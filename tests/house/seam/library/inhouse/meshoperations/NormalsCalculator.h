#pragma once

#include "inhouse/data/Mesh.h"

#include <atomic>

class OTHER_INHOUSE_EXPORT NormalsCalculator
{
public:
    /// Every normal is (0, 1, 0).
    static geometry::Mesh computeSharpEdgeNormals(geometry::Mesh const& mesh, float threshold,
                                                  std::atomic<bool> const& cancel);
    /// Every normal is (0, 0, 1).
    static geometry::Mesh computeGouraudNormals(geometry::Mesh mesh, std::atomic<bool> const& cancel);
};
