#pragma once

#include "framework/Export.h"
#include "vmesh/MTModelVMesh.h"

#include <QString>

#include <array>

class QIODevice;

/// Reads a ".vmesh" file of type "Labeled" into an `MTModelVMesh`.
///
/// What a line means follows from its number alone: header, sizes, points, faces, bound faces; the rest is
/// ignored. The file lists no tetrahedra: they are put together from the faces. docs/formats/vmesh.md has the
/// grammar.
///
/// Failures are results, never exceptions; the reason goes to Qt's message log. One thread uses a parser at a
/// time; different parsers are independent. A copy shares the arrays of the original.
class SURFACEIO_EXPORT MTModelVMeshParser
{
public:
    /// Remembers the path of the file to read, without opening anything.
    explicit MTModelVMeshParser(QString const& fileName);
    MTModelVMeshParser(MTModelVMeshParser const&) = default;
    MTModelVMeshParser& operator=(MTModelVMeshParser const&) = default;
    virtual ~MTModelVMeshParser();

    /// Reads the whole file. On success every array of the record has exactly the length that the counts of
    /// the file say. What the rows refer to is not checked: indices may lie outside of the mesh, slots of a
    /// tetrahedron may still be -1.
    ///
    /// False, with an empty record, when a line cannot be parsed, which the log names. Counts are believed
    /// only as far as there are lines: a file that is too short fails at the line after its last. A negative
    /// count, and a number of tetrahedra that would take more than 64 MiB and 64 times the size of the file,
    /// make the sizes line malformed. False, with the record as it was, when there is no file to open.
    bool read();

    /// What the last `read` made of the file. The copy shares its arrays with the parser; a later `read`
    /// makes new ones and leaves these alone.
    MTModelVMesh getVMesh() const;

private:
    /// Parses the lines of a device, up to the line number that comes out. False when that line is malformed.
    using Walk = bool (MTModelVMeshParser::*)(QIODevice& device, qint64& lineNumber);

    struct Steps;

    bool readWith(Walk walk);
    bool walkSafely(Walk walk, QIODevice& device, qint64& lineNumber);
    bool readText(QIODevice& device, qint64& lineNumber);
    bool readBytes(QIODevice& device, qint64& lineNumber);
    qint64 lastRowLine() const;
    char const* readRow(char const* row, qint64 lineNumber);
    bool parseLine(QString const& line, qint64 lineNumber);
    bool readHeader(QString const& line);
    bool readArraySizes(QString const& line);
    bool readPoint(QString const& line, qint64 index);
    bool readFace(QString const& line, qint64 index);
    bool readBoundFace(QString const& line, qint64 index);
    void readTetrahedrons(qint32 t1, qint32 t2, qint32 a, qint32 b, qint32 c);
    void readTetrahedron(qint32 t, qint32 a, qint32 b, qint32 c);
    void readTriangle(qint32 t1, qint32 t2, qint32 a, qint32 b, qint32 c);
    void clear();

    bool storePoint(qint64 index, std::array<float, 3> const& point);
    bool storeFace(qint64 index, std::array<qint32, 5> const& face);
    bool storeBoundFace(qint64 index, std::array<qint32, 5> const& face);
    bool makeArrays();
    bool makeRoomForPoints();
    bool makeRoomForFaces();
    bool makeRoomForBoundFaces();

    QString fileName;
    MTModelVMesh mesh;
    qint32 facesRead = 0;
    qint32 boundFacesRead = 0;

    /// How many rows the arrays have room for while a file is being read.
    struct Room
    {
        qint64 fileBytes = 0;
        qint64 points = 0;
        qint64 faces = 0;
        qint64 boundFaces = 0;
    };
    Room room;
};
