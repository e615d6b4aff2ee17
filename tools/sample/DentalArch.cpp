#include "sample/DentalArch.h"

#include "sample/ArchSurface.h"
#include "sample/Random.h"

#include <algorithm>
#include <cmath>

namespace sample {

namespace {

// Length of the arch over the length of its cross-section.
constexpr double aspect = 3.1;
constexpr double tongueShare = 0.2;
constexpr double cheekShare = 0.2;
// Half a grain of roughness in mm: coordinates need all their bits, and no facet turns over.
constexpr double roughness = 0.002;

/// How the sheet is cut into squares: across it in three strips (gum, crown, gum), along it in zones.
struct Grid
{
    int along;
    int across;
    int crownBegin;
    int crownEnd;
    /// For each zone where it begins, and at last `along`.
    std::vector<int> zoneBegins;

    int index(int column, int row) const { return column * (across + 1) + row; }
};

std::vector<int> cutIntoZones(std::vector<Zone> const& zones, int along)
{
    double const total = zones.back().end - zones.front().begin;
    int const spare = along - static_cast<int>(zones.size());
    std::vector<int> begins = {0};
    for (std::size_t i = 0; i < zones.size(); ++i) {
        double const share = (zones[i].end - zones.front().begin) / total;
        begins.push_back(static_cast<int>(i) + 1 + static_cast<int>(std::lround(share * spare)));
    }
    return begins;
}

Grid makeGrid(std::vector<Zone> const& zones, int facets)
{
    Grid grid;
    grid.across = std::max(4, static_cast<int>(std::sqrt(0.5 * facets / aspect)));
    grid.along = facets / (2 * grid.across);
    grid.crownBegin = std::max(1, static_cast<int>(tongueShare * grid.across));
    grid.crownEnd = grid.across - std::max(1, static_cast<int>(cheekShare * grid.across));
    grid.zoneBegins = cutIntoZones(zones, grid.along);
    return grid;
}

double fraction(int value, int begin, int end)
{
    return static_cast<double>(value - begin) / static_cast<double>(end - begin);
}

Place3 placeInRow(ArchSurface::Column const& column, Grid const& grid, int row)
{
    if (row < grid.crownBegin)
        return column.tongueGum(1.0 - fraction(row, 0, grid.crownBegin));
    if (row > grid.crownEnd)
        return column.cheekGum(fraction(row, grid.crownEnd, grid.across));
    return column.crown(fraction(row, grid.crownBegin, grid.crownEnd));
}

class Builder
{
public:
    Builder(ArchSurface const& surface_, Options const& options_)
        : surface(surface_)
        , options(options_)
        , grid(makeGrid(surface_.zones(), options_.facets))
    {}

    DentalArch build()
    {
        reserve();
        for (std::size_t zone = 0; zone < surface.zones().size(); ++zone)
            addColumns(zone);
        addColumn(surface.zones().size() - 1, grid.along, 1.0);
        for (std::size_t zone = 0; zone < surface.zones().size(); ++zone)
            addFacets(zone);
        addMissingFacets();
        return std::move(arch);
    }

private:
    void reserve()
    {
        qsizetype const vertices = qsizetype(grid.along + 1) * (grid.across + 1) + missingFacets();
        arch.vertices.reserve(vertices);
        arch.colors.reserve(vertices);
        arch.textureCoordinates.reserve(vertices);
        arch.facets.reserve(static_cast<std::size_t>(options.facets));
    }

    int missingFacets() const { return options.facets - 2 * grid.along * grid.across; }

    void addColumns(std::size_t zone)
    {
        int const begin = grid.zoneBegins[zone];
        int const end = grid.zoneBegins[zone + 1];
        for (int column = begin; column < end; ++column)
            addColumn(zone, column, fraction(column, begin, end));
    }

