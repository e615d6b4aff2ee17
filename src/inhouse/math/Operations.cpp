#include "inhouse/math/Operations.h"

#include <array>
#include <cmath>

namespace math {

namespace {

// In double: close to opposite directions, 1 + cos loses half of the digits.
using Vector = std::array<double, 3>;

double dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vector scaled(Vector const& v, double factor)
{
    return {v[0] * factor, v[1] * factor, v[2] * factor};
}

// Zero when there is no direction. Squares of floats neither overflow nor vanish in double.
Vector direction(Vector const& v)
{
    double const length = std::sqrt(dot(v, v));
    return length > 0.0 && std::isfinite(length) ? scaled(v, 1.0 / length) : Vector{};
}

Vector direction(QVector3D const& v)
{
    return direction(Vector{v.x(), v.y(), v.z()});
}

Vector perpendicularPart(Vector const& v, Vector const& unit)
{
    Vector const along = scaled(unit, dot(v, unit));
    Vector const rest = {v[0] - along[0], v[1] - along[1], v[2] - along[2]};
    constexpr double negligible = 1e-6;
    return std::sqrt(dot(rest, rest)) > negligible ? direction(rest) : Vector{};
}

// Half a turn about `axis`; about any perpendicular axis where `axis` points along `unit` itself.
QQuaternion halfTurn(Vector const& unit, Vector const& axis)
{
    for (Vector const& candidate : {axis, Vector{1, 0, 0}, Vector{0, 1, 0}}) {
        Vector const a = perpendicularPart(candidate, unit);
        if (dot(a, a) > 0.0)
            return QQuaternion(0.0f, static_cast<float>(a[0]), static_cast<float>(a[1]),
                               static_cast<float>(a[2]));
    }
    return {};
}

} // namespace

QQuaternion Operations::getRotationTo(QVector3D const& from, QVector3D const& to,
                                      QVector3D const& axisIfOpposite)
{
    Vector const a = direction(from);
    Vector const b = direction(to);
    if (dot(a, a) == 0.0 || dot(b, b) == 0.0)
        return {};
    double const w = 1.0 + dot(a, b);
    constexpr double opposite = 1e-12;
    if (w < opposite)
        return halfTurn(a, direction(axisIfOpposite));
    Vector const v = cross(a, b);
    double const length = std::sqrt(w * w + dot(v, v));
    return QQuaternion(static_cast<float>(w / length), static_cast<float>(v[0] / length),
                       static_cast<float>(v[1] / length), static_cast<float>(v[2] / length));
}

} // namespace math
