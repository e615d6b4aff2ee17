#include "inhouse/fundamentals/ColorUtil.h"
#include "ply/PLYReader.h"
#include "ply/PLYSource.h"
#include "ply/PLYTokens.h"
#include "ply/PLYValues.h"

#include <QDataStream>
#include <QDebug>

#include <array>
#include <utility>

struct PLYReader::Vertex
{
    QVector3D position;
    QVector3D normal;
    QColor color;
    QVector2D uv;
    bool hasNormal = false;
    bool hasColor = false;
    bool hasTextureCoordinate = false;
};

struct PLYReader::Face
{
    QList<int>& indices;
    int vertexCount;
    QColor color;
};

namespace {

using PropertyList = QList<PLYHeader::TypedProperty>;

constexpr int corners = 3;
constexpr int restart = -1;
// Rows that take no bytes and still cost memory: this many without a look at the body.
constexpr int freeRows = 1024;

bool isPosition(ply::Property property)
{
    return property >= ply::X && property <= ply::Z;
}

bool isNormal(ply::Property property)
{
    return property >= ply::Nx && property <= ply::Nz;
}

bool isTextureCoordinate(ply::Property property)
{
    return property == ply::TextureU || property == ply::TextureV;
}

// The vertex properties whose values take bytes or are wanted. To read any other leaves no trace, and a
// header can hold more of them than a body has bytes.
PropertyList vertexPropertiesOf(PLYHeader const& header)
{
    PropertyList properties;
    for (int i = 0; i < header.getVertexPropertiesCount(); ++i) {
        ply::Property const property = header.getVertexProperty(i);
        ply::Type const type = header.getVertexPropertyType(i);
        if (ply::bytesInBody(type) > 0 || (property >= ply::X && property <= ply::TextureV))
            properties.append({property, type});
    }
    return properties;
}

PropertyList facePropertiesOf(PLYHeader const& header)
{
    PropertyList properties;
    for (int i = 0; i < header.getFacePropertiesCount(); ++i) {
        ply::Property const property = header.getFaceProperty(i);
        ply::Type const type = header.getFacePropertyType(i);
        if (ply::bytesInBody(type) > 0 || type == ply::List || ply::isColor(property))
            properties.append({property, type});
    }
    return properties;
}

// Rows of no bytes never bring the stream to its end, so that only the header's count would. A file whose
// rows were written with any bytes at all has one for each of them.
bool hasByteForEachRow(QDataStream const& stream, int rows)
{
    auto const* const source = dynamic_cast<PLYSource const*>(stream.device());
    return rows <= freeRows || (source && source->holds(rows));
}

} // namespace

bool PLYReader::readBinary(QIODevice* device, PLYHeader const& header, ply::Format format,
                           std::atomic<bool> const& cancel)
{
    QDataStream stream(device);
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(format == ply::BinaryLittleEndian ? QDataStream::LittleEndian
                                                          : QDataStream::BigEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);

    VertexData vertices;
    QList<int> indices;
    if (!readVerticesData(stream, header, vertices, cancel))
        return false;
    int const vertexCount = static_cast<int>(vertices.positions.size());
    if (readMode == MeshMode && !readFacesData(stream, header, indices, vertexCount, cancel))
        return false;
    if (!readMaterialData(stream, header, cancel))
        return false;
    if (readMode == MeshMode)
        return storeMesh(header, vertices, indices, cancel);
    storePointCloud(vertices);
    return true;
}

void PLYReader::storePointCloud(VertexData const& vertices)
{
    pointCloud.positions = vertices.positions;
    pointCloud.normals = vertices.normals;
    pointCloud.colors() = vertices.colors;
    if (material)
        pointCloud.setMaterial(*material);
}

bool PLYReader::storeMesh(PLYHeader const& header, VertexData const& vertices, QList<int> const& indices,
                          std::atomic<bool> const& cancel)
{
    bool const hasTexture = header.hasTexture() && !vertices.textureCoordinates.isEmpty();
    if (isTextureSupportRequested() && hasTexture) {
        mesh = geometry::Mesh(vertices.positions, indices, vertices.normals, vertices.textureCoordinates);
        texture = header.getTexture();
    } else if (textureSupport == TextureRequired) {
        return false;
    } else {
        mesh = geometry::Mesh(vertices.positions, indices, vertices.normals, vertices.colors);
    }
    if (vertices.normals.isEmpty())
        computeNormals(cancel);
    return true;
}

