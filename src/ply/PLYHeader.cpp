#include "ply/PLYHeader.h"

#include <QDebug>

namespace {

// Whether truncating `value` towards zero gives an index below `size`. False for NaN.
bool isIndex(float value, int size)
{
    return value > -1.0f && value < static_cast<float>(size);
}

} // namespace

QColor PLYHeader::getTextureColor(QVector2D uv) const
{
    float const column = static_cast<float>(texture.width()) * uv.x();
    float const row = static_cast<float>(texture.height()) * (1.0f - uv.y());
    // QImage::pixelColor gives an invalid colour outside too, but logs a line for each call.
    if (!isIndex(column, texture.width()) || !isIndex(row, texture.height()))
        return {};
    return texture.pixelColor(static_cast<int>(column), static_cast<int>(row));
}

void PLYHeader::setVerticesCount(int count)
{
    verticesCount = count;
    currentElement = ply::Vertex;
}

void PLYHeader::setFacesCount(int count)
{
    facesCount = count;
    currentElement = ply::Face;
}

void PLYHeader::setVertexIndicesTypes(ply::Type indicesType, ply::Type countType)
{
    vertexIndicesType = indicesType;
    vertexIndicesCountType = countType;
}

void PLYHeader::addProperty(ply::Property property, ply::Type type)
{
    switch (currentElement) {
    case ply::Vertex:
        vertexProperties.append({property, type});
        break;
    case ply::Face:
        faceProperties.append({property, type});
        break;
    case ply::Material:
        materialProperties.append({property, type});
        break;
    case ply::Other:
        break;
    default:
        qWarning() << "PLYReader: Invalid property";
    }
}
