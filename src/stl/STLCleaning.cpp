#include "stl/STLCleaning.h"

#include "inhouse/data/Conversions.h"
#include "inhouse/meshoperations/VarnixSurfaceCleaner.h"
#include "stl/STLLayout.h"

#include <algorithm>
#include <utility>

namespace stl {

namespace {

using data::Conversions;

// Where next to nothing was dropped the list stays where it is, with a little room that nobody needs.
void shorten(QList<int>& list, int count)
{
    if (count >= list.size() - list.size() / 8)
        list.resize(count);
    else
        list = Conversions::toVector(list.constData(), count);
}

// A list that somebody else holds too is copied, but not by itself: it does not look whether it got its
// memory.
QList<int> taken(QList<int>& list)
{
    return list.isDetached() ? std::exchange(list, {})
                             : Conversions::toVector(list.constData(), static_cast<int>(list.size()));
}

} // namespace

geometry::Mesh cleanedMesh(Soup soup, int triangleCount, std::atomic<bool> const& cancel)
{
    geometry::Mesh mesh;
    mesh.indices = std::move(soup.indices);
    // A cleaner may take a null pointer for buffers that were not set.
    int noIndices[indicesPerTriangle] = {};
    VarnixSurfaceCleaner cleaner;
    cleaner.setVertices(soup.vertices.get(), soup.vertexCount);
    cleaner.setTriangles(mesh.indices.isEmpty() ? noIndices : mesh.indices.data(),
                         std::min(triangleCount, mesh.getNumIndices() / indicesPerTriangle));
    cleaner.execute(cancel);

    mesh.vertices = Conversions::toVector(soup.vertices.get(), cleaner.getNumberOfVertices());
    shorten(mesh.indices, indicesPerTriangle * cleaner.getNumberOfTriangles());
    return mesh;
}

void cleanMesh(geometry::Mesh& mesh, int triangleCount, std::atomic<bool> const& cancel)
{
    constexpr std::size_t coordinates = 3;
    std::size_t const floats = coordinates * static_cast<std::size_t>(mesh.getNumVertices());
    auto vertices = std::make_unique_for_overwrite<float[]>(floats);
    std::copy_n(mesh.getVertices(), floats, vertices.get());
    geometry::Mesh cleaned =
        cleanedMesh({std::move(vertices), mesh.getNumVertices(), taken(mesh.indices)}, triangleCount, cancel);
    mesh.vertices = std::move(cleaned.vertices);
    mesh.indices = std::move(cleaned.indices);
}

} // namespace stl
