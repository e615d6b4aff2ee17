#include "vmesh/MTModelVMeshParser.h"

#include "framework/MemoryGuard.h"
#include "vmesh/LineWalk.h"
#include "vmesh/NumberLine.h"
#include "vmesh/NumberRow.h"
#include "vmesh/SharedArray.h"

#include <QDebug>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 headerLine = 1;
constexpr qint64 sizesLine = 2;
constexpr qint64 firstPointLine = 3;

constexpr int pointWidth = 3;
constexpr int faceWidth = 5;
constexpr int tetrahedronWidth = 4;
constexpr int triangleWidth = 4;
constexpr qint32 unknown = -1;

// The shortest rows there are, "0 0 0" and "0 0 0 0 0", each with its line feed.
constexpr qint64 leastPointBytes = 6;
constexpr qint64 leastFaceBytes = 10;

// Tetrahedra have no lines of their own that would show how many there are.
bool isTetrahedronCountCredible(qint64 count, qint64 fileBytes)
{
    constexpr qint64 base = qint64(64) * 1024 * 1024;
    constexpr qint64 bytesForEachByte = 64;
    qint64 const excess = count * tetrahedronWidth * qint64(sizeof(qint32)) - base;
    return excess <= 0 || (excess - 1) / bytesForEachByte < fileBytes;
}

bool isWithin(qint64 index, qint64 count)
{
    return 0 <= index && index < count;
}

} // namespace

struct MTModelVMeshParser::Steps
{
    MTModelVMeshParser& parser;

    bool parseLine(QString const& line, qint64 lineNumber) const
    {
        return parser.parseLine(line, lineNumber);
    }
    char const* readRow(char const* row, qint64 lineNumber) const { return parser.readRow(row, lineNumber); }
    // What follows the last row needs no look.
    bool isDone(qint64 lineNumber) const
    {
        return lineNumber >= sizesLine && lineNumber >= parser.lastRowLine();
    }
    void restart() const
    {
        qint64 const fileBytes = parser.room.fileBytes;
        parser.clear();
        parser.room.fileBytes = fileBytes;
    }
};

MTModelVMeshParser::MTModelVMeshParser(QString const& fileName_)
    : fileName(fileName_)
{}

MTModelVMeshParser::~MTModelVMeshParser() = default;

MTModelVMesh MTModelVMeshParser::getVMesh() const
{
    return mesh;
}

bool MTModelVMeshParser::read()
{
    return memory::succeeds([this] { return readWith(&MTModelVMeshParser::readBytes); });
}

bool MTModelVMeshParser::readWith(Walk walk)
{
    if (fileName.isEmpty()) {
        qWarning() << "MTModelVMeshParser : file name not filled in.";
        return false;
    }
    if (!QFile::exists(fileName)) {
        qWarning() << "MTModelVMeshParser : file does not exist.";
        return false;
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning() << "MTModelVMeshParser : could not open file for reading.";
        return false;
    }
    clear();
    room.fileBytes = file.size();
    qint64 lineNumber = 0;
    if (walkSafely(walk, file, lineNumber))
        return facesRead == mesh.numFaces && boundFacesRead == mesh.numBoundFaces;
    qWarning() << "MTModelVMeshParser : could not parse line" << lineNumber << ".";
    clear();
    return false;
}

bool MTModelVMeshParser::walkSafely(Walk walk, QIODevice& device, qint64& lineNumber)
{
    return memory::succeeds([&] { return (this->*walk)(device, lineNumber); });
}

bool MTModelVMeshParser::readText(QIODevice& device, qint64& lineNumber)
{
    return vmesh::walkText(device, lineNumber, Steps{*this});
}

bool MTModelVMeshParser::readBytes(QIODevice& device, qint64& lineNumber)
{
    return vmesh::walkBytes(device, lineNumber, Steps{*this});
}

qint64 MTModelVMeshParser::lastRowLine() const
{
    return sizesLine + qint64(mesh.numPoints) + mesh.numFaces + mesh.numBoundFaces;
}

// Null for a line that is no row, or not in the usual spelling.
char const* MTModelVMeshParser::readRow(char const* row, qint64 lineNumber)
{
    qint64 index = lineNumber - firstPointLine;
    if (index < 0)
        return nullptr;
    if (index < mesh.numPoints) {
        std::array<float, pointWidth> point;
        char const* const end = vmesh::readRealNumbers(row, point);
        return end != nullptr && storePoint(index, point) ? end : nullptr;
    }
    std::array<qint32, faceWidth> face;
    char const* const end = vmesh::readIntegers(row, face);
    if (end == nullptr)
        return nullptr;
    index -= mesh.numPoints;
    bool const isStored =
        index < mesh.numFaces ? storeFace(index, face) : storeBoundFace(index - mesh.numFaces, face);
    return isStored ? end : nullptr;
}

bool MTModelVMeshParser::parseLine(QString const& line, qint64 lineNumber)
{
    if (lineNumber == headerLine)
        return readHeader(line);
    if (lineNumber == sizesLine)
        return readArraySizes(line);
    qint64 index = lineNumber - firstPointLine;
    if (isWithin(index, mesh.numPoints))
        return readPoint(line, index);
    index -= mesh.numPoints;
    if (isWithin(index, mesh.numFaces))
        return readFace(line, index);
    index -= mesh.numFaces;
    if (isWithin(index, mesh.numBoundFaces))
        return readBoundFace(line, index);
    return true;
}

