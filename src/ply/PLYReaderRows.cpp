#include "inhouse/fundamentals/ColorUtil.h"
#include "ply/PLYReader.h"
#include "ply/PLYRows.h"
#include "ply/PLYSource.h"

#include <QDataStream>

#include <algorithm>

namespace {

constexpr qsizetype stripEntries = 4; // three corners and the restart
constexpr int restart = -1;

ply::RowDecoder decoderOf(QDataStream const& stream)
{
    return ply::RowDecoder(stream.byteOrder() == QDataStream::BigEndian);
}

// Whole rows in memory, `most` at most. Reads ahead when there is none; empty when none is left.
QByteArrayView rowsAhead(PLYSource const& source, qsizetype rowBytes, qsizetype most)
{
    QByteArrayView const ahead = source.lookAhead(rowBytes);
    return ahead.first(std::min(ahead.size() / rowBytes, most) * rowBytes);
}

// The list made longer by `count`; a pointer to what is new.
template <typename Value>
Value* extend(QList<Value>& list, qsizetype count)
{
    qsizetype const start = list.size();
    list.resize(start + count);
    return list.data() + start;
}

unsigned int packed(QColor const& color)
{
    return ColorUtil::toAABBGGRR(color, true);
}

} // namespace

// What a row of vertices becomes; null for what it has not, or what is not kept of it.
struct PLYReader::VertexTargets
{
    QVector3D* position = nullptr;
    QVector3D* normal = nullptr;
    unsigned int* color = nullptr;
    unsigned int* textureColor = nullptr;
    QVector2D* uv = nullptr;
};

// Decodes rows as long as they are whole. A row that is cut off, and any layout that is not fixed, is left
// to the plain path. False when cancelled.
bool PLYReader::readVertexRows(QDataStream& stream, PLYHeader const& header, PropertyList const& properties,
                               VertexData& vertices, std::atomic<bool> const& cancel) const
{
    auto* const source = dynamic_cast<PLYSource*>(stream.device());
    auto const row = ply::vertexRowOf(properties);
    if (!decodesRows || !source || !row)
        return true;
    ply::RowDecoder const decoder = decoderOf(stream);
    while (vertices.positions.size() < header.getVerticesCount()) {
        qsizetype const wanted = header.getVerticesCount() - vertices.positions.size();
        QByteArrayView const bytes = rowsAhead(*source, row->bytes, wanted);
        if (bytes.isEmpty())
            return true;
        VertexTargets targets = extended(vertices, header, *row, bytes.size() / row->bytes);
        for (char const* next = bytes.begin(); next != bytes.end(); next += row->bytes) {
            if (cancel)
                return false;
            decodeVertex(decoder, next, *row, header, targets);
        }
        source->drop(bytes.size());
    }
    return true;
}

PLYReader::VertexTargets PLYReader::extended(VertexData& vertices, PLYHeader const& header,
                                             ply::VertexRow const& row, qsizetype rows) const
{
    VertexTargets targets;
    targets.position = extend(vertices.positions, rows);
    if (row.hasNormal)
        targets.normal = extend(vertices.normals, rows);
    if (row.hasColor)
        targets.color = extend(vertices.colors, rows);
    else if (!row.hasTextureCoordinate || !header.hasTexture())
        return targets;
    else if (isTextureSupportRequested())
        targets.uv = extend(vertices.textureCoordinates, rows);
    else
        targets.textureColor = extend(vertices.colors, rows);
    return targets;
}

void PLYReader::decodeVertex(ply::RowDecoder const& decoder, char const* bytes, ply::VertexRow const& row,
                             PLYHeader const& header, VertexTargets& targets)
{
    *targets.position++ = decoder.vector(bytes, row.position);
    if (targets.normal)
        *targets.normal++ = decoder.vector(bytes, row.normal);
    if (targets.color)
        *targets.color++ = packed(decoder.color(bytes, row.color));
    else if (targets.uv)
        *targets.uv++ = decoder.vector(bytes, row.uv);
    else if (targets.textureColor)
        *targets.textureColor++ = packed(header.getTextureColor(decoder.vector(bytes, row.uv)));
}

// The same for faces. A row that the plain path refuses is left to it as well.
bool PLYReader::readFaceRows(QDataStream& stream, PLYHeader const& header, PropertyList const& properties,
                             FaceData& faces, std::atomic<bool> const& cancel)
{
    auto* const source = dynamic_cast<PLYSource*>(stream.device());
    auto const row = ply::faceRowOf(properties, header);
    if (!decodesRows || !source || !row)
        return true;
    ply::RowDecoder const decoder = decoderOf(stream);
    for (qsizetype rows = 1; rows > 0 && faces.count < header.getFacesCount(); faces.count += int(rows)) {
        QByteArrayView const bytes = rowsAhead(*source, row->bytes, header.getFacesCount() - faces.count);
        rows = decodeFaces(decoder, bytes, *row, faces, cancel);
        if (rows < 0)
            return false;
        if (faceColorMode)
            appendFaceColors(decoder, bytes.first(rows * row->bytes), *row);
        source->drop(rows * row->bytes);
    }
    return true;
}

// How many of the rows are triangles of known vertices, up to the first that is not; -1 when cancelled.
qsizetype PLYReader::decodeFaces(ply::RowDecoder const& decoder, QByteArrayView bytes,
                                 ply::FaceRow const& row, FaceData& faces, std::atomic<bool> const& cancel)
{
    qsizetype const start = faces.indices.size();
    int* next = extend(faces.indices, bytes.size() / row.bytes * stripEntries);
    qsizetype rows = 0;
    for (; rows * row.bytes < bytes.size(); ++rows, next += stripEntries) {
        if (cancel)
            return -1;
        if (!decoder.triangle(bytes.data() + rows * row.bytes, row, faces.vertexCount, next))
            break;
        next[stripEntries - 1] = restart;
    }
    faces.indices.resize(start + rows * stripEntries);
    return rows;
}

void PLYReader::appendFaceColors(ply::RowDecoder const& decoder, QByteArrayView bytes,
                                 ply::FaceRow const& row)
{
    QColor* const colors = extend(faceColors, bytes.size() / row.bytes);
    for (qsizetype i = 0; row.hasColor && i < bytes.size() / row.bytes; ++i)
        colors[i] = decoder.color(bytes.data() + i * row.bytes, row.color);
}
