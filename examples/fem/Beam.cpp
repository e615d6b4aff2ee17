#include "Beam.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr float side = 10.0f;
constexpr int pointsOfSection = 4;

// Corners of a cube: bit 2 is x, bit 1 is y, bit 0 is z. Neighbouring cubes are mirrored, so that their
// diagonals meet.
using Tetrahedron = std::array<int, 4>;
constexpr std::array<Tetrahedron, 5> evenCube = {
    {{0, 4, 6, 5}, {0, 6, 2, 3}, {0, 5, 3, 1}, {6, 5, 7, 3}, {0, 6, 3, 5}}};
constexpr std::array<Tetrahedron, 5> oddCube = {
    {{4, 0, 2, 1}, {4, 2, 6, 7}, {4, 1, 7, 5}, {2, 1, 3, 7}, {4, 2, 7, 1}}};

// Records share arrays that are made with new[].
template <typename Value>
QSharedPointer<Value> toArray(QList<Value> const& list)
{
    Value* const values = new Value[static_cast<std::size_t>(list.size())];
    std::copy(list.begin(), list.end(), values);
    return QSharedPointer<Value>(values, [](Value const* array) { delete[] array; });
}

} // namespace

MTModelVMesh makeBeam(int cells)
{
    QList<float> points;
    QList<qint32> tetrahedra;
    for (int section = 0; section <= cells; ++section) {
        for (int corner = 0; corner < pointsOfSection; ++corner)
            points << side * float(section) << side * float(corner >> 1) << side * float(corner & 1);
    }
    for (int cell = 0; cell < cells; ++cell) {
        for (Tetrahedron const& corners : cell % 2 == 0 ? evenCube : oddCube) {
            for (int const corner : corners)
                tetrahedra << pointsOfSection * cell + corner;
        }
    }
    MTModelVMesh beam;
    beam.numPoints = static_cast<qint32>(points.size() / 3);
    beam.numTetrahedra = static_cast<qint32>(tetrahedra.size() / 4);
    beam.points = toArray(points);
    beam.tetrahedra = toArray(tetrahedra);
    return beam;
}

MTModelBoundaryConditions pullBeam(MTModelVMesh const& beam, float pull)
{
    QList<qint32> indices;
    QList<float> values;
    for (int corner = 0; corner < pointsOfSection; ++corner) {
        indices << corner << beam.numPoints - pointsOfSection + corner;
        values << 0 << 0 << 0 << pull << 0 << 0;
    }
    MTModelBoundaryConditions conditions;
    conditions.numBoundaryConditions = static_cast<qint32>(indices.size());
    conditions.pointIndices = toArray(indices);
    conditions.values = toArray(values);
    return conditions;
}