bool MTModelVMeshParser::readHeader(QString const& line)
{
    if (line.contains("# Labeled"_L1))
        return true;
    qWarning() << "MTModelVMeshParser : for now only .vmesh files of type Labeled are supported.";
    return false;
}

bool MTModelVMeshParser::readArraySizes(QString const& line)
{
    auto const counts = vmesh::integersOf<4>(line);
    if (!counts || *std::min_element(counts->begin(), counts->end()) < 0 ||
        !isTetrahedronCountCredible(counts->front(), room.fileBytes))
        return false;
    mesh.numTetrahedra = (*counts)[0];
    mesh.numFaces = (*counts)[1];
    mesh.numBoundFaces = (*counts)[2];
    mesh.numPoints = (*counts)[3];
    return makeArrays();
}

bool MTModelVMeshParser::makeArrays()
{
    mesh.tetrahedra = vmesh::makeSharedArray(tetrahedronWidth * qint64(mesh.numTetrahedra), unknown);
    return !mesh.tetrahedra.isNull() && makeRoomForPoints() && makeRoomForFaces() && makeRoomForBoundFaces();
}

bool MTModelVMeshParser::makeRoomForPoints()
{
    qint64 const rows = vmesh::nextRoom(room.points, mesh.numPoints, room.fileBytes, leastPointBytes);
    if (!vmesh::growRows(mesh.points, pointWidth, room.points, rows, 0.0f))
        return false;
    room.points = rows;
    return true;
}

bool MTModelVMeshParser::makeRoomForFaces()
{
    qint64 const rows = vmesh::nextRoom(room.faces, mesh.numFaces, room.fileBytes, leastFaceBytes);
    if (!vmesh::growRows(mesh.faces, faceWidth, room.faces, rows, 0) ||
        !vmesh::growRows(mesh.triangles, triangleWidth, room.faces, rows, unknown))
        return false;
    room.faces = rows;
    return true;
}

bool MTModelVMeshParser::makeRoomForBoundFaces()
{
    qint64 const rows = vmesh::nextRoom(room.boundFaces, mesh.numBoundFaces, room.fileBytes, leastFaceBytes);
    if (!vmesh::growRows(mesh.boundFaces, faceWidth, room.boundFaces, rows, unknown))
        return false;
    room.boundFaces = rows;
    return true;
}

bool MTModelVMeshParser::readPoint(QString const& line, qint64 index)
{
    auto const point = vmesh::realNumbersOf<pointWidth>(line);
    return point && storePoint(index, *point);
}

bool MTModelVMeshParser::readFace(QString const& line, qint64 index)
{
    auto const face = vmesh::integersOf<faceWidth>(line);
    return face && storeFace(index, *face);
}

bool MTModelVMeshParser::readBoundFace(QString const& line, qint64 index)
{
    auto const face = vmesh::integersOf<faceWidth>(line);
    return face && storeBoundFace(index, *face);
}

bool MTModelVMeshParser::storePoint(qint64 index, std::array<float, 3> const& point)
{
    if (index >= room.points && !makeRoomForPoints())
        return false;
    std::ranges::copy(point, mesh.points.data() + pointWidth * index);
    return true;
}

bool MTModelVMeshParser::storeFace(qint64 index, std::array<qint32, 5> const& face)
{
    if (index >= room.faces && !makeRoomForFaces())
        return false;
    std::ranges::copy(face, mesh.faces.data() + faceWidth * index);
    auto const [t1, t2, a, b, c] = face;
    readTetrahedrons(t1, t2, a, b, c);
    readTriangle(t1, t2, a, b, c);
    return true;
}

bool MTModelVMeshParser::storeBoundFace(qint64 index, std::array<qint32, 5> const& face)
{
    if (index >= room.boundFaces && !makeRoomForBoundFaces())
        return false;
    std::ranges::copy(face, mesh.boundFaces.data() + faceWidth * index);
    ++boundFacesRead;
    return true;
}

void MTModelVMeshParser::readTetrahedrons(qint32 t1, qint32 t2, qint32 a, qint32 b, qint32 c)
{
    for (qint32 const t : {t1, t2}) {
        if (t >= 0)
            readTetrahedron(t, a, b, c);
    }
}

void MTModelVMeshParser::readTetrahedron(qint32 t, qint32 a, qint32 b, qint32 c)
{
    if (t >= mesh.numTetrahedra)
        return;
    qint32* const corners = mesh.tetrahedra.data() + tetrahedronWidth * qint64(t);
    if (corners[0] == unknown) {
        corners[0] = a;
        corners[1] = b;
        corners[2] = c;
    } else if (corners[3] == unknown) {
        for (qint32 const point : {a, b, c}) {
            if (std::find(corners, corners + 3, point) == corners + 3)
                corners[3] = point;
        }
    }
}

void MTModelVMeshParser::readTriangle(qint32, qint32, qint32 a, qint32 b, qint32 c)
{
    qint32* const triangle = mesh.triangles.data() + triangleWidth * qint64(facesRead);
    triangle[0] = a;
    triangle[1] = b;
    triangle[2] = c;
    ++facesRead;
}

void MTModelVMeshParser::clear()
{
    mesh = MTModelVMesh();
    facesRead = 0;
    boundFacesRead = 0;
    room = Room();
}
