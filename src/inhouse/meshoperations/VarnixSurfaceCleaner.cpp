#include "inhouse/meshoperations/VarnixSurfaceCleaner.h"

VarnixSurfaceCleaner::VarnixSurfaceCleaner() = default;
VarnixSurfaceCleaner::~VarnixSurfaceCleaner() = default;

void VarnixSurfaceCleaner::setVertices(float* vertices, int vertexCount)
{
    vertexBuffer = vertices;
    numberOfVertices = vertexCount;
}

void VarnixSurfaceCleaner::setTriangles(int* triangles, int triangleCount)
{
    triangleBuffer = triangles;
    numberOfTriangles = triangleCount;
}

bool VarnixSurfaceCleaner::execute(std::atomic<bool> const& cancel)
{
    return !cancel;
}

int VarnixSurfaceCleaner::getNumberOfVertices() const
{
    return numberOfVertices;
}

int VarnixSurfaceCleaner::getNumberOfTriangles() const
{
    return numberOfTriangles;
}
