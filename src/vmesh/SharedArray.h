#pragma once

#include <QSharedPointer>

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

namespace vmesh {

/// An array of `count` values that are all `fill`, not null even for a count of 0. Null when there is no
/// memory for it.
template <typename Value>
QSharedPointer<Value> makeSharedArray(qint64 count, Value fill)
{
    constexpr qint64 mostValues = std::numeric_limits<qint64>::max() / qint64(sizeof(Value));
    if (count < 0 || count > mostValues)
        return {};
    auto* const values = new (std::nothrow) Value[static_cast<std::size_t>(count)];
    if (values == nullptr)
        return {};
    std::fill_n(values, count, fill);
    return QSharedPointer<Value>(values, std::default_delete<Value[]>());
}

/// Replaces `array`, rows of `width` values, by one of `rows` rows that begins with its `oldRows` rows and
/// goes on with `fill`. False, with the array as it was, when there is no memory for it.
template <typename Value>
bool growRows(QSharedPointer<Value>& array, int width, qint64 oldRows, qint64 rows, Value fill)
{
    QSharedPointer<Value> larger = makeSharedArray(width * rows, fill);
    if (larger.isNull())
        return false;
    std::copy_n(array.data(), width * oldRows, larger.data());
    array = std::move(larger);
    return true;
}

/// How many rows to make room for, of `claimedRows`, when the room for `rowsSoFar` is used up: as many as a
/// file of `fileBytes` can hold, or twice as many as have come. The size of a file may lie, and that of a
/// pipe is 0. The claimed number itself is reached exactly, so that the array has its length in the end.
inline qint64 nextRoom(qint64 rowsSoFar, qint64 claimedRows, qint64 fileBytes, qint64 leastRowBytes)
{
    constexpr qint64 fewRows = 4096;
    return std::min(claimedRows, std::max({fewRows, 2 * rowsSoFar, fileBytes / leastRowBytes + 1}));
}

} // namespace vmesh
