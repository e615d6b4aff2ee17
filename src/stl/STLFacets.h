#pragma once

#include "stl/STLDataFormat.h"
#include "stl/STLLayout.h"

#include <QByteArray>
#include <QtGlobal>

#include <array>

QT_FORWARD_DECLARE_CLASS(QDataStream)
QT_FORWARD_DECLARE_CLASS(QIODevice)

namespace stl {

/// Moves to `position`. False, without asking the device, where it is sequential or ends before: Qt logs
/// such a request.
bool seekTo(QIODevice* device, qint64 position);

/// Whether there is a byte at `position`. Asks the device for it, as its size may be a claim.
bool hasByteAt(QIODevice* device, qint64 position);

/// Whether the records of `format` follow one another, each at least as long as its vertices: else no facet
/// can be told from the next.
bool isWalkable(STLDataFormat const& format);

/// How many of `claimed` facet records from byte `offset` on (of a facet's first vertex) have vertex bytes on
/// the device; a record cut short counts. Asks the device for bytes, as its size may be a claim as well, in
/// as many steps as the claim has bits. 0 for a format that is not walkable, a claim that is
/// negative, and one that has bytes for more facets than an index list of ints can hold.
int facetsPresent(QDataStream& stream, STLDataFormat const& format, int claimed, qint64 offset);

/// Reads the vertices of `facets` records from byte `offset` on, 9 floats for each; what the device lacks is
/// zero. Byte order and precision are those of the stream.
void readVertices(QDataStream& stream, STLDataFormat const& format, qint64 offset, int facets,
                  float* vertices);
/// The same with one extraction for each float, as `readVertices` does it for a layout other than that of
/// STL.
void readVerticesOneByOne(QDataStream& stream, STLDataFormat const& format, qint64 offset, int facets,
                          float* vertices);

/// The attribute word of a facet. Bytes that the device lacks stay 0, as those of a coordinate do.
struct AttributeWord
{
    std::array<char, attributeBytes> bytes = {};
    bool isComplete = false;
};

/// Hands out attribute words, of many records with one read where the device has them in full.
class AttributeReader
{
public:
    AttributeReader(QIODevice* device, STLDataFormat const& format);

    /// Of the record whose first vertex is at `position`.
    AttributeWord read(qint64 position);
    /// The same with a seek and a read of its own.
    AttributeWord readAlone(qint64 position);

private:
    bool hasRecord(qint64 position) const;
    void readBlock(qint64 position);

    QIODevice* device;
    STLDataFormat format;
    QByteArray block;
    qint64 blockStart = 0;
};

} // namespace stl
