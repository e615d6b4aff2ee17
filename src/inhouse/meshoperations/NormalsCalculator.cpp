#include "inhouse/meshoperations/NormalsCalculator.h"

#include "inhouse/meshoperations/CornerNormals_p.h"
#include "inhouse/meshoperations/Prefetch_p.h"
#include "inhouse/meshoperations/SharpEdges_p.h"

#include <cmath>
#include <new>
#include <vector>

namespace {

using namespace meshoperations;

constexpr std::size_t verticesPerPoll = 4096;
/// Facets that cancel out leave a rest of this share of their weights at most: rounding, not a direction.
constexpr double cancelledShare = 1e-6;

/// The facet normals at a vertex, each times the facet's angle there, and the sum of those angles.
struct NormalSum
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double weight = 0.0;
};

void addBlock(FacetBlock const& block, FacetGeometry const& geometry, NormalSum* sums)
{
    for (std::size_t facet = 0; facet < block.size; ++facet)
        for (std::size_t corner = 0; corner < 3; ++corner) {
            NormalSum& sum = sums[block.corners[facet][corner]];
            double const angle = geometry.angle[corner][facet];
            sum.x += angle * geometry.normal[0][facet];
            sum.y += angle * geometry.normal[1][facet];
            sum.z += angle * geometry.normal[2][facet];
            sum.weight += angle;
        }
}

void prefetchBlock(FacetBlock const& block, QVector3D const* points, NormalSum const* sums)
{
    for (std::size_t facet = 0; facet < block.size; ++facet)
        for (int const corner : block.corners[facet]) {
            prefetch(points + corner);
            prefetch(sums + corner);
        }
}

/// Adds every facet to the sums of its corners. False when `cancel` was set.
bool sumFacetNormals(geometry::Mesh const& mesh, std::atomic<bool> const& cancel,
                     std::vector<NormalSum>& sums)
{
    sums.resize(static_cast<std::size_t>(mesh.vertices.size()));
    FacetCursor cursor(mesh.indices.constData(), mesh.indices.size(), mesh.vertices.size());
    FacetGeometry geometry;
    FacetBlock blocks[2]; // the one at work, and the one whose memory is on its way
    bool more = !sums.empty() && cursor.next(blocks[0]);
    for (unsigned i = 0; more; i ^= 1) {
        if (cancel)
            return false;
        more = cursor.next(blocks[i ^ 1]);
        prefetchBlock(blocks[i ^ 1], mesh.vertices.constData(), sums.data());
        gatherPoints(mesh.vertices.constData(), blocks[i], geometry);
        computeCornerAngles(geometry);
        addBlock(blocks[i], geometry, sums.data());
    }
    return true;
}

QVector3D direction(NormalSum const& sum)
{
    double const length = std::sqrt(sum.x * sum.x + sum.y * sum.y + sum.z * sum.z);
    if (!(length > cancelledShare * sum.weight))
        return {};
    return {static_cast<float>(sum.x / length), static_cast<float>(sum.y / length),
            static_cast<float>(sum.z / length)};
}

bool writeNormals(std::vector<NormalSum> const& sums, std::atomic<bool> const& cancel,
                  QList<QVector3D>& normals)
{
    // A new list: one that is shared does not look whether it got memory of its own.
    normals = {};
    normals.resize(static_cast<qsizetype>(sums.size()));
    QVector3D* normal = normals.data();
    for (std::size_t i = 0; i < sums.size(); ++i) {
        if (i % verticesPerPoll == 0 && cancel)
            return false;
        normal[i] = direction(sums[i]);
    }
    return !cancel;
}

bool setSmoothNormals(geometry::Mesh& mesh, std::atomic<bool> const& cancel)
{
    std::vector<NormalSum> sums;
    return !cancel && sumFacetNormals(mesh, cancel, sums) && writeNormals(sums, cancel, mesh.normals);
}

} // namespace

geometry::Mesh NormalsCalculator::computeSharpEdgeNormals(geometry::Mesh const& mesh, float threshold,
                                                          std::atomic<bool> const& cancel)
{
    try {
        geometry::Mesh result = mesh;
        if (!cancel && splitAtSharpEdges(result, threshold, cancel) && setSmoothNormals(result, cancel))
            return result;
    } catch (std::bad_alloc const&) {
        // too large for this machine: as good as cancelled
    }
    return {};
}

geometry::Mesh NormalsCalculator::computeGouraudNormals(geometry::Mesh mesh, std::atomic<bool> const& cancel)
{
    try {
        if (setSmoothNormals(mesh, cancel))
            return mesh;
    } catch (std::bad_alloc const&) {
        // too large for this machine: as good as cancelled
    }
    return {};
}
