#include "volume/VolumeGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tool {

namespace {

using Vector = std::array<double, 3>;

Vector between(MTModelVMesh const& mesh, qint32 from, qint32 to)
{
    float const* const a = mesh.points.data() + 3 * qint64(from);
    float const* const b = mesh.points.data() + 3 * qint64(to);
    return {double(b[0]) - double(a[0]), double(b[1]) - double(a[1]), double(b[2]) - double(a[2])};
}

double dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double sixfoldVolume(MTModelVMesh const& mesh, qint32 const* abc, qint32 d)
{
    return dot(cross(between(mesh, abc[0], abc[1]), between(mesh, abc[0], abc[2])), between(mesh, abc[0], d));
}

qint32 const* pointsOf(MTModelVMesh const& mesh, qint64 number)
{
    return mesh.tetrahedra.data() + 4 * number;
}

} // namespace

bool isComplete(MTModelVMesh const& mesh, qint64 number)
{
    qint32 const* const points = pointsOf(mesh, number);
    return std::all_of(points, points + 4,
                       [&mesh](qint32 point) { return point >= 0 && point < mesh.numPoints; });
}

double sixfoldVolume(MTModelVMesh const& mesh, qint64 number)
{
    qint32 const* const points = pointsOf(mesh, number);
    return sixfoldVolume(mesh, points, points[3]);
}

double longestEdge(MTModelVMesh const& mesh, qint64 number)
{
    qint32 const* const points = pointsOf(mesh, number);
    double square = 0;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < i; ++j) {
            Vector const edge = between(mesh, points[i], points[j]);
            square = std::max(square, dot(edge, edge));
        }
    }
    return std::sqrt(square);
}

bool isBehind(MTModelVMesh const& mesh, qint32 d, qint32 const* triangle)
{
    return sixfoldVolume(mesh, triangle, d) < 0;
}

} // namespace tool
