#pragma once

#include "vmesh/MTModelVMesh.h"

#include <QByteArray>
#include <QList>
#include <QSharedPointer>

#include <algorithm>
#include <memory>
#include <random>

namespace support {

/// An array as the records of volume meshes hold them.
template <typename Value>
QSharedPointer<Value> sharedArray(QList<Value> const& values)
{
    QSharedPointer<Value> array(new Value[static_cast<std::size_t>(values.size())],
                                std::default_delete<Value[]>());
    std::copy(values.begin(), values.end(), array.data());
    return array;
}

/// `count` values of such an array; one value of -77 when there is no array.
template <typename Value>
QList<Value> valuesOf(QSharedPointer<Value> const& array, qint64 count)
{
    if (array.isNull())
        return {Value(-77)};
    return QList<Value>(array.data(), array.data() + count);
}

/// A mesh of points (3 values each) and tetrahedra (4 each), without rows.
MTModelVMesh volumeMesh(QList<float> const& points, QList<int> const& tetrahedra);

/// Whether counts and arrays agree bit for bit, null arrays with null arrays only.
bool sameBits(MTModelVMesh const& a, MTModelVMesh const& b);

/// `cells` cells along each edge of a cube from -1 to 1 mm, six tetrahedra in each, conforming, all of
/// positive volume: (b - a) x (c - a) points to d. No rows.
MTModelVMesh tetrahedralBox(int cells);
/// The same, drawn onto the unit ball.
MTModelVMesh tetrahedralBall(int cells);

/// Random tetrahedra over few points, so that they share faces. With `isBroken` some have unknown points
/// (-1), repeated points or a face that several share.
MTModelVMesh randomComplex(std::mt19937& random, bool isBroken);

/// The ".vmesh" text of what a mesh has, byte by byte (not by the writer under test), coordinates with
/// nine significant digits, which read back as the same.
QByteArray vmeshText(MTModelVMesh const& mesh);

} // namespace support
