#include "vmesh/MTModelVMeshWriter.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"

#include <QDebug>
#include <QFile>
#include <QTextStream>

#include <algorithm>

namespace {

constexpr int pointWidth = 3;
constexpr int faceWidth = 5;
constexpr int tetrahedronWidth = 4;
constexpr int decimals = 6;

constexpr int none = -1;
constexpr int alreadyWritten = -2;

bool hasPoint(qint32 const* tetrahedron, int point)
{
    qint32 const* const end = tetrahedron + tetrahedronWidth;
    return std::find(tetrahedron, end, point) != end;
}

QString number(float value)
{
    return QString::number(static_cast<double>(value), 'f', decimals);
}

// One list for each; none where there is no memory for them, and `write` then refuses to make faces.
template <typename Entry>
QList<Entry> entriesFor(qint32 count)
{
    return memory::resultOr(QList<Entry>(), [count] {
        // Not the list's constructor, which does not look whether it got its memory.
        QList<Entry> entries;
        entries.resize(std::max(0, count));
        return entries;
    });
}

template <typename Value>
bool isThere(QSharedPointer<Value> const& array, qint32 count)
{
    return count <= 0 || !array.isNull();
}

} // namespace

MTModelVMeshWriter::MTModelVMeshWriter(MTModelVMesh& mesh_)
    : mesh(mesh_)
    , pairedFaces(entriesFor<QList<Face>>(mesh_.numTetrahedra))
{}

MTModelVMeshWriter::~MTModelVMeshWriter() = default;

bool MTModelVMeshWriter::write(QString const& fileName)
{
    if (!isThere(mesh.points, mesh.numPoints) || !(hasRows() || canGenerateFaces()))
        return false;
    QFile file(fileName);
    if (!files::open(file, QIODevice::WriteOnly)) {
        qWarning() << "MTModelVMeshWriter : could not open file for writing.";
        return false;
    }
    return memory::succeeds([&] { // for the rows that are made
        writeMesh(file);
        return true;
    });
}

bool MTModelVMeshWriter::hasRows() const
{
    return !mesh.faces.isNull() && !mesh.boundFaces.isNull();
}

bool MTModelVMeshWriter::canGenerateFaces() const
{
    return isThere(mesh.tetrahedra, mesh.numTetrahedra) && mesh.numTetrahedra <= pairedFaces.size();
}

void MTModelVMeshWriter::writeMesh(QIODevice& device)
{
    bool const isGenerated = !hasRows();
    if (isGenerated)
        generateFaces();
    qint64 const faceCount = isGenerated ? faces.size() / faceWidth : mesh.numFaces;
    qint64 const boundFaceCount = isGenerated ? boundFaces.size() / faceWidth : mesh.numBoundFaces;

    QTextStream stream(&device);
    writeHeader(stream);
    writeArraySizes(stream, faceCount, boundFaceCount);
    writePoints(stream);
    writeFaces(stream, faceCount, isGenerated ? faces.constData() : mesh.faces.data());
    writeBoundTriangles(stream, boundFaceCount,
                        isGenerated ? boundFaces.constData() : mesh.boundFaces.data());
}

void MTModelVMeshWriter::generateFaces()
{
    qint32 const* const begin = mesh.tetrahedra.data();
    qint32 const* const end = begin + tetrahedronWidth * qint64(std::max(0, mesh.numTetrahedra));
    for (int i = 0; i < mesh.numTetrahedra; ++i) {
        qint32 const* const p = begin + tetrahedronWidth * qint64(i);
        qint32 const* const next = p + tetrahedronWidth;
        generateFace(i, next, end, p[0], p[1], p[2]);
        generateFace(i, next, end, p[1], p[2], p[3]);
        generateFace(i, next, end, p[2], p[3], p[0]);
        generateFace(i, next, end, p[3], p[0], p[1]);
    }
}

void MTModelVMeshWriter::generateFace(int tetrahedron, qint32 const* begin, qint32 const* end, int a, int b,
                                      int c)
{
    Face face = {a, b, c};
    std::sort(face.begin(), face.end());
    int const neighbour = findIndexTetraWithNeighborFace(tetrahedron, begin, end, face);
    if (neighbour != alreadyWritten)
        faces << tetrahedron << neighbour << face;
}

// A list passed by value is shared, not copied.
// NOLINTBEGIN(performance-unnecessary-value-param)

int MTModelVMeshWriter::findIndexTetraWithNeighborFace(int tetrahedron, qint32 const* begin,
                                                       qint32 const* end, Face face)
{
    if (!isFaceNotPared(tetrahedron, face))
        return alreadyWritten;
    int const found = findTetraIndexContainingFace(begin, end, face);
    if (found == none) {
        addFaceToBoundedFaceVector(tetrahedron, face);
        return none;
    }
    int const neighbour = tetrahedron + 1 + found;
    pairedFaces[neighbour] << face;
    return neighbour;
}

int MTModelVMeshWriter::findTetraIndexContainingFace(qint32 const* begin, qint32 const* end, Face face)
{
    qint32 const* const found = findTetraContainingFace(begin, end, face);
    return found == nullptr ? none : static_cast<int>((found - begin) / tetrahedronWidth);
}

qint32 const* MTModelVMeshWriter::findTetraContainingFace(qint32 const* begin, qint32 const* end, Face face)
{
    qint32 const* slot = std::find(begin, end, face[0]);
    while (slot != end) {
        qint32 const* const tetrahedron = slot - (slot - begin) % tetrahedronWidth;
        if (hasPoint(tetrahedron, face[1]) && hasPoint(tetrahedron, face[2]))
            return tetrahedron;
        slot = std::find(tetrahedron + tetrahedronWidth, end, face[0]);
    }
    return nullptr;
}

bool MTModelVMeshWriter::isFaceNotPared(int tetrahedron, Face face)
{
    return !pairedFaces[tetrahedron].contains(face);
}

void MTModelVMeshWriter::addFaceToBoundedFaceVector(int tetrahedron, Face face)
{
    boundFaces << tetrahedron << none << face;
}

// NOLINTEND(performance-unnecessary-value-param)

bool MTModelVMeshWriter::isPointInTetra(qint32 const* tetrahedron, int point)
{
    return hasPoint(tetrahedron, point);
}

void MTModelVMeshWriter::writeHeader(QTextStream& stream)
{
    stream << "# Labeled";
}

void MTModelVMeshWriter::writeArraySizes(QTextStream& stream, qint64 faceCount, qint64 boundFaceCount)
{
    stream << '\n'
           << mesh.numTetrahedra << ' ' << faceCount << ' ' << boundFaceCount << ' ' << mesh.numPoints;
}

void MTModelVMeshWriter::writePoints(QTextStream& stream)
{
    float const* point = mesh.points.data();
    for (qint64 k = 0; k < mesh.numPoints; ++k, point += pointWidth)
        stream << '\n' << number(point[0]) << ' ' << number(point[1]) << ' ' << number(point[2]);
}

void MTModelVMeshWriter::writeFaces(QTextStream& stream, qint64 count, qint32 const* rows)
{
    for (qint64 k = 0; k < count; ++k, rows += faceWidth)
        stream << '\n' << rows[0] << ' ' << rows[1] << ' ' << rows[2] << ' ' << rows[3] << ' ' << rows[4];
}

void MTModelVMeshWriter::writeBoundTriangles(QTextStream& stream, qint64 count, qint32 const* rows)
{
    writeFaces(stream, count, rows);
}
