#include "Fuzz.h"
#include "volume/TetrahedralMesh.h"

#include <set>

using tool::Problem;
using tool::volume::TetrahedralMesh;

namespace {

// Four different points that are there for each tetrahedron, and one at least.
void requireSound(TetrahedralMesh const& mesh)
{
    fuzz::require(mesh.points.size() % 3 == 0 && mesh.tetrahedra.size() % 4 == 0);
    fuzz::require(mesh.tetrahedronCount() > 0);
    for (auto corner = mesh.tetrahedra.begin(); corner != mesh.tetrahedra.end(); corner += 4) {
        std::set<qint32> const corners(corner, corner + 4);
        fuzz::require(corners.size() == 4 && *corners.begin() >= 0 && *corners.rbegin() < mesh.pointCount());
    }
}

void requireSame(TetrahedralMesh const& a, TetrahedralMesh const& b)
{
    fuzz::require(a.points.size() == b.points.size() && a.tetrahedra == b.tetrahedra);
    fuzz::require(a.points.empty() ||
                  std::memcmp(a.points.data(), b.points.data(), a.points.size() * sizeof(float)) == 0);
    fuzz::require(a.curved == b.curved && a.leftOut == b.leftOut);
}

void requirePointsInUse(TetrahedralMesh mesh)
{
    qint64 const before = mesh.pointCount();
    fuzz::require(tool::volume::removeUnusedPoints(mesh) == before - mesh.pointCount());
    requireSound(mesh);
    std::set<qint32> const used(mesh.tetrahedra.begin(), mesh.tetrahedra.end());
    fuzz::require(qint64(used.size()) == mesh.pointCount());
}

} // namespace

// A byte that chooses between Gmsh and VTK, then the text.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    QByteArray const input = fuzz::bytesOf(data, size);
    fuzz::Choices choices(input);
    auto* const read = choices.flag() ? &tool::volume::readVtk : &tool::volume::readGmsh;
    QByteArray const text = choices.rest();
    TetrahedralMesh mesh;
    TetrahedralMesh again;
    Problem const problem = read(text, mesh);
    Problem const second = read(text, again);
    fuzz::require(problem.code == second.code && problem.sentence == second.sentence);
    fuzz::require(bool(problem) != problem.sentence.isEmpty());
    if (problem)
        return 0;
    requireSound(mesh);
    requireSame(mesh, again);
    requirePointsInUse(mesh);
    return 0;
}
