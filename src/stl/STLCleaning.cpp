#include "stl/STLCleaning.h"

#include "inhouse/data/Conversions.h"
#include "inhouse/meshoperations/VarnixSurfaceCleaner.h"
#include "stl/STLLayout.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace stl {

namespace {

// Where next to nothing was dropped the list stays where it is, with a little room that nobody needs.
void shorten(QList<int>& list, int count)
{
    if (count >= list.size() - list.size() / 8)
        list.resize(count);
    else
        list = data::Conversions::toVector(list.constData(), count);
}

} // namespace

geometry::Mesh cleanedMesh(Soup soup, std::atomic<bool> const& cancel)
{
    geometry::Mesh mesh;
    mesh.indices = std::move(soup.indices);
    // A cleaner may take a null pointer for buffers that were not set.
    int noIndices[indicesPerTriangle] = {};
    VarnixSurfaceCleaner cleaner;
    cleaner.setVertices(soup.vertices.get(), soup.vertexCount);
    cleaner.setTriangles(mesh.indices.isEmpty() ? noIndices : mesh.indices.data(),
                         mesh.getNumIndices() / indicesPerTriangle);
    cleaner.execute(cancel);

    mesh.vertices = data::Conversions::toVector(soup.vertices.get(), cleaner.getNumberOfVertices());
    shorten(mesh.indices, indicesPerTriangle * cleaner.getNumberOfTriangles());
    return mesh;
}

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
