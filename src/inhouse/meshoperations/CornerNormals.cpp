#include "inhouse/meshoperations/CornerNormals_p.h"

#include <cmath>
#include <limits>

namespace meshoperations {

namespace {

constexpr double pi = 3.14159265358979323846;

/// atan(t) / t for t² from 0 to 1: the minimax polynomial in t², relative error below 1e-7. The C library's
/// atan2 takes longer for the three corners of a facet than all the rest of its normal.
double arctangentRatio(double t2)
{
    double sum = -0.0046932759663351154;
    sum = sum * t2 + 0.02425240301770511;
    sum = sum * t2 - 0.05948639320709638;
    sum = sum * t2 + 0.09914292850748813;
    sum = sum * t2 - 0.1401948092656089;
    sum = sum * t2 + 0.19969723902822653;
    sum = sum * t2 - 0.3333199074692918;
    return sum * t2 + 0.9999999009904124;
}

/// The angle from 0 to pi of the direction (`x`, `y`); `y` is positive. Free of branches, so that the
/// compiler can work on several at once.
double angleOf(double x, double y)
{
    double const width = std::fabs(x);
    double const high = width > y ? width : y;
    double const low = width > y ? y : width;
    double const t = low / high;
    double const slope = t * arctangentRatio(t * t);
    double const quarter = width > y ? slope : pi / 2 - slope;
    return x < 0.0 ? pi - quarter : quarter;
}

using Vector = std::array<double, 3>;

Vector difference(FacetGeometry const& geometry, std::size_t from, std::size_t to, std::size_t facet)
{
    return {geometry.points[to][0][facet] - geometry.points[from][0][facet],
            geometry.points[to][1][facet] - geometry.points[from][1][facet],
            geometry.points[to][2][facet] - geometry.points[from][2][facet]};
}

double dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

} // namespace

void gatherPoints(QVector3D const* vertices, FacetBlock const& block, FacetGeometry& geometry)
{
    for (std::size_t facet = 0; facet < block.size; ++facet)
        for (std::size_t corner = 0; corner < 3; ++corner) {
            QVector3D const& point = vertices[block.corners[facet][corner]];
            geometry.points[corner][0][facet] = point.x();
            geometry.points[corner][1][facet] = point.y();
            geometry.points[corner][2][facet] = point.z();
        }
}

void computeCornerAngles(FacetGeometry& geometry)
{
    for (std::size_t facet = 0; facet < FacetBlock::capacity; ++facet) {
        Vector const ab = difference(geometry, 0, 1, facet);
        Vector const ac = difference(geometry, 0, 2, facet);
        Vector const bc = difference(geometry, 1, 2, facet);
        Vector const normal = cross(ab, ac);
        double const square = dot(normal, normal);
        bool const usable = square > 0.0 && square <= std::numeric_limits<double>::max();
        double const length = std::sqrt(usable ? square : 1.0);
        double const scale = 1.0 / length;
        for (std::size_t axis = 0; axis < 3; ++axis)
            geometry.normal[axis][facet] = usable ? normal[axis] * scale : 0.0;
        geometry.angle[0][facet] = usable ? angleOf(dot(ab, ac), length) : 0.0;
        geometry.angle[1][facet] = usable ? angleOf(-dot(ab, bc), length) : 0.0;
        geometry.angle[2][facet] = usable ? angleOf(dot(ac, bc), length) : 0.0;
    }
}

} // namespace meshoperations
