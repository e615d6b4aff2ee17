#include "stl/STLReader.h"

#include "framework/ByteLines.h"
#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "stl/STLAscii.h"
#include "stl/STLCleaning.h"
#include "stl/STLFacets.h"
#include "stl/STLLayout.h"
#include "stl/STLSurfaceCreator.h"

#include <QDataStream>
#include <QFile>
#include <QTextStream>
#include <QtEndian>

#include <array>
#include <limits>
#include <optional>
#include <utility>

namespace {

constexpr qsizetype verticesPerTriangle = 3;
constexpr int restart = -1;
// In characters. A file without line feeds may have gigabytes.
constexpr qint64 longestLine = text::longestLine;
// Beyond, a mesh could no longer count its indices in an int.
constexpr qsizetype mostVertices = std::numeric_limits<int>::max() / 4 * verticesPerTriangle;

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
    qint64 const present = files::readFully(stream.device(), bytes.data(), stl::countBytes);
    return present == stl::countBytes ? qFromLittleEndian<quint32>(bytes.data()) : 0;
}

void appendVertex(geometry::Mesh& mesh, QVector3D const& vertex)
{
    qsizetype const count = mesh.vertices.size();
    mesh.indices.append(static_cast<int>(count));
    if ((count + 1) % verticesPerTriangle == 0)
        mesh.indices.append(restart);
    mesh.vertices.append(vertex);
}

stl::Line readAsciiLine(text::ByteLines& lines, QVector3D& vertex)
{
    if (char const* const next = stl::takeVertexLine(lines.text(), lines.end(), vertex)) {
        lines.goTo(next);
        return stl::Line::Vertex;
    }
    QByteArrayView const bytes = lines.line();
    lines.goBehind(bytes);
    return stl::parseLine(bytes, vertex);
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
    if (stl::isAscii(text))
        return readAsciiDevice(text, cancel);
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
    if (stl::isAscii(text))
        return readAsciiDevice(text, cancel);
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

// Text whose bytes tell what it says is read as bytes, all other text is decoded. The first line is read.
bool STLReader::readAsciiDevice(QTextStream& text, std::atomic<bool> const& cancel)
{
    QIODevice& device = *text.device();
    if (!readsBytes || device.isSequential() || device.isTextModeEnabled() || !device.seek(0))
        return readAscii(text, cancel);
    if (std::optional<bool> const result = readAsciiBytes(device, cancel))
        return *result;
    device.seek(0);
    QTextStream again(&device);
    return stl::isAscii(again) && readAscii(again, cancel);
}

// Nothing when the text has to be decoded.
std::optional<bool> STLReader::readAsciiBytes(QIODevice& device, std::atomic<bool> const& cancel)
{
    geometry::Mesh result;
    QVector3D vertex;
    text::ByteLines lines(device);
    for (bool isFirst = true; lines.fetch(); isFirst = false) {
        if (cancel && !isFirst) {
            cleanSTLData();
            return false;
        }
        stl::Line const line = readAsciiLine(lines, vertex);
        if (line == stl::Line::Unclear)
            return {};
        if (line == stl::Line::Skipped || isFirst)
            continue;
        if (line == stl::Line::Broken || result.vertices.size() == mostVertices)
            return false;
        appendVertex(result, vertex);
    }
    if (lines.isLineTooLong())
        return {};
    return storeAscii(std::move(result), cancel);
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
        if (!stl::isVertexLine(line)) {
            if (!isWhole)
                stl::skipRestOfLine(stream);
            continue;
        }
        std::optional<QVector3D> const vertex = isWhole ? stl::parseVertex(line) : std::nullopt;
        if (!vertex || result.vertices.size() == mostVertices)
            return false;
        appendVertex(result, *vertex);
    }
    return storeAscii(std::move(result), cancel);
}

bool STLReader::storeAscii(geometry::Mesh read, std::atomic<bool> const& cancel)
{
    if (read.vertices.size() % verticesPerTriangle != 0)
        return false;
    mesh = std::move(read);
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
