#include "differential/ObjFaces.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace objfaces {

namespace {

std::atomic<bool> const never = false;

// Of a peer's mesh or of ours, which have the same lists.
template <typename Mesh>
void append(Mesh const& mesh, int vertex, Faces& to)
{
    auto const i = static_cast<qsizetype>(vertex);
    QVector3D const& v = mesh.vertices[i];
    Triple triple{{v.x(), v.y(), v.z()}, {}, {}};
    if (to.hasNormals)
        triple.normal = {mesh.normals[i].x(), mesh.normals[i].y(), mesh.normals[i].z()};
    if (to.hasUvs)
        triple.uv = {mesh.textureCoordinates[i].x(), mesh.textureCoordinates[i].y()};
    to.corners << triple;
}

template <std::size_t count>
bool isNear(std::array<float, count> const& a, std::array<float, count> const& b, quint32 steps)
{
    for (std::size_t i = 0; i < count; ++i)
        if (a[i] != b[i] && !(std::isfinite(b[i]) && qFloatDistance(a[i], b[i]) <= steps))
            return false;
    return true;
}

template <std::size_t count>
QString textOf(std::array<float, count> const& values)
{
    QStringList texts;
    for (float const value : values)
        texts << QString::number(double(value), 'g', 9);
    return u'(' + texts.join(u' ') + u')';
}

QString difference(qsizetype corner, auto const& ours, auto const& theirs)
{
    return u"corner %1 of face %2: ours %3, theirs %4"_s.arg(corner % 3)
        .arg(corner / 3)
        .arg(textOf(ours), textOf(theirs));
}

} // namespace

Faces facesOf(peers::PeerMesh const& mesh)
{
    Faces faces{{},
                mesh.normals.size() == mesh.vertices.size(),
                mesh.textureCoordinates.size() == mesh.vertices.size()};
    for (auto const& triangle : mesh.triangles)
        for (int const vertex : triangle)
            append(mesh, vertex, faces);
    return faces;
}

Faces facesOf(geometry::Mesh const& mesh, bool withNormals)
{
    Faces faces{{}, withNormals, !mesh.textureCoordinates.isEmpty()};
    for (int const vertex : mesh.indices)
        if (vertex >= 0)
            append(mesh, vertex, faces);
    return faces;
}

QString differenceOf(Faces const& ours, Faces const& theirs, quint32 steps)
{
    if (ours.corners.size() != theirs.corners.size())
        return u"ours %1 corners, theirs %2"_s.arg(ours.corners.size()).arg(theirs.corners.size());
    if (ours.hasNormals != theirs.hasNormals || ours.hasUvs != theirs.hasUvs)
        return u"ours %1, %2, theirs %3, %4"_s.arg(ours.hasNormals)
            .arg(ours.hasUvs)
            .arg(theirs.hasNormals)
            .arg(theirs.hasUvs);
    for (qsizetype i = 0; i < ours.corners.size(); ++i) {
        Triple const& a = ours.corners[i];
        Triple const& b = theirs.corners[i];
        if (!isNear(a.position, b.position, steps))
            return difference(i, a.position, b.position);
        if (!isNear(a.normal, b.normal, steps))
            return difference(i, a.normal, b.normal);
        if (!isNear(a.uv, b.uv, steps))
            return difference(i, a.uv, b.uv);
    }
    return {};
}

// tinyobjloader is built in double precision, where its decimals end at the nearest float. Assimp converts
// the digits before and behind the point in single precision each, and multiplies by a power of ten in single
// precision too.
QList<Peer> allPeers()
{
    return {{"tinyobjloader", peers::hasTinyObj(), peers::loadWithTinyObj, 0},
            {"Assimp", peers::hasAssimp(), peers::loadWithAssimp, 1}};
}

geometry::Mesh readWithOneTexture(QByteArray const& text, QString const& folder, OBJReader::Error& code)
{
    QByteArray drawn = "mtllib one.mtl\nusemtl one\n";
    for (QByteArray const& line : text.split('\n'))
        if (!line.startsWith("usemtl") && !line.startsWith("mtllib"))
            drawn += line + '\n';
    OBJReader reader;
    reader.setFileName(folder + u"/scan.obj"_s);
    reader.setTextureSupport(SurfaceReader::TextureOptional);
    code = reader.read(drawn, never);
    return reader.getMesh();
}

} // namespace objfaces
