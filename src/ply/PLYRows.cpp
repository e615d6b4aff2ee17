#include "ply/PLYRows.h"

#include "ply/PLYTokens.h"

namespace ply {

namespace {

constexpr int corners = 3;

bool isInteger(Type type)
{
    return type == UInt8 || type == Int16 || type == Int32 || type == UInt32;
}

// The column of a vertex that the property's value belongs in, or null for one that is dropped.
Column* columnOf(VertexRow& row, Property property)
{
    if (property >= X && property <= Z)
        return &row.position[static_cast<std::size_t>(property - X)];
    if (property >= Nx && property <= Nz)
        return &row.normal[static_cast<std::size_t>(property - Nx)];
    if (isColor(property))
        return &row.color[static_cast<std::size_t>(property - Red)];
    if (property == TextureU || property == TextureV)
        return &row.uv[static_cast<std::size_t>(property - TextureU)];
    return nullptr;
}

template <std::size_t size>
bool hasAny(std::array<Column, size> const& columns)
{
    for (Column const& column : columns)
        if (column.isSet())
            return true;
    return false;
}

bool appendList(FaceRow& row, PLYHeader const& header)
{
    Type const countType = header.getVertexIndicesCountType();
    Type const indexType = header.getVertexIndicesType();
    if (row.count.isSet() || !isInteger(countType) || !isInteger(indexType))
        return false;
    row.count = {row.bytes, countType};
    row.indices = {row.bytes + bytesInBody(countType), indexType};
    row.indexBytes = bytesInBody(indexType);
    row.bytes = row.indices.offset + corners * row.indexBytes;
    return true;
}

} // namespace

std::optional<VertexRow> vertexRowOf(QList<PLYHeader::TypedProperty> const& properties)
{
    VertexRow row;
    for (auto const& [property, type] : properties) {
        Column* const column = columnOf(row, property);
        if (column && (bytesInBody(type) == 0 || (isColor(property) && type != UInt8)))
            return {};
        if (column)
            *column = {row.bytes, type};
        row.bytes += bytesInBody(type);
        if (row.bytes > longestRow)
            return {};
    }
    row.hasNormal = hasAny(row.normal);
    row.hasColor = hasAny(row.color);
    row.hasTextureCoordinate = hasAny(row.uv);
    return row.bytes > 0 ? std::optional(row) : std::nullopt;
}

std::optional<FaceRow> faceRowOf(QList<PLYHeader::TypedProperty> const& properties, PLYHeader const& header)
{
    FaceRow row;
    for (auto const& [property, type] : properties) {
        if (isColor(property)) {
            if (type != UInt8)
                return {};
            row.color[static_cast<std::size_t>(property - Red)] = {row.bytes, type};
            ++row.bytes;
        } else if (type == List) {
            if (!appendList(row, header))
                return {};
        } else {
            row.bytes += bytesInBody(type);
        }
        if (row.bytes > longestRow)
            return {};
    }
    row.hasColor = hasAny(row.color);
    return row.count.isSet() ? std::optional(row) : std::nullopt;
}

} // namespace ply