bool PLYReader::readVerticesData(QDataStream& stream, PLYHeader const& header, VertexData& vertices,
                                 std::atomic<bool> const& cancel)
{
    if (stream.atEnd())
        return true;
    PropertyList const properties = vertexPropertiesOf(header);
    if (properties.isEmpty() && !hasByteForEachRow(stream, header.getVerticesCount()))
        return false;
    if (!readVertexRows(stream, header, properties, vertices, cancel))
        return false;
    if (stream.atEnd())
        return true;
    for (auto i = vertices.positions.size(); i < header.getVerticesCount(); ++i) {
        Vertex vertex;
        if (cancel || !readVertex(stream, properties, vertex, cancel))
            return false;
        appendVertex(vertex, header, vertices);
        if (stream.atEnd())
            return true;
    }
    return true;
}

bool PLYReader::readVertex(QDataStream& stream, PropertyList const& properties, Vertex& vertex,
                           std::atomic<bool> const& cancel)
{
    bool isRead = true;
    for (auto const& [property, type] : properties) {
        if (isPosition(property)) {
            isRead = readVectorComponent(stream, vertex.position, property, type, cancel);
        } else if (isNormal(property)) {
            isRead = readVectorComponent(stream, vertex.normal, property, type, cancel);
            vertex.hasNormal = true;
        } else if (isColorProperty(property)) {
            isRead = readColor(stream, vertex.color, property, type, cancel);
            vertex.hasColor = true;
        } else if (isTextureCoordinate(property)) {
            isRead = readTextureCoord(stream, vertex.uv, property, type);
            vertex.hasTextureCoordinate = true;
        } else {
            readBinaryData(stream, type);
        }
        if (!isRead)
            return false;
    }
    return true;
}

void PLYReader::appendVertex(Vertex const& vertex, PLYHeader const& header, VertexData& vertices) const
{
    vertices.positions.append(vertex.position);
    if (vertex.hasNormal)
        vertices.normals.append(vertex.normal);
    if (vertex.hasColor)
        vertices.colors.append(ColorUtil::toAABBGGRR(vertex.color, true));
    else if (!vertex.hasTextureCoordinate || !header.hasTexture())
        return;
    else if (isTextureSupportRequested())
        vertices.textureCoordinates.append(vertex.uv);
    else
        vertices.colors.append(ColorUtil::toAABBGGRR(header.getTextureColor(vertex.uv), true));
}

bool PLYReader::readFacesData(QDataStream& stream, PLYHeader const& header, QList<int>& indices,
                              int vertexCount, std::atomic<bool> const& cancel)
{
    faceColors.clear();
    PropertyList const properties = facePropertiesOf(header);
    if (stream.atEnd())
        return true;
    if (properties.isEmpty() && !faceColorMode)
        return header.getFacesCount() <= 0 || !cancel;
    if (properties.isEmpty() && !hasByteForEachRow(stream, header.getFacesCount()))
        return false;
    FaceData faces{indices, vertexCount};
    if (!readFaceRows(stream, header, properties, faces, cancel))
        return false;
    for (int i = faces.count; i < header.getFacesCount(); ++i) {
        if (stream.atEnd())
            return true;
        Face face{indices, vertexCount, {}};
        if (cancel || !readFace(stream, header, properties, face, cancel))
            return false;
        if (faceColorMode)
            faceColors.append(face.color);
    }
    return true;
}

bool PLYReader::readFace(QDataStream& stream, PLYHeader const& header, PropertyList const& properties,
                         Face& face, std::atomic<bool> const& cancel)
{
    for (auto const& [property, type] : properties) {
        if (isColorProperty(property)) {
            if (!readColor(stream, face.color, property, type, cancel))
                return false;
        } else if (type != ply::List) {
            readBinaryData(stream, type);
        } else if (!readIndices(stream, header, face)) {
            return false;
        }
    }
    return true;
}

bool PLYReader::readIndices(QDataStream& stream, PLYHeader const& header, Face& face)
{
    bool isNumber = false;
    int const count = ply::toInt(readBinaryData(stream, header.getVertexIndicesCountType()), &isNumber);
    if (count != corners) {
        qWarning() << "Unsupported indices count (" << count << ") (only triangles supported)!";
        return false;
    }
    std::array<int, corners> triangle{};
    for (int& index : triangle) {
        if (stream.atEnd())
            return false;
        index = ply::toInt(readBinaryData(stream, header.getVertexIndicesType()), &isNumber);
        if (index < 0 || index >= face.vertexCount)
            return false;
    }
    for (int const index : triangle)
        face.indices.append(index);
    face.indices.append(restart);
    return true;
}
