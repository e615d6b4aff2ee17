#include "volume/BoundarySurface.h"

#include "volume/VolumeGeometry.h"

#include <algorithm>
#include <array>

namespace tool {

namespace {

constexpr int rowWidth = 5;

using Triangle = std::array<qint32, 3>;

// The only tetrahedron at a face; -1 for none or two.
qint32 ownerOf(qint32 const* row)
{
    return row[0] >= 0 && row[1] >= 0 ? -1 : std::max(row[0], row[1]);
}

Triangle outward(MTModelVMesh const& mesh, qint32 owner, Triangle triangle)
{
    if (owner < 0 || owner >= mesh.numTetrahedra || !isComplete(mesh, owner))
        return triangle;
    qint32 const* const points = mesh.tetrahedra.data() + 4 * qint64(owner);
    qint32 const* const fourth = std::find_if(points, points + 4, [&triangle](qint32 point) {
        return std::find(triangle.begin(), triangle.end(), point) == triangle.end();
    });
    Triangle const turned = {triangle[0], triangle[2], triangle[1]};
    return fourth != points + 4 && isBehind(mesh, *fourth, turned.data()) ? turned : triangle;
}

std::vector<Triangle> trianglesOf(MTModelVMesh const& mesh)
{
    bool const hasBoundFaces = mesh.numBoundFaces > 0;
    qint32 const* row = hasBoundFaces ? mesh.boundFaces.data() : mesh.faces.data();
    qint64 const count = hasBoundFaces ? mesh.numBoundFaces : mesh.numFaces;
    std::vector<Triangle> triangles;
    for (qint64 k = 0; k < count; ++k, row += rowWidth) {
        qint32 const owner = ownerOf(row);
        if (hasBoundFaces || owner >= 0)
            triangles.push_back(outward(mesh, owner, {row[2], row[3], row[4]}));
    }
    return triangles;
}

} // namespace

geometry::Mesh boundarySurfaceOf(MTModelVMesh const& mesh)
{
    std::vector<Triangle> const triangles = trianglesOf(mesh);
    std::vector<int> numbers(static_cast<std::size_t>(mesh.numPoints), -1);
    for (Triangle const& triangle : triangles) {
        for (qint32 const point : triangle)
            numbers[static_cast<std::size_t>(point)] = 0;
    }
    geometry::Mesh surface;
    for (std::size_t k = 0; k < numbers.size(); ++k) {
        if (numbers[k] < 0)
            continue;
        numbers[k] = static_cast<int>(surface.vertices.size());
        float const* const p = mesh.points.data() + 3 * k;
        surface.vertices << QVector3D(p[0], p[1], p[2]);
    }
    for (Triangle const& triangle : triangles) {
        for (qint32 const point : triangle)
            surface.indices << numbers[static_cast<std::size_t>(point)];
        surface.indices << -1;
    }
    return surface;
}

} // namespace tool
