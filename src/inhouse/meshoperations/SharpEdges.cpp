#include "inhouse/data/Unstrip.h"
#include "inhouse/meshoperations/CornerNormals_p.h"
#include "inhouse/meshoperations/SharpEdges_p.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace meshoperations {

namespace {

constexpr qsizetype entriesPerTriangle = 4;
constexpr std::size_t stepsPerPoll = 4096;
/// What the rounding of two unit normals can take off their product.
constexpr double cosineTolerance = 1e-12;

/// Looks at `cancel` once in a few thousand steps.
class Poll
{
public:
    explicit Poll(std::atomic<bool> const& cancel_)
        : cancel(cancel_)
    {}
    bool isCancelled() { return steps++ % stepsPerPoll == 0 && cancel; }

private:
    std::atomic<bool> const& cancel;
    std::size_t steps = 0;
};

struct FacetNormal
{
    double x;
    double y;
    double z;
};

bool isDegenerate(FacetNormal const& normal)
{
    return normal.x == 0.0 && normal.y == 0.0 && normal.z == 0.0;
}

/// The smallest cosine between the normals of facets that stay joined.
double smallestCosine(float threshold)
{
    constexpr double pi = 3.14159265358979323846;
    constexpr double none = 2.0;
    constexpr double any = -2.0;
    if (!(threshold >= 0.0f))
        return none;
    double const angle = static_cast<double>(threshold);
    return angle >= pi ? any : std::cos(angle) - cosineTolerance;
}

/// Unit normals of all facets, 0 for the degenerate ones.
bool computeFacetNormals(geometry::Mesh const& mesh, std::atomic<bool> const& cancel,
                         std::vector<FacetNormal>& normals)
{
    normals.reserve(static_cast<std::size_t>(mesh.indices.size() / entriesPerTriangle));
    FacetCursor cursor(mesh.indices.constData(), mesh.indices.size(), mesh.vertices.size());
    FacetGeometry geometry;
    FacetBlock block;
    while (cursor.next(block)) {
        if (cancel)
            return false;
        gatherPoints(mesh.vertices.constData(), block, geometry);
        computeCornerAngles(geometry);
        for (std::size_t i = 0; i < block.size; ++i)
            normals.push_back({geometry.normal[0][i], geometry.normal[1][i], geometry.normal[2][i]});
    }
    return !cancel;
}

/// Corner c of facet f is corner 3 * f + c. `indices` is a list of single triangles.
struct CornerList
{
    int const* indices;
    std::size_t count;

    std::size_t vertexOf(std::size_t corner) const
    {
        return static_cast<std::size_t>(indices[corner + corner / 3]); // a -1 after each three
    }
    bool isUsable(std::size_t facet, std::size_t vertexCount) const
    {
        int const* entry = indices + entriesPerTriangle * static_cast<qsizetype>(facet);
        return meshoperations::isUsable({entry[0], entry[1], entry[2]}, vertexCount);
    }
};

/// The corners at each vertex in ascending order: those of vertex v are
/// corners[starts[v]] up to corners[starts[v + 1] - 1]. Facets that are not usable have none.
struct VertexCorners
{
    std::vector<int> starts;
    std::vector<int> corners;
};

bool collectCorners(CornerList const& list, std::size_t vertexCount, std::atomic<bool> const& cancel,
                    VertexCorners& result)
{
    Poll poll(cancel);
    result.starts.resize(vertexCount + 2);
    for (std::size_t corner = 0; corner < list.count; ++corner) {
        if (poll.isCancelled())
            return false;
        if (list.isUsable(corner / 3, vertexCount))
            ++result.starts[list.vertexOf(corner) + 2];
    }
    for (std::size_t i = 2; i < result.starts.size(); ++i)
        result.starts[i] += result.starts[i - 1];
    result.corners.resize(static_cast<std::size_t>(result.starts.back()));
    // starts[v + 1] is where the next corner of v goes, and ends as the start of v + 1.
    for (std::size_t corner = 0; corner < list.count; ++corner) {
        if (poll.isCancelled())
            return false;
        if (list.isUsable(corner / 3, vertexCount))
            result.corners[static_cast<std::size_t>(result.starts[list.vertexOf(corner) + 1]++)] =
                static_cast<int>(corner);
    }
    return true;
}

/// Disjoint sets over 0 .. n - 1, each led by its lowest member.
class Sets
{
public:
    void reset(std::size_t count)
    {
        leaders.resize(count);
        for (std::size_t i = 0; i < count; ++i)
            leaders[i] = i;
    }
    std::size_t leaderOf(std::size_t member)
    {
        while (leaders[member] != member)
            member = leaders[member] = leaders[leaders[member]];
        return member;
    }
    void unite(std::size_t a, std::size_t b)
    {
        auto const [low, high] = std::minmax({leaderOf(a), leaderOf(b)});
        leaders[high] = low;
    }

private:
    std::vector<std::size_t> leaders;
};

/// Decides which corners of each vertex stay together.
class VertexSplitter
{
public:
    static constexpr int keepsVertex = -1;

