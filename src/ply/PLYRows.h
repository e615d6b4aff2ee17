#pragma once

#include "ply/PLYHeader.h"

#include <QColor>
#include <QList>
#include <QVector2D>
#include <QVector3D>
#include <QtEndian>

#include <array>
#include <optional>

/// Rows whose values always lie at the same offsets, decoded straight from memory. Only rows are taken here
/// that cannot fail for their layout; the values are those that `PLYReader::readBinaryData` gives.
namespace ply {

/// Where a row keeps a value. No value: the type is "not set".
struct Column
{
    qsizetype offset = 0;
    Type type = Type(-1);

    bool isSet() const { return type != Type(-1); }
};

/// Rows longer than this are not worth a block.
constexpr qsizetype longestRow = 4096;

struct VertexRow
{
    qsizetype bytes = 0;
    std::array<Column, 3> position;
    std::array<Column, 3> normal;
    std::array<Column, 4> color;
    std::array<Column, 2> uv;
    bool hasNormal = false;
    bool hasColor = false;
    bool hasTextureCoordinate = false;
};

/// A row with one list of three indices.
struct FaceRow
{
    qsizetype bytes = 0;
    Column count;
    /// The first of the three.
    Column indices;
    qsizetype indexBytes = 0;
    std::array<Column, 4> color;
    bool hasColor = false;
};

/// The layout of rows with these properties; empty where a value has to be looked at before the next can
/// be found, or may fail.
std::optional<VertexRow> vertexRowOf(QList<PLYHeader::TypedProperty> const& properties);
std::optional<FaceRow> faceRowOf(QList<PLYHeader::TypedProperty> const& properties, PLYHeader const& header);

/// Takes values out of a row.
class RowDecoder
{
public:
    explicit RowDecoder(bool bigEndian_)
        : bigEndian(bigEndian_)
    {}

    template <typename Word>
    Word word(char const* bytes) const
    {
        return bigEndian ? qFromBigEndian<Word>(bytes) : qFromLittleEndian<Word>(bytes);
    }

    /// A whole number of any type that takes bytes.
    qint64 integer(char const* bytes, Type type) const
    {
        switch (type) {
        case UInt8:
            return static_cast<unsigned char>(*bytes);
        case Int16:
            return word<qint16>(bytes);
        case Int32:
            return word<qint32>(bytes);
        default:
            return word<quint32>(bytes);
        }
    }

    float number(char const* row, Column const& column) const
    {
        char const* const bytes = row + column.offset;
        if (column.type == Float32)
            return word<float>(bytes);
        if (column.type == Float64)
            return static_cast<float>(word<double>(bytes));
        return column.isSet() ? static_cast<float>(integer(bytes, column.type)) : 0.0f;
    }

    QVector2D vector(char const* row, std::array<Column, 2> const& columns) const
    {
        return {number(row, columns[0]), number(row, columns[1])};
    }

    QVector3D vector(char const* row, std::array<Column, 3> const& columns) const
    {
        return {number(row, columns[0]), number(row, columns[1]), number(row, columns[2])};
    }

    /// A colour of bytes; channels without a column are those of an invalid colour.
    QColor color(char const* row, std::array<Column, 4> const& columns) const
    {
        std::array<int, 4> channels{0, 0, 0, 255};
        for (std::size_t i = 0; i < channels.size(); ++i)
            if (columns[i].isSet())
                channels[i] = static_cast<unsigned char>(row[columns[i].offset]);
        return {channels[0], channels[1], channels[2], channels[3]};
    }

    /// Whether the row holds a triangle of the first `vertexCount` vertices; `indices` gets its corners.
    bool triangle(char const* row, FaceRow const& layout, int vertexCount, int* indices) const
    {
        constexpr int corners = 3;
        if (integer(row + layout.count.offset, layout.count.type) != corners)
            return false;
        char const* next = row + layout.indices.offset;
        for (int corner = 0; corner < corners; ++corner, next += layout.indexBytes) {
            qint64 const index = integer(next, layout.indices.type);
            if (index < 0 || index >= vertexCount)
                return false;
            indices[corner] = static_cast<int>(index);
        }
        return true;
    }

private:
    bool bigEndian;
};

} // namespace ply
