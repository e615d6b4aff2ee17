#pragma once

#include "inhouse/Export.h"

#include <atomic>

/// Leaves everything as it is.
class OTHER_INHOUSE_EXPORT VarnixSurfaceCleaner
{
public:
    void setVertices(float*, int vertexCount) { numberOfVertices = vertexCount; }
    void setTriangles(int*, int triangleCount) { numberOfTriangles = triangleCount; }
    bool execute(std::atomic<bool> const& cancel);
    int getNumberOfVertices() const { return numberOfVertices; }
    int getNumberOfTriangles() const { return numberOfTriangles; }

private:
    int numberOfVertices = 0;
    int numberOfTriangles = 0;
};
