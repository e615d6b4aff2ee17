#include "inhouse/data/Mesh.h"

#include <QDebugStateSaver>

#include <utility>

namespace geometry {

static_assert(sizeof(QVector3D) == 3 * sizeof(float), "getVertices() hands out the list as bare floats");

Mesh::Mesh(QList<QVector3D> vertices_, QList<int> indices_)
    : vertices(std::move(vertices_))
    , indices(std::move(indices_))
{}

Mesh::Mesh(QList<QVector3D> vertices_, QList<int> indices_, QList<QVector3D> normals_)
    : vertices(std::move(vertices_))
    , normals(std::move(normals_))
    , indices(std::move(indices_))
{}

Mesh::Mesh(QList<QVector3D> vertices_, QList<int> indices_, QList<QVector3D> normals_,
           QList<unsigned int> colors_)
    : vertices(std::move(vertices_))
    , normals(std::move(normals_))
    , indices(std::move(indices_))
    , colors(std::move(colors_))
{}

Mesh::Mesh(QList<QVector3D> vertices_, QList<int> indices_, QList<QVector3D> normals_,
           QList<QVector2D> textureCoordinates_)
    : vertices(std::move(vertices_))
    , normals(std::move(normals_))
    , indices(std::move(indices_))
    , textureCoordinates(std::move(textureCoordinates_))
{}

Mesh::~Mesh() = default;

float const* Mesh::getVertices() const
{
    return reinterpret_cast<float const*>(vertices.constData());
}

void Mesh::print(QDebug debug) const
{
    QDebugStateSaver const saver(debug);
    debug.nospace() << "Mesh(vertices " << vertices.size() << ", normals " << normals.size() << ", indices "
                    << indices.size() << ", colors " << colors.size() << ", textureCoordinates "
                    << textureCoordinates.size() << ')';
}

bool Mesh::empty() const
{
    return vertices.isEmpty();
}

} // namespace geometry
