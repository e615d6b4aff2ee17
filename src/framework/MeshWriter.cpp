#include "framework/MeshWriter.h"

#include "ply/PLYWriter.h"
#include "stl/STLWriter.h"

#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <type_traits>

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

// Big-endian, floats as doubles: what the stream's operators write, many values at once.
template <typename Value>
void writeArray(QDataStream& stream, Value const* values, qint64 count)
{
    using Stored = std::conditional_t<std::is_same_v<Value, float>, double, Value>;
    constexpr qint64 valuesAtOnce = 8192;
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
