#include "stl/STLCleaning.h"

#include "inhouse/data/Conversions.h"
#include "inhouse/meshoperations/VarnixSurfaceCleaner.h"
#include "stl/STLLayout.h"

#include <algorithm>
#include <vector>

namespace stl {

void cleanMesh(geometry::Mesh& mesh, int triangleCount, std::atomic<bool> const& cancel)
{
    constexpr std::size_t coordinates = 3;
    float const* const first = mesh.getVertices();
    // A cleaner may take a null pointer for buffers that were not set, so empty ones have some memory too.
    std::vector<float> vertices(first, first + coordinates * static_cast<std::size_t>(mesh.getNumVertices()));
    std::vector<int> indices(mesh.getIndices(), mesh.getIndices() + mesh.getNumIndices());
    vertices.reserve(1);
    indices.reserve(1);

    VarnixSurfaceCleaner cleaner;
    cleaner.setVertices(vertices.data(), mesh.getNumVertices());
    cleaner.setTriangles(indices.data(), std::min(triangleCount, mesh.getNumIndices() / indicesPerTriangle));
    cleaner.execute(cancel);

    mesh.vertices = data::Conversions::toVector(vertices.data(), cleaner.getNumberOfVertices());
    mesh.indices =
        data::Conversions::toVector(indices.data(), indicesPerTriangle * cleaner.getNumberOfTriangles());
}

} // namespace stl