    VertexSplitter(CornerList const& list_, std::vector<FacetNormal> const& normals_, float threshold,
                   std::size_t vertexCount)
        : list(list_)
        , normals(normals_)
        , cosine(smallestCosine(threshold))
        , neighbours(vertexCount)
        , parts(list_.count, keepsVertex)
    {}

    /// Takes the corners of one vertex after the other, each vertex once.
    bool split(VertexCorners const& all, std::atomic<bool> const& cancel)
    {
        Poll poll(cancel);
        for (std::size_t vertex = 0; vertex < neighbours.size(); ++vertex) {
            corners = all.corners.data() + all.starts[vertex];
            count = static_cast<std::size_t>(all.starts[vertex + 1] - all.starts[vertex]);
            if (!joinNeighbours(poll))
                return false;
            if (creased) {
                absorbDegenerate();
                writeParts();
            }
        }
        return true;
    }

    /// For each corner, the first corner of its part of the vertex, or `keepsVertex` for the first part.
    std::vector<int> const& partsOfCorners() const { return parts; }

private:
    /// The last corner met that has an edge from the vertex at work to another one.
    struct Neighbour
    {
        int const* owner = nullptr;
        std::size_t member = 0;
    };

    std::size_t facetOf(std::size_t member) const { return static_cast<std::size_t>(corners[member]) / 3; }

    bool isDirected(std::size_t member) const { return !isDegenerate(normals[facetOf(member)]); }

    bool isSharp(std::size_t a, std::size_t b) const
    {
        FacetNormal const& m = normals[facetOf(a)];
        FacetNormal const& n = normals[facetOf(b)];
        return !isDegenerate(m) && !isDegenerate(n) && !(m.x * n.x + m.y * n.y + m.z * n.z >= cosine);
    }

    bool joinNeighbours(Poll& poll)
    {
        sets.reset(count);
        creased = false;
        for (std::size_t member = 0; member < count; ++member) {
            if (poll.isCancelled())
                return false;
            auto const corner = static_cast<std::size_t>(corners[member]);
            std::size_t const first = corner - corner % 3;
            joinAcross(list.vertexOf(first + (corner + 1) % 3), member);
            joinAcross(list.vertexOf(first + (corner + 2) % 3), member);
        }
        return true;
    }

    void joinAcross(std::size_t otherEnd, std::size_t member)
    {
        Neighbour& last = neighbours[otherEnd];
        if (last.owner == corners && isSharp(last.member, member))
            creased = true;
        else if (last.owner == corners)
            sets.unite(last.member, member);
        last = {corners, member};
    }

    /// Parts made of degenerate facets alone go with the first part that has a direction.
    void absorbDegenerate()
    {
        directed.assign(count, 0);
        std::size_t first = count;
        for (std::size_t member = count; member-- > 0;)
            if (isDirected(member)) {
                directed[sets.leaderOf(member)] = 1;
                first = member;
            }
        for (std::size_t member = 0; member < count; ++member)
            if (sets.leaderOf(member) == member && directed[member] == 0)
                sets.unite(member, first);
    }

