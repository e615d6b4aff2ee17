#pragma once

#include "framework/Export.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/data/MeshHeader.h"
#include "inhouse/data/Optional.h"

#include <QByteArray>
#include <QString>

QT_FORWARD_DECLARE_CLASS(QDataStream)

/// Writes one mesh as binary STL, little-endian, coordinates as they are (millimetres).
///
/// Configure it with `setData`, and where wanted with `setHeaderData` and `setFilePath`, then `write`; the
/// same writer may write again. Facet normals are computed from the corners, so the winding decides their
/// direction; a degenerate facet has the normal (0, 0, 0). The normals, colours and texture coordinates of
/// the mesh are not written.
///
/// A failure is a false result with a text in `getErrorMessage`; nothing is logged. A value type; one thread
/// uses an instance at a time.
class SURFACEIO_EXPORT STLWriter
{
public:
    STLWriter() = default;
    STLWriter(STLWriter const&) = default;
    STLWriter& operator=(STLWriter const&) = default;
    virtual ~STLWriter();

    /// Keeps a copy of `mesh`, its strips expanded into triangles, and the two bytes that end each facet. A
    /// file with bytes (a, b) is read back as a surface of subTag a and tag b.
    void setData(geometry::Mesh const& mesh, unsigned char firstAttributeByte,
                 unsigned char secondAttributeByte);
    /// The metadata for the first 80 bytes (see `conversions::toByteArray`); empty makes them zeros.
    void setHeaderData(utility::Optional<MeshHeader> header);
    /// The path that the next `write()` writes to.
    void setFilePath(QString const& path);

    /// Writes the file at the path set. Missing directories are made, with all parents; a file that is there
    /// is removed before the new one is opened, so a failure does not bring it back. What a failure has
    /// written stays.
    ///
    /// Fails when the file cannot be made, when the mesh has no vertices (after 84 bytes: the header and the
    /// number of its facets), when a byte cannot be written, and at the first facet with an index outside
    /// the mesh, which counts as a byte that cannot be written.
    bool write();
    /// Writes over the start of `out`, failing as above. A longer array keeps its end: pass an empty one.
    bool write(QByteArray& out);
    /// Why the last failed write failed, translated; a later success does not clear it.
    QString getErrorMessage() const;

private:
    bool writeData(QDataStream& stream);
    void writeTriangles(geometry::Mesh const& mesh, QDataStream& stream) const;
    static bool isFace(geometry::Mesh const& mesh, int index);
    int writeBlocks(geometry::Mesh const& mesh, QDataStream& stream) const;
    void writeFace(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3, QDataStream& stream) const;

    QString filePath;
    QString errorMessage;
    geometry::Mesh mesh;
    unsigned char firstAttributeByte = 0;
    unsigned char secondAttributeByte = 0;
    utility::Optional<MeshHeader> header;
};
