#pragma once

#include "inhouse/data/PointSet.h"

#include <QList>
#include <QVector2D>
#include <QVector3D>

namespace geometry {

/// An indexed triangle surface, in millimetres.
///
/// `indices` is a sequence of triangle strips, each ended by the restart marker -1; indices are
/// 0-based. Every reader of SurfaceIO emits each triangle as a strip of its own, so that a mesh that
/// comes from a file has the four entries a, b, c, -1 for each triangle.
///
/// A value type with implicitly shared lists: copying is cheap, and a copy may be used on another
/// thread. Nothing here checks that the lists agree with each other; whoever fills them sees to it.
class SURFACEIO_INHOUSE_EXPORT Mesh : public PointSet
{
public:
    /// An empty mesh; `isNull()` is true.
    Mesh() = default;
    /// A mesh of the lists given; the others are empty.
    /// @{
    Mesh(QList<QVector3D> vertices, QList<int> indices);
    Mesh(QList<QVector3D> vertices, QList<int> indices, QList<QVector3D> normals);
    Mesh(QList<QVector3D> vertices, QList<int> indices, QList<QVector3D> normals, QList<unsigned int> colors);
    Mesh(QList<QVector3D> vertices, QList<int> indices, QList<QVector3D> normals,
         QList<QVector2D> textureCoordinates);
    /// @}
    Mesh(Mesh const&) = default;
    Mesh& operator=(Mesh const&) = default;
    Mesh(Mesh&&) = default;
    Mesh& operator=(Mesh&&) = default;
    ~Mesh() override;

    /// x, y, z interleaved, three floats for each vertex. Valid until `vertices` changes.
    float const* getVertices() const;
    /// Number of vertices (not of floats).
    int getNumVertices() const { return static_cast<int>(vertices.size()); }
    /// The strips. Valid until `indices` changes.
    int const* getIndices() const { return indices.constData(); }
    /// Entries of the index list, the -1 markers counted.
    int getNumIndices() const { return static_cast<int>(indices.size()); }

    /// Vertex positions in millimetres.
    QList<QVector3D> vertices;
    /// One normal for each vertex, or empty.
    QList<QVector3D> normals;
    /// Triangle strips, each ended by -1.
    QList<int> indices;
    /// One colour for each vertex, packed 0xAABBGGRR (red in the lowest byte), or empty.
    QList<unsigned int> colors;
    /// One (u, v) for each vertex, or empty. v = 0 is the bottom row of the texture.
    QList<QVector2D> textureCoordinates;

protected:
    void print(QDebug debug) const override;
    bool empty() const override;
};

} // namespace geometry
