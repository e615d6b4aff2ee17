#include "support/VolumeMeshes.h"

#include "support/Meshes.h"

#include <array>
#include <cmath>
#include <cstring>

namespace support {

namespace {

template <typename Value>
bool sameBits(QSharedPointer<Value> const& a, QSharedPointer<Value> const& b, qint64 count)
{
    if (a.isNull() || b.isNull())
        return a.isNull() && b.isNull();
    return count <= 0 ||
           std::memcmp(a.data(), b.data(), static_cast<std::size_t>(count) * sizeof(Value)) == 0;
}

// The six ways along the edges of a cell from its first to its last corner, one tetrahedron each.
constexpr std::array<std::array<int, 3>, 6> ways = {
    {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {2, 1, 0}, {1, 0, 2}}};
constexpr std::size_t evenWays = 3;

struct Grid
{
    int cells;

    int pointsAlong() const { return cells + 1; }
    int point(std::array<int, 3> const& at) const
    {
        return (at[2] * pointsAlong() + at[1]) * pointsAlong() + at[0];
    }
    float coordinate(int at) const { return static_cast<float>(2 * at - cells) / static_cast<float>(cells); }
};

void addCell(QList<int>& tetrahedra, Grid const& grid, std::array<int, 3> const& cell)
{
    for (std::size_t way = 0; way < ways.size(); ++way) {
        std::array<int, 3> at = cell;
        std::array<int, 4> corners = {grid.point(at)};
        for (std::size_t step = 0; step < 3; ++step) {
            ++at[static_cast<std::size_t>(ways[way][step])];
            corners[step + 1] = grid.point(at);
        }
        if (way >= evenWays)
            std::swap(corners[1], corners[2]);
        for (int const corner : corners)
            tetrahedra << corner;
    }
}

template <typename Place>
MTModelVMesh gridMesh(Grid const& grid, Place place)
{
    QList<float> points;
    QList<int> tetrahedra;
    for (int z = 0; z < grid.pointsAlong(); ++z)
        for (int y = 0; y < grid.pointsAlong(); ++y)
            for (int x = 0; x < grid.pointsAlong(); ++x) {
                for (float const value : place({grid.coordinate(x), grid.coordinate(y), grid.coordinate(z)}))
                    points << value;
                if (std::max({x, y, z}) < grid.cells)
                    addCell(tetrahedra, grid, {x, y, z});
            }
    return volumeMesh(points, tetrahedra);
}

std::array<float, 3> ontoBall(std::array<float, 3> const& p)
{
    float const longest = std::max({std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
    float const length = std::sqrt(p[0] * p[0] + p[1] * p[1] + p[2] * p[2]);
    float const scale = length > 0 ? longest / length : 0;
    return {p[0] * scale, p[1] * scale, p[2] * scale};
}

void appendRows(QByteArray& text, QSharedPointer<int> const& rows, int count)
{
    for (int k = 0; k < count; ++k) {
        QByteArrayList values;
        for (int i = 0; i < 5; ++i)
            values << QByteArray::number(rows.data()[5 * k + i]);
        text += '\n' + values.join(' ');
    }
}

} // namespace

MTModelVMesh volumeMesh(QList<float> const& points, QList<int> const& tetrahedra)
{
    MTModelVMesh mesh;
    mesh.numPoints = static_cast<int>(points.size() / 3);
    mesh.points = sharedArray(points);
    mesh.numTetrahedra = static_cast<int>(tetrahedra.size() / 4);
    mesh.tetrahedra = sharedArray(tetrahedra);
    return mesh;
}

bool sameBits(MTModelVMesh const& a, MTModelVMesh const& b)
{
    return a.numTetrahedra == b.numTetrahedra && a.numFaces == b.numFaces &&
           a.numBoundFaces == b.numBoundFaces && a.numPoints == b.numPoints &&
           sameBits(a.points, b.points, qint64(3) * a.numPoints) &&
           sameBits(a.faces, b.faces, qint64(5) * a.numFaces) &&
           sameBits(a.tetrahedra, b.tetrahedra, qint64(4) * a.numTetrahedra) &&
           sameBits(a.triangles, b.triangles, qint64(4) * a.numFaces) &&
           sameBits(a.boundFaces, b.boundFaces, qint64(5) * a.numBoundFaces);
}

MTModelVMesh tetrahedralBox(int cells)
{
    return gridMesh({cells}, [](std::array<float, 3> const& p) { return p; });
}

MTModelVMesh tetrahedralBall(int cells)
{
    return gridMesh({cells}, ontoBall);
}

MTModelVMesh randomComplex(std::mt19937& random, bool isBroken)
{
    auto const below = [&](unsigned count) { return static_cast<int>(random() % count); };
    int const pointCount = 4 + below(12);
    QList<float> points;
    for (int i = 0; i < 3 * pointCount; ++i)
        points << randomFloat(random, 100.0f);
    QList<int> tetrahedra;
    for (int i = below(40); i > 0; --i) {
        std::array<int, 4> corners = {};
        for (std::size_t corner = 0; corner < 4; ++corner) {
            auto const used = corners.begin() + static_cast<std::ptrdiff_t>(corner);
            do
                corners[corner] = isBroken && below(10) == 0 ? -1 : below(static_cast<unsigned>(pointCount));
            while (!isBroken && std::find(corners.begin(), used, corners[corner]) != used);
        }
        tetrahedra << QList<int>(corners.begin(), corners.end());
    }
    return volumeMesh(points, tetrahedra);
}

QByteArray vmeshText(MTModelVMesh const& mesh)
{
    QByteArrayList sizes;
    for (int const count : {mesh.numTetrahedra, mesh.numFaces, mesh.numBoundFaces, mesh.numPoints})
        sizes << QByteArray::number(count);
    QByteArray text = "# Labeled\n" + sizes.join(' ');
    for (int k = 0; k < mesh.numPoints; ++k) {
        QByteArrayList values;
        for (int i = 0; i < 3; ++i)
            values << QByteArray::number(static_cast<double>(mesh.points.data()[3 * k + i]), 'g', 9);
        text += '\n' + values.join(' ');
    }
    appendRows(text, mesh.faces, mesh.numFaces);
    appendRows(text, mesh.boundFaces, mesh.numBoundFaces);
    return text;
}

} // namespace support
