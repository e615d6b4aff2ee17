#include "inhouse/meshoperations/VarnixSurfaceCleaner.h"

#include "inhouse/meshoperations/VertexMerge_p.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

namespace {

using meshoperations::MergedVertices;
using meshoperations::Point;

constexpr std::size_t entriesPerTriangle = 4;
constexpr std::size_t trianglesPerPoll = 4096;
constexpr int restart = -1;

struct Soup
{
    float* vertices;
    std::size_t vertexCount;
    int* triangles;
    std::size_t triangleCount;
};

struct Corners
{
    int a;
    int b;
    int c;
};

/// The merged corners of triangle `index`; false when it is degenerate or has an index outside the vertices.
bool mergedCorners(Soup const& soup, std::size_t index, std::vector<int> const& ids, Corners& corners)
{
    int const* entry = soup.triangles + entriesPerTriangle * index;
    auto const a = static_cast<std::size_t>(entry[0]); // negative ones become huge
    auto const b = static_cast<std::size_t>(entry[1]);
    auto const c = static_cast<std::size_t>(entry[2]);
    if (std::max({a, b, c}) >= ids.size())
        return false;
    corners = {ids[a], ids[b], ids[c]};
    return corners.a != corners.b && corners.b != corners.c && corners.c != corners.a;
}

/// Sets the flag of each point that a triangle to be kept uses. False when `cancel` was set.
bool markUsed(Soup const& soup, MergedVertices const& merged, std::vector<unsigned char>& used,
              std::atomic<bool> const& cancel)
{
    used.assign(merged.points.size(), 0);
    for (std::size_t i = 0; i < soup.triangleCount; ++i) {
        if (i % trianglesPerPoll == 0 && cancel)
            return false;
        Corners corners;
        if (!mergedCorners(soup, i, merged.ids, corners))
            continue;
        for (int const corner : {corners.a, corners.b, corners.c})
            used[static_cast<std::size_t>(corner)] = 1;
    }
    return true;
}

/// Drops the points without a flag.
void dropUnused(MergedVertices& merged, std::vector<unsigned char> const& used)
{
    if (std::all_of(used.begin(), used.end(), [](unsigned char flag) { return flag != 0; }))
        return;
    std::vector<int> renumbered(used.size());
    std::size_t kept = 0;
    for (std::size_t i = 0; i < used.size(); ++i) {
        renumbered[i] = static_cast<int>(kept);
        if (used[i] != 0)
            merged.points[kept++] = merged.points[i];
    }
    // A dropped point shares the number of the next kept one. Only dropped triangles have it for a corner,
    // and they stay as degenerate as they were.
    for (int& id : merged.ids)
        id = renumbered[static_cast<std::size_t>(id)];
    merged.points.resize(kept);
}

/// Writes the result to the front of both buffers; the number of triangles written.
std::size_t writeBack(Soup const& soup, MergedVertices const& merged)
{
    static_assert(sizeof(Point) == 3 * sizeof(float));
    if (!merged.points.empty())
        std::memcpy(soup.vertices, merged.points.data(), merged.points.size() * sizeof(Point));
    int* target = soup.triangles;
    for (std::size_t i = 0; i < soup.triangleCount; ++i) {
        Corners corners;
        if (!mergedCorners(soup, i, merged.ids, corners))
            continue;
        for (int const entry : {corners.a, corners.b, corners.c, restart})
            *target++ = entry;
    }
    return static_cast<std::size_t>(target - soup.triangles) / entriesPerTriangle;
}

/// Half as many distinct points as triangles is the rule for closed surfaces; three for each triangle is
/// the most there can be. One and a half keeps the table sparse on the first and doubles it once or twice on
/// the second.
std::size_t expectedPoints(Soup const& soup)
{
    return std::min(soup.vertexCount, soup.triangleCount + soup.triangleCount / 2);
}

/// Everything that can fail or be cancelled; the buffers are only read.
bool prepare(Soup const& soup, std::atomic<bool> const& cancel, MergedVertices& merged)
{
    std::vector<unsigned char> used;
    bool const done =
        !cancel && mergeVertices({soup.vertices, soup.vertexCount, expectedPoints(soup)}, cancel, merged) &&
        markUsed(soup, merged, used, cancel);
    if (done)
        dropUnused(merged, used);
    return done && !cancel;
}

} // namespace

VarnixSurfaceCleaner::VarnixSurfaceCleaner() = default;
VarnixSurfaceCleaner::~VarnixSurfaceCleaner() = default;

void VarnixSurfaceCleaner::setVertices(float* vertices, int vertexCount)
{
    vertexBuffer = vertices;
    numberOfVertices = vertices != nullptr ? std::max(vertexCount, 0) : 0;
}

void VarnixSurfaceCleaner::setTriangles(int* triangles, int triangleCount)
{
    triangleBuffer = triangles;
    numberOfTriangles = triangles != nullptr ? std::max(triangleCount, 0) : 0;
}

bool VarnixSurfaceCleaner::execute(std::atomic<bool> const& cancel)
{
    Soup const soup{vertexBuffer, static_cast<std::size_t>(numberOfVertices), triangleBuffer,
                    static_cast<std::size_t>(numberOfTriangles)};
    try {
        MergedVertices merged;
        if (!prepare(soup, cancel, merged))
            return false;
        numberOfTriangles = static_cast<int>(writeBack(soup, merged));
        numberOfVertices = static_cast<int>(merged.points.size());
        return true;
    } catch (std::bad_alloc const&) {
        return false;
    }
}

int VarnixSurfaceCleaner::getNumberOfVertices() const
{
    return numberOfVertices;
}

int VarnixSurfaceCleaner::getNumberOfTriangles() const
{
    return numberOfTriangles;
}
