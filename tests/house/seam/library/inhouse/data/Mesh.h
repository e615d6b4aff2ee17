#pragma once

#include "inhouse/data/PointSet.h"

#include <QList>
#include <QVector2D>
#include <QVector3D>

#include <utility>

namespace geometry {

class OTHER_INHOUSE_EXPORT Mesh : public PointSet
{
public:
    static constexpr bool isReplacement = true;

    Mesh() = default;
    Mesh(QList<QVector3D> vertices_, QList<int> indices_, QList<QVector3D> normals_ = {})
        : vertices(std::move(vertices_))
        , normals(std::move(normals_))
        , indices(std::move(indices_))
    {}
    Mesh(QList<QVector3D> vertices_, QList<int> indices_, QList<QVector3D> normals_,
         QList<unsigned int> colors_)
        : Mesh(std::move(vertices_), std::move(indices_), std::move(normals_))
    {
        colors = std::move(colors_);
    }
    Mesh(QList<QVector3D> vertices_, QList<int> indices_, QList<QVector3D> normals_,
         QList<QVector2D> textureCoordinates_)
        : Mesh(std::move(vertices_), std::move(indices_), std::move(normals_))
    {
        textureCoordinates = std::move(textureCoordinates_);
    }

    float const* getVertices() const { return reinterpret_cast<float const*>(vertices.constData()); }
    int getNumVertices() const { return static_cast<int>(vertices.size()); }
    int const* getIndices() const { return indices.constData(); }
    int getNumIndices() const { return static_cast<int>(indices.size()); }

    /// Shifts all that follows: whoever was built with another header finds nothing in its place.
    double otherLayout[3] = {};
    QList<QVector3D> vertices;
    QList<QVector3D> normals;
    QList<int> indices;
    QList<unsigned int> colors;
    QList<QVector2D> textureCoordinates;

protected:
    void print(QDebug debug) const override;
    bool empty() const override;
};

} // namespace geometry
