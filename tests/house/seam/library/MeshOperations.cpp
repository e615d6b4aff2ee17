#include "inhouse/meshoperations/NormalsCalculator.h"
#include "inhouse/meshoperations/VarnixSurfaceCleaner.h"

geometry::Mesh NormalsCalculator::computeSharpEdgeNormals(geometry::Mesh const& mesh, float,
                                                          std::atomic<bool> const&)
{
    return {mesh.vertices, mesh.indices, QList<QVector3D>(mesh.vertices.size(), {0, 1, 0})};
}

geometry::Mesh NormalsCalculator::computeGouraudNormals(geometry::Mesh mesh, std::atomic<bool> const&)
{
    return {mesh.vertices, mesh.indices, QList<QVector3D>(mesh.vertices.size(), {0, 0, 1})};
}

bool VarnixSurfaceCleaner::execute(std::atomic<bool> const& cancel)
{
    return !cancel;
}
