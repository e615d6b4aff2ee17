#include "Text.h"
#include "check/Checkers.h"
#include "inhouse/data/Unstrip.h"
#include "inspect/Bounds.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

using Facet = std::array<int, 3>;

std::vector<Facet> facetsOf(geometry::Mesh const& mesh)
{
    QList<int> const& indices = mesh.indices;
    std::vector<Facet> facets;
    facets.reserve(static_cast<std::size_t>(indices.size() / 4));
    for (qsizetype i = 0; i + 3 < indices.size(); i += 4)
        facets.push_back({indices[i], indices[i + 1], indices[i + 2]});
    return facets;
}

// For each vertex the first one at the same place: seams of textures and normals are no gaps.
std::vector<int> placesOf(QList<QVector3D> const& vertices)
{
    auto const key = [&](int vertex) {
        QVector3D const place = vertices[vertex] + QVector3D(); // no negative zeros
        return std::array{std::bit_cast<quint32>(place.x()), std::bit_cast<quint32>(place.y()),
                          std::bit_cast<quint32>(place.z())};
    };
    std::vector<int> order(static_cast<std::size_t>(vertices.size()));
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](int a, int b) { return std::pair(key(a), a) < std::pair(key(b), b); });
    std::vector<int> places(order.size());
    int first = 0;
    for (int const vertex : order) {
        if (vertex == order.front() || key(vertex) != key(first))
            first = vertex;
        places[static_cast<std::size_t>(vertex)] = first;
    }
    return places;
}

bool hasEqualCorners(Facet const& facet)
{
    return facet[0] == facet[1] || facet[1] == facet[2] || facet[2] == facet[0];
}

// The facets by their places, without those that have two corners at one place; how many these are.
qint64 joinPlaces(QList<QVector3D> const& vertices, std::vector<Facet>& facets)
{
    std::vector<int> const places = placesOf(vertices);
    for (Facet& facet : facets) {
        for (int& corner : facet)
            corner = places[static_cast<std::size_t>(corner)];
    }
    return static_cast<qint64>(std::erase_if(facets, hasEqualCorners));
}

/// An edge with its smaller end first, and whether a facet runs along it the other way.
struct Edge
{
    int low;
    int high;
    bool isReversed;

    auto key() const { return std::pair(low, high); }
};

std::vector<Edge> sortedEdges(std::vector<Facet> const& facets)
{
    std::vector<Edge> edges;
    edges.reserve(3 * facets.size());
    for (Facet const& facet : facets) {
        for (std::size_t i = 0; i < 3; ++i) {
            auto const [low, high] = std::minmax({facet[i], facet[(i + 1) % 3]});
            edges.push_back({low, high, low != facet[i]});
        }
    }
    std::sort(edges.begin(), edges.end(), [](Edge const& a, Edge const& b) { return a.key() < b.key(); });
    return edges;
}

struct EdgeCounts
{
    qint64 open = 0;
    qint64 crowded = 0;
    qint64 flipped = 0;
};

EdgeCounts countEdges(std::vector<Edge> const& edges)
{
    EdgeCounts counts;
    for (auto begin = edges.begin(); begin != edges.end();) {
        auto const end =
            std::find_if(begin, edges.end(), [&](Edge const& edge) { return edge.key() != begin->key(); });
        auto const facets = end - begin;
        counts.open += facets == 1;
        counts.crowded += facets > 2;
        counts.flipped += facets == 2 && begin->isReversed == (begin + 1)->isReversed;
        begin = end;
    }
    return counts;
}

qint64 countDuplicates(std::vector<Facet> facets)
{
    for (Facet& facet : facets)
        std::sort(facet.begin(), facet.end());
    std::sort(facets.begin(), facets.end());
    auto const distinct = std::unique(facets.begin(), facets.end()) - facets.begin();
    return static_cast<qint64>(facets.size()) - distinct;
}

// Four digits that count, without an exponent: 70000, 0.07, 0.00007.
QString plainNumber(double number)
{
    constexpr int digits = 4;
    int const before = number > 0 ? 1 + static_cast<int>(std::floor(std::log10(number))) : 1;
    QString text = QString::number(number, 'f', std::max(0, digits - before));
    if (text.contains(u'.')) {
        while (text.endsWith(u'0'))
            text.chop(1);
    }
    return text.endsWith(u'.') ? text.chopped(1) : text;
}