    void writeParts()
    {
        for (std::size_t member = 0; member < count; ++member) {
            std::size_t const leader = sets.leaderOf(member);
            if (leader != 0)
                parts[static_cast<std::size_t>(corners[member])] = corners[leader];
        }
    }

    CornerList const& list;
    std::vector<FacetNormal> const& normals;
    double cosine;
    std::vector<Neighbour> neighbours;
    std::vector<int> parts;

    // The vertex at work.
    int const* corners = nullptr;
    std::size_t count = 0;
    Sets sets;
    std::vector<unsigned char> directed;
    bool creased = false;
};

/// Appends vertices with the position, colour and texture coordinate of another one. A list that does not
/// have one entry for each vertex to begin with stays as it is.
class VertexCopier
{
public:
    explicit VertexCopier(geometry::Mesh& mesh_)
        : mesh(mesh_)
        , hasColors(mesh_.colors.size() == mesh_.vertices.size())
        , hasTextureCoordinates(mesh_.textureCoordinates.size() == mesh_.vertices.size())
    {}

    int append(int vertex)
    {
        appendCopy(mesh.vertices, vertex);
        if (hasColors)
            appendCopy(mesh.colors, vertex);
        if (hasTextureCoordinates)
            appendCopy(mesh.textureCoordinates, vertex);
        return static_cast<int>(mesh.vertices.size()) - 1;
    }

private:
    template <typename T>
    static void appendCopy(QList<T>& list, int index)
    {
        T const copy = std::as_const(list)[index];
        list.append(copy);
    }

    geometry::Mesh& mesh;
    bool hasColors;
    bool hasTextureCoordinates;
};

// A list that is shared does not look whether it got memory of its own.
void detach(QList<int>& list)
{
    if (list.isDetached())
        return;
    QList<int> own;
    own.resize(list.size());
    std::copy(list.cbegin(), list.cend(), own.begin());
    list = std::move(own);
}

bool appendParts(std::vector<int> const& parts, std::atomic<bool> const& cancel, geometry::Mesh& mesh)
{
    auto const entryOf = [](std::size_t corner) { return corner + corner / 3; };
    Poll poll(cancel);
    VertexCopier copier(mesh);
    detach(mesh.indices);
    int* indices = mesh.indices.data();
    for (std::size_t corner = 0; corner < parts.size(); ++corner) {
        if (poll.isCancelled())
            return false;
        if (parts[corner] == VertexSplitter::keepsVertex)
            continue;
        auto const first = static_cast<std::size_t>(parts[corner]);
        int const vertex = indices[entryOf(first)];
        indices[entryOf(corner)] = first == corner ? copier.append(vertex) : vertex;
    }
    return true;
}

} // namespace

bool splitAtSharpEdges(geometry::Mesh& mesh, float threshold, std::atomic<bool> const& cancel)
{
    mesh = geometry::unstrip(std::move(mesh));
    qsizetype const facets = mesh.indices.size() / entriesPerTriangle;
    if (mesh.vertices.size() + 3 * facets > std::numeric_limits<int>::max() || mesh.vertices.isEmpty())
        return mesh.vertices.isEmpty();
    auto const vertexCount = static_cast<std::size_t>(mesh.vertices.size());
    CornerList const list{mesh.indices.constData(), 3 * static_cast<std::size_t>(facets)};
    std::vector<FacetNormal> normals;
    VertexCorners corners;
    if (!computeFacetNormals(mesh, cancel, normals) || !collectCorners(list, vertexCount, cancel, corners))
        return false;
    VertexSplitter splitter(list, normals, threshold, vertexCount);
    return splitter.split(corners, cancel) && appendParts(splitter.partsOfCorners(), cancel, mesh);
}

} // namespace meshoperations
