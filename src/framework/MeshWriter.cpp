#include "framework/MeshWriter.h"

#include "framework/FileAccess.h"
#include "framework/MeshRecord.h"
#include "ply/PLYWriter.h"
#include "stl/STLWriter.h"

#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>

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

// What the stream's operators write, many values at once.
template <typename Value>
void writeArray(QDataStream& stream, Value const* values, qint64 count)
{
    using meshrecord::valuesAtOnce;
    using Stored = meshrecord::Stored<Value>;
    std::array<char, valuesAtOnce * sizeof(Stored)> block;
    while (count > 0) {
        qint64 const size = std::min(count, valuesAtOnce);
        char* target = block.data();
        for (Value const* const end = values + size; values != end; ++values, target += sizeof(Stored))
            qToBigEndian(static_cast<Stored>(*values), target);
        stream.writeRawData(block.data(), static_cast<int>(target - block.data()));
        count -= size;
    }
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
    if (!files::open(file, QIODevice::WriteOnly))
        return false;
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << qint32(numVertices) << qint32(numIndices);
    writeArray(stream, vertices, 3 * qint64(numVertices));
    writeArray(stream, normals, 3 * qint64(numVertices));
    writeArray(stream, indices, numIndices);
    return true;
}
