#include "PartMeshes.h"

#include <cmath>

namespace {

using geometry::Mesh;

struct Cylinder
{
    QVector3D foot;
    float radius;
    float height;
};

// A closed prism around the z axis with outward triangles.
Mesh meshOf(Cylinder const& cylinder)
{
    constexpr int sides = 24;
    constexpr float turn = 6.2831853f;
    Mesh mesh;
    for (int i = 0; i < sides; ++i) {
        float const angle = turn * float(i) / sides;
        QVector3D const rim(cylinder.radius * std::cos(angle), cylinder.radius * std::sin(angle), 0);
        mesh.vertices << cylinder.foot + rim << cylinder.foot + rim + QVector3D(0, 0, cylinder.height);
    }
    mesh.vertices << cylinder.foot << cylinder.foot + QVector3D(0, 0, cylinder.height);
    int const foot = 2 * sides;
    int const head = foot + 1;
    for (int i = 0; i < sides; ++i) {
        int const a = 2 * i;
        int const b = 2 * ((i + 1) % sides);
        mesh.indices << a << b << b + 1 << -1 << a << b + 1 << a + 1 << -1;
        mesh.indices << b << a << foot << -1 << a + 1 << b + 1 << head << -1;
    }
    return mesh;
}

} // namespace

QList<geometry::Mesh> makePartMeshes()
{
    constexpr float plate = 4.0f;
    constexpr float screw = 0.9f;
    QList<Cylinder> const parts = {
        {{0, 0, 0}, 1.5f, 12},    {{0, 0, 2}, 2.0f, 6},     {{0, 0, 12}, 1.2f, 3},   {{0, 0, -20}, 2.5f, 8},
        {{3, 0, 4}, plate, 1},    {{-4, 0, -18}, plate, 1}, {{4, 0, -18}, plate, 1}, {{-3, 0, 4}, plate, 1},
        {{2, 2, 12}, screw, 2},   {{-2, 2, 12}, screw, 2},  {{2, -2, 12}, screw, 2}, {{5, 0, 4}, screw, 2},
        {{-2, -2, 12}, screw, 2}, {{-5, 0, 4}, screw, 2},
    };
    QList<Mesh> meshes;
    for (Cylinder const& part : parts)
        meshes << meshOf(part);
    return meshes;
}