    void addColumn(std::size_t zone, int columnIndex, double within)
    {
        ArchSurface::Column const column = surface.column(zone, within);
        for (int row = 0; row <= grid.across; ++row) {
            Place3 const place = placeInRow(column, grid, row);
            addVertex(place, {static_cast<float>(fraction(columnIndex, 0, grid.along)),
                              static_cast<float>(fraction(row, 0, grid.across))});
        }
    }

    void addVertex(Place3 const& place, QVector2D const& textureCoordinate)
    {
        auto const index = static_cast<std::uint64_t>(arch.vertices.size());
        auto const rough = [&](double value, std::uint64_t axis) {
            return static_cast<float>(value + roughness * randomAt(options.seed, 3 * index + axis));
        };
        arch.vertices << QVector3D(rough(place.x, 0), rough(place.y, 1), rough(place.z, 2));
        arch.colors << place.color;
        arch.textureCoordinates << textureCoordinate;
    }

    int tagOf(std::size_t zone, int row) const
    {
        bool const isCrown = row >= grid.crownBegin && row < grid.crownEnd;
        return isCrown ? surface.zones()[zone].tag : gumTag;
    }

    void addFacets(std::size_t zone)
    {
        for (int column = grid.zoneBegins[zone]; column < grid.zoneBegins[zone + 1]; ++column) {
            for (int row = 0; row < grid.across; ++row)
                addSquare(column, row, tagOf(zone, row));
        }
    }

    void addSquare(int column, int row, int tag)
    {
        int const a = grid.index(column, row);
        int const b = grid.index(column + 1, row);
        int const c = grid.index(column + 1, row + 1);
        int const d = grid.index(column, row + 1);
        arch.facets.push_back({{a, b, d}, tag});
        arch.facets.push_back({{b, c, d}, tag});
    }

    // The squares rarely give the exact count: facets along both rims are cut in two, evenly spread.
    void addMissingFacets()
    {
        int const onTongueRim = missingFacets() / 2;
        int const onCheekRim = missingFacets() - onTongueRim;
        for (int i = 0; i < onTongueRim; ++i)
            cutAtRim(spread(i, onTongueRim), 0);
        for (int i = 0; i < onCheekRim; ++i)
            cutAtRim(spread(i, onCheekRim), grid.across);
    }

    int spread(int i, int count) const { return static_cast<int>(qint64(i) * grid.along / count); }

    void cutAtRim(int column, int rim)
    {
        bool const isTongueRim = rim == 0;
        int const row = isTongueRim ? 0 : rim - 1;
        int const square = 2 * (column * grid.across + row);
        int const middle = addMiddle(grid.index(column, rim), grid.index(column + 1, rim));
        DentalArch::Facet& facet = arch.facets[static_cast<std::size_t>(isTongueRim ? square : square + 1)];
        // a-b of (a, b, d) lies on the rim towards the tongue, c-d of (b, c, d) on the other.
        DentalArch::Facet added = facet;
        std::size_t const first = isTongueRim ? 0 : 1;
        facet.corners[first + 1] = middle;
        added.corners[first] = middle;
        arch.facets.push_back(added);
    }

    int addMiddle(int a, int b)
    {
        QVector3D const middle = 0.5f * (arch.vertices[a] + arch.vertices[b]);
        QVector2D const coordinate = 0.5f * (arch.textureCoordinates[a] + arch.textureCoordinates[b]);
        auto const wide = [](float value) { return static_cast<double>(value); };
        addVertex({wide(middle.x()), wide(middle.y()), wide(middle.z()), arch.colors[a]}, coordinate);
        return static_cast<int>(arch.vertices.size()) - 1;
    }

    ArchSurface const& surface;
    Options options;
    Grid grid;
    DentalArch arch;
};

} // namespace

DentalArch makeDentalArch(Options const& options)
{
    Options const allowed = {std::clamp(options.facets, Options::fewestFacets, Options::mostFacets),
                             options.seed};
    ArchSurface const surface(options.seed);
    return Builder(surface, allowed).build();
}

} // namespace sample