// An arch is 50 to 80 mm wide, a head 250 mm, a tooth 5 mm.
void checkSize(Bounds const& bounds, Findings& findings)
{
    constexpr float smallest = 0.5f;
    constexpr float largest = 5000.0f;
    QVector3D const size = bounds.size();
    float const across = std::max({size.x(), size.y(), size.z()});
    QString const number = plainNumber(static_cast<double>(across));
    if (across > 0 && across < smallest)
        findings.add("units-metres"_L1, Text::tr("%1 mm across; are these metres?").arg(number));
    if (across > largest)
        findings.add("units-micrometres"_L1, Text::tr("%1 mm across; are these micrometres?").arg(number));
}

void addCount(QLatin1StringView code, qint64 count, char const* text, Findings& findings)
{
    if (count > 0)
        findings.add(code, Text::counted(text, nullptr, count));
}

// Vertices without a normal whose facets all have places: nothing else gives a normal to a facet with a NaN.
qint64 countZeroNormals(geometry::Mesh const& mesh, std::vector<Facet> const& facets)
{
    auto const count = static_cast<std::size_t>(std::min(mesh.normals.size(), mesh.vertices.size()));
    auto const isPlace = [&](int vertex) { return isFinite(mesh.vertices[vertex]); };
    std::vector<bool> isExplained(count);
    for (std::size_t i = 0; i < count; ++i)
        isExplained[i] = !isPlace(static_cast<int>(i));
    for (Facet const& facet : facets) {
        if (std::all_of(facet.begin(), facet.end(), isPlace))
            continue;
        for (int const corner : facet) {
            if (static_cast<std::size_t>(corner) < count)
                isExplained[static_cast<std::size_t>(corner)] = true;
        }
    }
    qint64 zeros = 0;
    for (std::size_t i = 0; i < count; ++i)
        zeros += !isExplained[i] && mesh.normals[static_cast<qsizetype>(i)].isNull();
    return zeros;
}

void checkVertices(geometry::Mesh const& mesh, std::vector<Facet> const& facets, Findings& findings)
{
    Bounds bounds;
    for (QVector3D const& vertex : mesh.vertices)
        bounds.add(vertex);
    checkSize(bounds, findings);
    addCount("nonfinite-vertices"_L1, bounds.nonFiniteCount(),
             QT_TRANSLATE_N_NOOP("Text", "%n vert(ex|ices) with a NaN or an infinity"), findings);
    addCount("zero-normals"_L1, countZeroNormals(mesh, facets),
             QT_TRANSLATE_N_NOOP("Text", "%n vert(ex|ices) without a normal"), findings);
}

void checkFacets(geometry::Mesh const& mesh, std::vector<Facet> facets, Findings& findings)
{
    if (qint64 const degenerate = joinPlaces(mesh.vertices, facets); degenerate > 0)
        findings.add("degenerate-facets"_L1,
                     Text::counted("%n facet(s) with two equal corners", nullptr, degenerate),
                     Text::tr("remove them in a mesh editor: they have no area and no normal"));
    EdgeCounts const edges = countEdges(sortedEdges(facets));
    addCount("nonmanifold-edges"_L1, edges.crowded,
             QT_TRANSLATE_N_NOOP("Text", "%n edge(s) with more than two facets"), findings);
    addCount("flipped-facets"_L1, edges.flipped,
             QT_TRANSLATE_N_NOOP("Text", "%n edge(s) whose two facets are wound against each other"),
             findings);
    addCount("duplicate-facets"_L1, countDuplicates(facets),
             QT_TRANSLATE_N_NOOP("Text", "%n facet(s) that (is|are) there already"), findings);
    addCount("open-edges"_L1, edges.open, QT_TRANSLATE_N_NOOP("Text", "%n edge(s) with one facet only"),
             findings);
}

} // namespace

void checkMesh(geometry::Mesh const& given, Findings& findings)
{
    geometry::Mesh const mesh = geometry::unstrip(given);
    std::vector<Facet> const facets = facetsOf(mesh);
    if (facets.empty()) {
        findings.add("empty"_L1, Text::tr("no facets"));
        return;
    }
    checkVertices(mesh, facets, findings);
    checkFacets(mesh, facets, findings);
}

} // namespace tool
