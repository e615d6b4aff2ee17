#include "framework/MeshReader.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "framework/MeshRecord.h"
#include "obj/OBJReaderHelper.h"
#include "ply/PLYReader.h"
#include "stl/STLReader.h"

#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <new>

using namespace Qt::StringLiterals;

namespace {

bool isSuffix(QString const& suffix, QLatin1StringView format)
{
    return suffix.compare(format, Qt::CaseInsensitive) == 0;
}

// What an array record may ask for beyond its bytes: a record cut short keeps its zeros, a record that
// lies about its counts does not cost more than this.
constexpr qint64 allowedBytes(qint64 fileSize)
{
    constexpr qint64 base = qint64(32) * 1024 * 1024;
    constexpr qint64 bytesForEachByte = 8;
    return base + bytesForEachByte * fileSize;
}

bool areCountsCredible(qint32 numVertices, qint32 numIndices, qint64 fileSize)
{
    if (numVertices < 0 || numIndices < 0)
        return false;
    constexpr qint64 bytesForEachVertex = qint64(2) * 3 * qint64(sizeof(float));
    qint64 const bytes = bytesForEachVertex * numVertices + qint64(sizeof(int)) * numIndices;
    return bytes <= allowedBytes(fileSize);
}

// Zeros from the first value on that the stream lacks. Null when there is no memory for it.
template <typename Value>
std::unique_ptr<Value[]> readArray(QDataStream& stream, qint64 count)
{
    constexpr qint64 valuesAtOnce = 8192;
    using Stored = meshrecord::Stored<Value>;
    std::array<Stored, valuesAtOnce> block;
    std::unique_ptr<Value[]> values(new (std::nothrow) Value[static_cast<std::size_t>(count)]);
    if (!values)
        return values;
    Value* next = values.get();
    Value* const end = next + count;
    while (next != end && stream.status() == QDataStream::Ok) {
        qsizetype const bytes = std::min<qint64>(end - next, valuesAtOnce) * qsizetype(sizeof(Stored));
        qsizetype const there =
            files::readFully(stream.device(), reinterpret_cast<char*>(block.data()), bytes);
        if (there < bytes)
            stream.setStatus(QDataStream::ReadPastEnd);
        qsizetype const whole = there / qsizetype(sizeof(Stored));
        qFromBigEndian<Stored>(block.data(), whole, block.data());
        next = std::transform(block.data(), block.data() + whole, next,
                              [](Stored stored) { return static_cast<Value>(stored); });
    }
    std::fill(next, end, Value());
    return values;
}

utility::Optional<geometry::Mesh> resultOf(SurfaceReader const& reader, bool success)
{
    return success ? utility::Optional<geometry::Mesh>(reader.getMesh()) : std::nullopt;
}

utility::Optional<geometry::Mesh> readFile(QString const& path)
{
    if (!QFile::exists(path)) {
        qWarning() << "The file" << path << " does not exist ( MeshReader::read ) ";
        return {};
    }
    std::atomic<bool> const cancel = false;
    QString const suffix = QFileInfo(path).suffix();
    if (isSuffix(suffix, "obj"_L1))
        return OBJReaderHelper::read(path);
    if (MeshReader::isPLY(suffix)) {
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(path);
        return resultOf(reader, reader.read(cancel));
    }
    if (isSuffix(suffix, "stl"_L1)) {
        STLReader reader(nullptr, false, {});
        reader.setFileName(path);
        return resultOf(reader, reader.read(cancel));
    }
    return {};
}

utility::Optional<geometry::Mesh> readBytes(QByteArray const& data, QString const& fileName)
{
    if (data.isEmpty()) {
        qWarning() << "Empty data for :" << fileName;
        return {};
    }
    std::atomic<bool> const cancel = false;
    QString const suffix = QFileInfo(fileName).suffix();
    // The data are the path of a file, not what is in it.
    if (isSuffix(suffix, "obj"_L1))
        return OBJReaderHelper::read(QString::fromUtf8(data));
    if (MeshReader::isPLY(suffix)) {
        PLYReader reader(PLYReader::MeshMode);
        reader.setFileName(fileName);
        return resultOf(reader, reader.read(data, cancel));
    }
    if (isSuffix(suffix, "stl"_L1)) {
        STLReader reader(nullptr, false, {});
        return resultOf(reader, reader.read(data, cancel));
    }
    return {};
}

bool readRecord(QString const& path, int* numVertices, float** vertices, float** normals, int* numIndices,
                int** indices)
{
    QFile file(path);
    if (!files::open(file, QIODevice::ReadOnly))
        return false;
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_5_15);
    qint32 vertexCount = 0;
    qint32 indexCount = 0;
    stream >> vertexCount >> indexCount;
    if (!areCountsCredible(vertexCount, indexCount, file.size()))
        return false;

    qint64 const coordinateCount = 3 * qint64(vertexCount);
    auto positionArray = readArray<float>(stream, coordinateCount);
    auto normalArray = readArray<float>(stream, coordinateCount);
    auto indexArray = readArray<int>(stream, indexCount);
    if (!positionArray || !normalArray || !indexArray)
        return false;
    if (!stream.atEnd())
        qWarning() << "MeshReader: QDataStream didn't reach end of stream. This might indicate an extraction "
                      "error!";
    *numVertices = vertexCount;
    *numIndices = indexCount;
    *vertices = positionArray.release();
    *normals = normalArray.release();
    *indices = indexArray.release();
    return true;
}

} // namespace

bool MeshReader::isPLY(QString const& suffix)
{
    return isSuffix(suffix, "ply"_L1);
}

utility::Optional<geometry::Mesh> MeshReader::read(QString const& path)
{
    return memory::resultOr(utility::Optional<geometry::Mesh>(), [&] { return readFile(path); });
}

utility::Optional<geometry::Mesh> MeshReader::read(QByteArray const& data, QString const& fileName)
{
    return memory::resultOr(utility::Optional<geometry::Mesh>(), [&] { return readBytes(data, fileName); });
}

bool MeshReader::read(QString const& path, int* numVertices, float** vertices, float** normals,
                      int* numIndices, int** indices)
{
    return memory::succeeds(
        [&] { return readRecord(path, numVertices, vertices, normals, numIndices, indices); });
}
