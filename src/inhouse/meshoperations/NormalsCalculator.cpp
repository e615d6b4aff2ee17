#include "inhouse/meshoperations/NormalsCalculator.h"

geometry::Mesh NormalsCalculator::computeSharpEdgeNormals(geometry::Mesh const& mesh, float,
                                                          std::atomic<bool> const& cancel)
{
    return cancel ? geometry::Mesh() : mesh;
}

geometry::Mesh NormalsCalculator::computeGouraudNormals(geometry::Mesh mesh, std::atomic<bool> const& cancel)
{
    return cancel ? geometry::Mesh() : mesh;
}
