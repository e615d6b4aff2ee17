#pragma once

#include "framework/Export.h"
#include "vmesh/MTModelVMesh.h"

#include <QList>
#include <QString>

class QIODevice;
class QTextStream;

/// Writes an `MTModelVMesh` as a ".vmesh" file of type "Labeled" (docs/formats/vmesh.md).
///
/// A mesh that has face and bound-face rows is written as it is. For one without, the rows are made from the
/// tetrahedra: each triangle once, with the one or two tetrahedra that have it, and those of a single
/// tetrahedron again as bound faces. That search takes time with the square of the number of tetrahedra;
/// `deriveFaceRows` in vmesh/FaceRows.h makes the same rows in linear time.
///
/// A writer is for one mesh and one file: what it has made is not forgotten, and a second `write` of a mesh
/// without rows adds to it. It refers to the mesh, which must outlive it, must not get more tetrahedra, and
/// is not changed. One thread uses a writer at a time.
class SURFACEIO_EXPORT MTModelVMeshWriter
{
public:
    /// The arrays of `mesh` that are not null must be as long as its counts say.
    explicit MTModelVMeshWriter(MTModelVMesh& mesh);
    MTModelVMeshWriter(MTModelVMeshWriter const&) = default;
    ~MTModelVMeshWriter();

    /// Writes the file, which is created or truncated first. Coordinates get six decimals; there is no line
    /// end after the last line. Point indices are not checked; unknown points (-1) of a tetrahedron take part
    /// in the search for neighbours like any other.
    ///
    /// False, with a message in the log, when the file cannot be opened. A disk that fills up is not noticed.
    /// False without one when an array that the counts call for is null, the mesh has got more
    /// tetrahedra since construction, or memory runs out.
    bool write(QString const& fileName);

private:
    using Face = QList<int>; // three points, ascending

    bool hasRows() const;
    bool canGenerateFaces() const;
    void writeMesh(QIODevice& device);

    void generateFaces();
    void generateFace(int tetrahedron, qint32 const* begin, qint32 const* end, int a, int b, int c);
    int findIndexTetraWithNeighborFace(int tetrahedron, qint32 const* begin, qint32 const* end, Face face);
    int findTetraIndexContainingFace(qint32 const* begin, qint32 const* end, Face face);
    qint32 const* findTetraContainingFace(qint32 const* begin, qint32 const* end, Face face);
    bool isFaceNotPared(int tetrahedron, Face face);
    void addFaceToBoundedFaceVector(int tetrahedron, Face face);
    bool isPointInTetra(qint32 const* tetrahedron, int point);

    void writeHeader(QTextStream& stream);
    void writeArraySizes(QTextStream& stream, qint64 faceCount, qint64 boundFaceCount);
    void writePoints(QTextStream& stream);
    void writeFaces(QTextStream& stream, qint64 count, qint32 const* rows);
    void writeBoundTriangles(QTextStream& stream, qint64 count, qint32 const* rows);

    MTModelVMesh& mesh;
    QList<int> faces;               // rows as in the mesh
    QList<QList<Face>> pairedFaces; // for each tetrahedron, what a lower-numbered one has claimed as shared
    QList<int> boundFaces;          // rows as in the mesh
};
