#include "inhouse/data/Conversions.h"

#include <algorithm>
#include <cstring>

namespace data {

QList<QVector3D> Conversions::toVector(float const* coordinates, int count)
{
    static_assert(sizeof(QVector3D) == 3 * sizeof(float));
    if (count < 1)
        return {};
    QList<QVector3D> points;
    points.resize(count);
    std::memcpy(static_cast<void*>(points.data()), coordinates,
                static_cast<std::size_t>(count) * sizeof(QVector3D));
    return points;
}

QList<int> Conversions::toVector(int const* values, int count)
{
    if (count < 1)
        return {};
    // Not the list's constructor from a range, which does not look whether it got its memory.
    QList<int> list;
    list.resize(count);
    std::copy_n(values, count, list.data());
    return list;
}

} // namespace data
