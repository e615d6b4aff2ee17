#pragma once

#include "framework/Export.h"
#include "ply/PLYTypes.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QVector2D>

#include <utility>

/// What the header of a PLY file says: the encoding, the counts, and the properties of each element in the
/// order in which the body stores their values. A value type; one thread at a time.
class SURFACEIO_EXPORT PLYHeader
{
public:
    /// A property and the type of its values.
    using TypedProperty = std::pair<ply::Property, ply::Type>;

    /// No vertices, no faces, no properties; the enumerations "not set" (-1).
    PLYHeader() = default;
    PLYHeader(PLYHeader const&) = default;
    PLYHeader& operator=(PLYHeader const&) = default;
    PLYHeader(PLYHeader&&) = default;
    PLYHeader& operator=(PLYHeader&&) = default;

    /// Counts as the header claims them; nothing has checked them against the body.
    /// @{
    int getVerticesCount() const { return verticesCount; }
    int getFacesCount() const { return facesCount; }
    /// @}
    /// How the body is encoded.
    ply::Format getFormat() const { return format; }
    /// Type of the entries of a face's index list.
    ply::Type getVertexIndicesType() const { return vertexIndicesType; }
    /// Type of the count before the entries of a face's index list.
    ply::Type getVertexIndicesCountType() const { return vertexIndicesCountType; }
    /// The element that `addProperty` adds to.
    ply::Element getCurrentElement() const { return currentElement; }

    /// Number of properties of the vertex, the face and the material.
    /// @{
    int getVertexPropertiesCount() const { return static_cast<int>(vertexProperties.size()); }
    int getFacePropertiesCount() const { return static_cast<int>(faceProperties.size()); }
    int getMaterialPropertiesCount() const { return static_cast<int>(materialProperties.size()); }
    /// @}
    /// Property and type at a 0-based index in file order. The index is not checked.
    /// @{
    ply::Property getVertexProperty(int index) const { return vertexProperties[index].first; }
    ply::Property getFaceProperty(int index) const { return faceProperties[index].first; }
    ply::Property getMaterialProperty(int index) const { return materialProperties[index].first; }
    ply::Type getVertexPropertyType(int index) const { return vertexProperties[index].second; }
    ply::Type getFacePropertyType(int index) const { return faceProperties[index].second; }
    ply::Type getMaterialPropertyType(int index) const { return materialProperties[index].second; }
    /// @}

    /// The texture that the header names, or a null image.
    QImage getTexture() const { return texture; }
    /// Whether there is such an image.
    bool hasTexture() const { return !texture.isNull(); }
    /// The texture's colour at `uv`: column width * u, row height * (1 - v), both cut towards zero, nothing
    /// clamped. u = 1 and v = 0 lie just outside; outside, and for NaN, the colour is invalid.
    QColor getTextureColor(QVector2D uv) const;

    /// Stores the count and makes the vertex the current element.
    void setVerticesCount(int count);
    /// Stores the count and makes the face the current element.
    void setFacesCount(int count);
    /// Stores the encoding.
    void setFormat(ply::Format value) { format = value; }
    /// Chooses the element that `addProperty` adds to.
    void setCurrentElement(ply::Element element) { currentElement = element; }
    /// Stores the types of a face's index list: of its entries, and of the count before them.
    void setVertexIndicesTypes(ply::Type indicesType, ply::Type countType);
    /// Replaces the texture; a null image for none.
    void setTexture(QImage const& image) { texture = image; }
    /// Replaces the vertex properties.
    void setProperties(QList<TypedProperty> const& properties) { vertexProperties = properties; }
    /// Appends to the properties of the current element. Properties of `ply::Other` are dropped; before any
    /// element they are dropped with the warning "PLYReader: Invalid property".
    void addProperty(ply::Property property, ply::Type type);

private:
    int verticesCount = 0;
    int facesCount = 0;
    ply::Format format = ply::Format(-1);
    ply::Type vertexIndicesType = ply::Type(-1);
    ply::Type vertexIndicesCountType = ply::Type(-1);
    ply::Element currentElement = ply::Element(-1);
    QList<TypedProperty> vertexProperties;
    QList<TypedProperty> faceProperties;
    QList<TypedProperty> materialProperties;
    QImage texture;
};
