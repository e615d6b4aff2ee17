#include "framework/MeshWriter.h"

#include "ply/PLYWriter.h"
#include "stl/STLWriter.h"

#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

bool writePly(QString const& path, geometry::Mesh const& mesh)
{
    PLYWriter writer;
    writer.setFilePath(path);
    writer.setData(mesh, false, {});
    if (writer.write())
        return true;
    qWarning() << "Couldn't write mesh as .ply: " << writer.getErrorMessage();
    return false;
}

bool writeStl(QString const& path, geometry::Mesh const& mesh)
{
    STLWriter writer;
    writer.setFilePath(path);
    writer.setData(mesh, 0, 0);
    if (writer.write())
        return true;
    qWarning() << "Couldn't write mesh as .stl: " << writer.getErrorMessage();
    return false;
}

template <typename Value>
void writeArray(QDataStream& stream, Value const* values, qint64 count)
{
    for (qint64 i = 0; i < count; ++i)
        stream << values[i];
}

} // namespace

bool MeshWriter::write(QString const& path, geometry::Mesh const& mesh)
{
    QString const suffix = QFileInfo(path).completeSuffix();
    if (suffix.endsWith("ply"_L1, Qt::CaseInsensitive))
        return writePly(path, mesh);
    if (suffix.endsWith("stl"_L1, Qt::CaseInsensitive))
        return writeStl(path, mesh);
    qWarning() << "Couldn't write mesh. Unexpected extension: " << suffix;
    return false;
}

bool MeshWriter::write(QString const& path, int numVertices, float* vertices, float* normals, int numIndices,
                       int* indices)
{
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly)) // Qt logs an empty name
        return false;
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << qint32(numVertices) << qint32(numIndices);
    writeArray(stream, vertices, 3 * qint64(numVertices));
    writeArray(stream, normals, 3 * qint64(numVertices));
    writeArray(stream, indices, numIndices);
    return true;
}
