#include "stl/STLFacets.h"

#include "stl/STLLayout.h"

#include <QDataStream>
#include <QIODevice>

#include <limits>

namespace stl {

namespace {

bool hasByteAt(QIODevice* device, qint64 position)
{
    char byte = 0;
    return seekTo(device, position) && device->read(&byte, 1) == 1;
}

} // namespace

bool seekTo(QIODevice* device, qint64 position)
{
    return device && !device->isSequential() && position >= 0 && position <= device->size() &&
           device->seek(position);
}

int facetsPresent(QDataStream& stream, STLDataFormat const& format, int claimed, qint64 offset)
{
    auto const isPresent = [&](qint64 facet) {
        return hasByteAt(stream.device(), offset + facet * format.recordSize);
    };
    if (claimed < 1 || !isPresent(0))
        return 0;
    qint64 present = 1;
    qint64 absent = qint64(claimed) + 1;
    for (qint64 next = claimed; present + 1 < absent; next = present + (absent - present) / 2)
        (isPresent(next - 1) ? present : absent) = next;
    constexpr int limit = std::numeric_limits<int>::max() / indicesPerTriangle;
    return present <= limit ? static_cast<int>(present) : 0;
}

} // namespace stl
