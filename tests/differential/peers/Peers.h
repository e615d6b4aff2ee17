#pragma once

#include "inhouse/data/Mesh.h"

#include <QList>
#include <QString>

#include <array>
#include <optional>

/// Other programs' mesh readers and writers, as oracles. What was not found when this was built answers false
/// or nothing; ask `hasAssimp` and the like first and skip.
namespace peers {

/// What a peer made of a file. Positions and indices as the peer gives them, polygons split into triangles.
struct PeerMesh
{
    QList<QVector3D> vertices;
    /// One for each vertex, or empty.
    QList<QVector3D> normals;
    /// Packed 0xAABBGGRR, one for each vertex, or empty.
    QList<unsigned int> colors;
    /// One for each vertex, or empty.
    QList<QVector2D> textureCoordinates;
    QList<std::array<int, 3>> triangles;
};

bool hasAssimp();
bool hasTinyObj();
bool hasVtk();

/// Any format that Assimp recognises by suffix or content. All meshes of the scene in one, in its order.
std::optional<PeerMesh> loadWithAssimp(QString const& path);
/// OBJ: a vertex for each corner. Normals and texture coordinates are of use where all corners have them.
std::optional<PeerMesh> loadWithTinyObj(QString const& path);
/// "stl", "ply" or "obj" by suffix. Coincident points stay apart.
std::optional<PeerMesh> loadWithVtk(QString const& path);

/// The formats of Assimp's exporters: "stl" (ASCII), "stlb", "ply", "plyb", "obj", "objnomtl". Normals,
/// colours and texture coordinates are handed over too. An OBJ file gets the material "DefaultMaterial" with
/// the texture "texture.png".
bool saveWithAssimp(geometry::Mesh const& mesh, QString const& path, char const* format);
/// "stl", "ply" or "obj" (without colours) by suffix. Normals, colours and, to OBJ, texture coordinates are
/// handed over too.
bool saveWithVtk(geometry::Mesh const& mesh, QString const& path, bool isBinary);

} // namespace peers
