#include "stl/STLFacets.h"

#include "framework/FileAccess.h"
#include "stl/STLLayout.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <limits>

namespace stl {

namespace {

constexpr int coordinatesPerFacet = vertexBlockBytes / floatBytes;

bool isBinaryStl(QDataStream const& stream, STLDataFormat const& format)
{
    return stream.byteOrder() == QDataStream::LittleEndian &&
           stream.floatingPointPrecision() == QDataStream::SinglePrecision &&
           format.vertexBlockSize == vertexBlockBytes && format.recordSize == facetBytes;
}

// `bytes` of the `size` asked for are there; the float that they end in is missing as a whole.
void clearMissing(QByteArray& block, qint64 bytes, qint64 size)
{
    qint64 const inRecord = bytes % facetBytes;
    qint64 const whole = inRecord < vertexBlockBytes ? bytes - inRecord % floatBytes : bytes;
    std::fill(block.begin() + whole, block.begin() + size, '\0');
}

// The stream stands at the first vertex of the first facet.
void readBlocks(QIODevice* device, int facets, float* vertices)
{
    constexpr int facetsAtOnce = 1000;
    float* const end = vertices + qsizetype(facets) * coordinatesPerFacet;
    QByteArray block(qsizetype(std::min(facets, facetsAtOnce)) * facetBytes, Qt::Uninitialized);
    for (int done = 0; done < facets; done += facetsAtOnce) {
        qsizetype const size = qsizetype(std::min(facets - done, facetsAtOnce)) * facetBytes;
        qint64 const bytes = files::readFully(device, block.data(), size);
        if (bytes <= 0)
            break;
        clearMissing(block, bytes, size);
        for (qsizetype facet = 0; facet < size; facet += facetBytes, vertices += coordinatesPerFacet)
            qFromLittleEndian<float>(block.constData() + facet, coordinatesPerFacet, vertices);
    }
    std::fill(vertices, end, 0.0f);
}

} // namespace

bool seekTo(QIODevice* device, qint64 position)
{
    return device && !device->isSequential() && position >= 0 && position <= device->size() &&
           device->seek(position);
}

bool hasByteAt(QIODevice* device, qint64 position)
{
    char byte = 0;
    return seekTo(device, position) && device->read(&byte, 1) == 1;
}

bool isWalkable(STLDataFormat const& format)
{
    return format.recordSize > 0 && format.vertexBlockSize >= 0 &&
           format.vertexBlockSize <= format.recordSize;
}

int facetsPresent(QDataStream& stream, STLDataFormat const& format, int claimed, qint64 offset)
{
    auto const isPresent = [&](qint64 facet) {
        return hasByteAt(stream.device(), offset + facet * format.recordSize);
    };
    if (!isWalkable(format) || claimed < 1 || !isPresent(0))
        return 0;
    qint64 present = 1;
    qint64 absent = qint64(claimed) + 1;
    for (qint64 next = claimed; present + 1 < absent; next = present + (absent - present) / 2)
        (isPresent(next - 1) ? present : absent) = next;
    constexpr int limit = std::numeric_limits<int>::max() / indicesPerTriangle;
    return present <= limit ? static_cast<int>(present) : 0;
}

void readVertices(QDataStream& stream, STLDataFormat const& format, qint64 offset, int facets,
                  float* vertices)
{
    if (!isBinaryStl(stream, format))
        readVerticesOneByOne(stream, format, offset, facets, vertices);
    else if (seekTo(stream.device(), offset))
        readBlocks(stream.device(), facets, vertices);
    else
        std::fill_n(vertices, qsizetype(std::max(0, facets)) * coordinatesPerFacet, 0.0f);
}

void readVerticesOneByOne(QDataStream& stream, STLDataFormat const& format, qint64 offset, int facets,
                          float* vertices)
{
    std::fill_n(vertices, qsizetype(std::max(0, facets)) * coordinatesPerFacet, 0.0f);
    if (!seekTo(stream.device(), offset))
        return;
    int const floats = std::clamp(format.vertexBlockSize / floatBytes, 0, coordinatesPerFacet);
    qint64 const gap = std::max<qint64>(0, qint64(format.recordSize) - format.vertexBlockSize);
    for (int facet = 0; facet < facets; ++facet) {
        if (facet > 0)
            stream.device()->skip(gap);
        for (float* const end = vertices + floats; vertices != end; ++vertices)
            stream >> *vertices;
    }
}

AttributeReader::AttributeReader(QIODevice* device_, STLDataFormat const& format_)
    : device(device_)
    , format(format_)
{}

AttributeWord AttributeReader::read(qint64 position)
{
    if (!hasRecord(position))
        readBlock(position);
    if (!hasRecord(position))
        return readAlone(position);
    char const* const word = block.constData() + (position - blockStart) + format.vertexBlockSize;
    return {{word[0], word[1]}, true};
}

AttributeWord AttributeReader::readAlone(qint64 position)
{
    AttributeWord word;
    if (seekTo(device, position + format.vertexBlockSize))
        word.isComplete = files::readFully(device, word.bytes.data(), attributeBytes) == attributeBytes;
    return word;
}

bool AttributeReader::hasRecord(qint64 position) const
{
    qint64 const recordEnd = position + format.vertexBlockSize + attributeBytes;
    return position >= blockStart && recordEnd <= blockStart + block.size();
}

void AttributeReader::readBlock(qint64 position)
{
    constexpr qint64 recordsAtOnce = 1000;
    constexpr qint64 mostBytes = recordsAtOnce * facetBytes;
    qint64 const wanted = std::min<qint64>(mostBytes, format.dataSize - position);
    block.resize(std::max<qint64>(0, wanted));
    blockStart = position;
    block.resize(seekTo(device, position) ? files::readFully(device, block.data(), block.size()) : 0);
}

} // namespace stl
