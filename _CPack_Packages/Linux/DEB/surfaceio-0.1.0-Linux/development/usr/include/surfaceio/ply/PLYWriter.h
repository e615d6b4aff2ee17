#pragma once

#include "framework/Export.h"
#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"
#include "inhouse/data/MeshHeader.h"
#include "inhouse/data/Optional.h"
#include "inhouse/data/PointCloud.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVector3D>

class QDataStream;

/// Writes a mesh or a point cloud as binary little-endian PLY, with a `velquin_material` element and the
/// metadata of a scan as comment lines where they are given.
///
/// Coordinates are written as they are (millimetres), as 32-bit floats bit for bit; indices 0-based, as
/// 32-bit integers. A value type: a copy has the same data and settings. One thread at a time uses a writer.
class SURFACEIO_EXPORT PLYWriter
{
public:
    PLYWriter() = default;
    PLYWriter(PLYWriter const&) = default;
    PLYWriter& operator=(PLYWriter const&) = default;
    virtual ~PLYWriter();

    /// Takes vertices, normals, colours and triangles of `mesh`; strips become triangles. Texture coordinates
    /// are not written. `writeAlpha` also writes the alpha of each colour.
    ///
    /// Normals and colours are written when there are any; there must then be one for each vertex at least,
    /// else writing fails. Indices are written as given.
    void setData(geometry::Mesh const& mesh, bool writeAlpha,
                 utility::Optional<geometry::Material> const& material);
    /// Takes points, normals and colours of `cloud`. Whether alpha is written, and the material, stay as they
    /// were; the cloud's own material is not taken.
    void setData(geometry::PointCloud const& cloud);
    /// The scan metadata, written as comment lines as it is, line feeds included; "®" and "™" are taken out
    /// of the scanner name. For every other character beyond ASCII the header loses as many bytes at its end
    /// as the text is longer in UTF-8 than in UTF-16 units, which makes the file unreadable.
    void setHeaderData(utility::Optional<MeshHeader> const& headerData);
    /// Where `write()` writes to.
    void setFilePath(QString const& path);
    /// What the last failure was, translated; empty before the first. A later success does not clear it.
    QString getErrorMessage() const;

    /// Writes the file, replacing an existing one. Its directory must exist. False with an error message on
    /// failure; a file written in part stays.
    bool write();
    /// Writes into `bytes`, replacing what is there. False with an error message on failure.
    bool write(QByteArray& bytes);

private:
    bool writeData(QDataStream& stream);
    bool writeHeader(QDataStream& stream) const;
    bool writeBody(QDataStream& stream) const;
    bool writeVertices(QDataStream& stream) const;
    bool writeFaces(QDataStream& stream) const;
    bool writeMaterial(QDataStream& stream) const;

    QString filePath;
    QString errorMessage;
    QList<QVector3D> vertices;
    QList<QVector3D> normals;
    QList<int> indices;
    QList<unsigned int> colors;
    bool writeAlpha = false;
    utility::Optional<geometry::Material> material;
    utility::Optional<MeshHeader> headerData;
};
