#include "stl/STLReader.h"

#include "framework/MemoryGuard.h"
#include "framework/NumberParsing.h"
#include "stl/STLCleaning.h"
#include "stl/STLFacets.h"
#include "stl/STLLayout.h"
#include "stl/STLSurfaceCreator.h"

#include <QDataStream>
#include <QFile>
#include <QTextStream>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr auto asciiStart = "solid"_L1;
constexpr auto vertexKeyword = "vertex"_L1;
constexpr qsizetype verticesPerTriangle = 3;
constexpr int restart = -1;
// In characters. Binary data, or a file without line feeds, may have gigabytes before the first of them.
constexpr qint64 partLength = 4096;
constexpr qint64 longestLine = qint64(4) * 1024 * 1024;
// Beyond, a mesh could no longer count its indices in an int.
constexpr qsizetype mostVertices = std::numeric_limits<int>::max() / 4 * verticesPerTriangle;

QString withoutLeadingSpace(QString const& text)
{
    auto const begin = std::find_if_not(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    return text.last(text.end() - begin);
}

void skipRestOfLine(QTextStream& stream)
{
    QString part;
    do
        stream.readLineInto(&part, partLength);
    while (part.size() == partLength);
}

// Reads the first line, in parts.
bool isAscii(QTextStream& stream)
{
    QString start;
    QString part;
    do {
        part = stream.readLine(partLength);
        start = withoutLeadingSpace(start + part);
    } while (part.size() == partLength && start.size() < asciiStart.size());
    if (!start.startsWith(asciiStart))
        return false;
    if (part.size() == partLength)
        skipRestOfLine(stream);
    return true;
}

void setBinaryStl(QDataStream& stream)
{
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

// A device too short for the count is asked for nothing, as Qt logs a seek beyond its end.
std::optional<quint32> readCount(QDataStream& stream, qint64 size)
{
    std::array<char, stl::countBytes> bytes = {};
    if (size < stl::firstFacetOffset || !stl::seekTo(stream.device(), stl::headerBytes))
        return {};
    // A count cut short reads as 0.
    qint64 const present = stl::readFully(stream.device(), bytes.data(), stl::countBytes);
    return present == stl::countBytes ? qFromLittleEndian<quint32>(bytes.data()) : 0;
}

// The text up to the next space; `line` is left with what follows.
QStringView takePiece(QStringView& line)
{
    qsizetype begin = 0;
    while (begin < line.size() && line[begin] == u' ')
        ++begin;
    qsizetype end = begin;
    while (end < line.size() && line[end] != u' ')
        ++end;
    QStringView const piece = line.sliced(begin, end - begin);
    line = line.sliced(end);
    return piece;
}

// The parser is quick with bytes, which is all that a number of a known exporter needs.
float toFloat(QStringView text, bool* ok)
{
    std::array<char, 32> bytes;
    auto const isAscii = [](QChar c) { return c.unicode() < 0x80; };
    if (text.size() > qsizetype(bytes.size()) || !std::all_of(text.begin(), text.end(), isAscii))
        return numbers::toFloat(text, ok);
    std::transform(text.begin(), text.end(), bytes.begin(), [](QChar c) { return c.toLatin1(); });
    return numbers::toFloat(QLatin1StringView(bytes.data(), text.size()), ok);
}

// A missing piece is empty, and no number.
std::optional<QVector3D> parseVertex(QStringView line)
{
    takePiece(line); // the keyword, or what stands before it
    QVector3D vertex;
    for (int axis = 0; axis < 3; ++axis) {
        bool isNumber = false;
        vertex[axis] = toFloat(takePiece(line), &isNumber);
        if (!isNumber)
            return {};
    }
    return vertex;
}

void appendVertex(geometry::Mesh& mesh, QVector3D const& vertex)
{
    qsizetype const count = mesh.vertices.size();
    mesh.indices.append(static_cast<int>(count));
    if ((count + 1) % verticesPerTriangle == 0)
        mesh.indices.append(restart);
    mesh.vertices.append(vertex);
}

} // namespace

STLReader::STLReader(STLTagHandler const* tagHandler, bool sharpEdges_, QString const& fileName_)
    : SurfaceReader(sharpEdges_)
    , surfaceCreator(std::make_unique<STLSurfaceCreator>(tagHandler, sharpEdges_))
{
    STLReader::setFileName(fileName_);
}

STLReader::~STLReader() = default;

bool STLReader::read(std::atomic<bool> const& cancel)
{
    if (fileName.isEmpty())
        return false;
    return memory::succeeds([&] {
        QFile file(fileName);
        return readFromDevice(&file, cancel);
    });
}

bool STLReader::read(QIODevice* device, std::atomic<bool> const& cancel)
{
    return memory::succeeds([&] { return readFromDevice(device, cancel); });
}

bool STLReader::read(QByteArray const& data, std::atomic<bool> const& cancel)
{
    return memory::succeeds([&] { return readFromBytes(data, cancel); });
}

bool STLReader::readFromDevice(QIODevice* device, std::atomic<bool> const& cancel)
{
    if (!device || !device->open(QIODevice::ReadOnly) || !device->isReadable())
        return false;
    QTextStream text(device);
    if (isAscii(text))
        return readAscii(text, cancel);
    // What the text stream has buffered is lost to a device that cannot go back.
    if (device->isSequential())
        return false;
    device->reset();
    QDataStream stream(device);
    setBinaryStl(stream);
    return readFacets(stream, device->size(), cancel);
}

bool STLReader::readFromBytes(QByteArray const& data, std::atomic<bool> const& cancel)
{
    if (data.isNull())
        return false;
    QTextStream text(data, QIODevice::ReadOnly);
    if (isAscii(text))
        return readAscii(text, cancel);
    QDataStream stream(data);
    setBinaryStl(stream);
    std::atomic<bool> const never = false;
    return readFacets(stream, data.size(), never);
}

bool STLReader::isValidStlFile(QByteArray const& data)
{
    QDataStream stream(data);
    setBinaryStl(stream);
    std::optional<quint32> const count = readCount(stream, data.size());
    return count && data.size() == static_cast<qint32>(stl::fileBytes(*count));
}

geometry::Mesh const& STLReader::getMesh() const
{
    STLSurfaceData const* const surface = getSTLSurfaceDataSet();
    return surface ? surface->getMesh() : SurfaceReader::getMesh();
}

QMatrix4x4 const& STLReader::getTransform() const
{
    STLSurfaceData const* const surface = getSTLSurfaceDataSet();
    return surface ? surface->getTransform() : SurfaceReader::getTransform();
}

QList<STLSurfaceData*> STLReader::takeSTLSurfaceDataSets() const
{
    return surfaceCreator->takeSTLSurfaceData();
}

bool STLReader::readAscii(QTextStream& stream, std::atomic<bool> const& cancel)
{
    geometry::Mesh result;
    QString line;
    // Not until atEnd(): a device may deny its end and still give nothing, or make its data only when asked.
    while (stream.readLineInto(&line, longestLine)) {
        if (cancel) {
            cleanSTLData();
            return false;
        }
        bool const isWhole = line.size() < longestLine;
        if (!QStringView(line).trimmed().startsWith(vertexKeyword)) {
            if (!isWhole)
                skipRestOfLine(stream);
            continue;
        }
        std::optional<QVector3D> const vertex = isWhole ? parseVertex(line) : std::nullopt;
        if (!vertex || result.vertices.size() == mostVertices)
            return false;
        appendVertex(result, *vertex);
    }
    if (result.vertices.size() % verticesPerTriangle != 0)
        return false;
    mesh = result;
    cleanSTLData();
    return computeNormals(cancel);
}

bool STLReader::readBinary(QDataStream& stream, int const& size, std::atomic<bool> const& cancel)
{
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    return readFacets(stream, static_cast<quint32>(size), cancel);
}

bool STLReader::readFacets(QDataStream& stream, qint64 size, std::atomic<bool> const& cancel)
{
    if (cancel)
        return false;
    std::optional<quint32> const count = readCount(stream, size);
    if (!count)
        return false;
    quint32 const dataSize = stl::fileBytes(*count);
    if (dataSize != static_cast<quint32>(size))
        return false;
    STLDataFormat const format = {stl::firstVertexOffset, static_cast<int>(dataSize),
                                  static_cast<int>(*count), stl::vertexBlockBytes, stl::facetBytes};
    surfaceCreator->read(stream, format, cancel);
    return !surfaceCreator->ranOutOfMemory();
}

void STLReader::cleanSTLData()
{
    std::atomic<bool> const cancel = false;
    stl::cleanMesh(mesh, mesh.getNumVertices() / static_cast<int>(verticesPerTriangle), cancel);
}

STLSurfaceData* STLReader::getSTLSurfaceDataSet() const
{
    QList<STLSurfaceData*> const surfaces = surfaceCreator->getSTLSurfaceData();
    return surfaces.isEmpty() ? nullptr : surfaces.first();
}
