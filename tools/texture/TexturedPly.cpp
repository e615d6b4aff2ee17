#include "texture/TexturedPly.h"

#include "Text.h"
#include "inhouse/data/Unstrip.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr qsizetype indicesOfTriangle = 4;

bool hasNormals(geometry::Mesh const& mesh)
{
    return mesh.normals.size() == mesh.vertices.size();
}

QByteArray headerOf(geometry::Mesh const& mesh, QString const& textureName)
{
    QByteArray header = "ply\nformat binary_little_endian 1.0\ncomment TextureFile " + textureName.toUtf8();
    header += "\nelement vertex " + QByteArray::number(mesh.vertices.size());
    header += "\nproperty float x\nproperty float y\nproperty float z\n";
    if (hasNormals(mesh))
        header += "property float nx\nproperty float ny\nproperty float nz\n";
    header += "property float s\nproperty float t\n";
    header += "element face " + QByteArray::number(mesh.indices.size() / indicesOfTriangle);
    return header + "\nproperty list uchar int vertex_indices\nend_header\n";
}

void write(QDataStream& stream, QVector3D const& vector)
{
    stream << vector.x() << vector.y() << vector.z();
}

void writeVertices(QDataStream& stream, geometry::Mesh const& mesh)
{
    for (qsizetype i = 0; i < mesh.vertices.size(); ++i) {
        write(stream, mesh.vertices[i]);
        if (hasNormals(mesh))
            write(stream, mesh.normals[i]);
        stream << mesh.textureCoordinates[i].x() << mesh.textureCoordinates[i].y();
    }
}

void writeFaces(QDataStream& stream, geometry::Mesh const& mesh)
{
    for (qsizetype i = 0; i + 3 < mesh.indices.size(); i += indicesOfTriangle)
        stream << quint8(3) << qint32(mesh.indices[i]) << qint32(mesh.indices[i + 1])
               << qint32(mesh.indices[i + 2]);
}

} // namespace

QString textureNameProblem(QString const& name)
{
    bool const hasControl =
        std::any_of(name.begin(), name.end(), [](QChar letter) { return letter.unicode() < ' '; });
    bool const isKept = name.split(u' ', Qt::SkipEmptyParts).join(u' ') == name && name.trimmed() == name;
    if (isKept && !hasControl)
        return {};
    return Text::tr("a PLY header cannot name an image \"%1\": spaces in a row, at an end, and control "
                    "letters get lost")
        .arg(name);
}

QByteArray texturedPly(geometry::Mesh const& given, QString const& textureName)
{
    geometry::Mesh const mesh = geometry::unstrip(given);
    QByteArray bytes = headerOf(mesh, textureName);
    QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Append);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    writeVertices(stream, mesh);
    writeFaces(stream, mesh);
    return bytes;
}

} // namespace tool
