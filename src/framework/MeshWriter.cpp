#include "framework/MeshWriter.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "framework/MeshRecord.h"
#include "framework/RowBlocks.h"
#include "ply/PLYWriter.h"
#include "stl/STLWriter.h"

#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>

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
bool writeArray(RowBlocks& blocks, Value const* values, qint64 count)
{
    using Stored = meshrecord::Stored<Value>;
    return blocks.putRows(count, sizeof(Stored), [values](qsizetype first, qsizetype size, char* target) {
        Value const* const end = values + first + size;
        for (Value const* value = values + first; value != end; ++value, target += sizeof(Stored))
            qToBigEndian(static_cast<Stored>(*value), target);
    });
}

// That the device takes no more is not looked at.
void writeRecord(QDataStream& stream, int numVertices, float const* vertices, float const* normals,
                 int numIndices, int const* indices)
{
    stream << qint32(numVertices) << qint32(numIndices);
    RowBlocks blocks(stream, sizeof(double));
    bool const isWhole = writeArray(blocks, vertices, 3 * qint64(numVertices)) &&
                         writeArray(blocks, normals, 3 * qint64(numVertices)) &&
                         writeArray(blocks, indices, numIndices);
    if (isWhole)
        blocks.write();
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
    return memory::succeeds([&] {
        writeRecord(stream, numVertices, vertices, normals, numIndices, indices);
        return true;
    });
}
