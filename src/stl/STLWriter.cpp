#include "stl/STLWriter.h"

#include "framework/ScanMetadata.h"
#include "inhouse/data/Unstrip.h"
#include "stl/STLLayout.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace {

void makeDirectoryOf(QFile const& file)
{
    QString const directory = QFileInfo(file).absoluteDir().path();
    if (!QDir(directory).exists())
        QDir().mkpath(directory);
}

// A file keeps its last bytes in a buffer; a full disk shows only once they go out.
void flush(QDataStream& stream)
{
    auto* const file = qobject_cast<QFileDevice*>(stream.device());
    if (file && !file->flush())
        stream.setStatus(QDataStream::WriteFailed);
}

// Returns where the next one goes.
char* putPoint(QVector3D const& point, char* target)
{
    for (int axis = 0; axis < 3; ++axis, target += stl::floatBytes)
        qToLittleEndian(point[axis], target);
    return target;
}

} // namespace

STLWriter::~STLWriter() = default;

void STLWriter::setData(geometry::Mesh const& mesh_, unsigned char firstAttributeByte_,
                        unsigned char secondAttributeByte_)
{
    mesh = geometry::unstrip(mesh_);
    firstAttributeByte = firstAttributeByte_;
    secondAttributeByte = secondAttributeByte_;
}

void STLWriter::setHeaderData(utility::Optional<MeshHeader> header_)
{
    header = std::move(header_);
}

void STLWriter::setFilePath(QString const& path)
{
    filePath = path;
}

bool STLWriter::write()
{
    QFile file(filePath);
    // Qt logs what is asked of an empty name.
    bool const isNamed = !filePath.isEmpty();
    if (isNamed)
        makeDirectoryOf(file);
    if (isNamed && file.exists())
        file.remove();
    if (!isNamed || !file.open(QIODevice::WriteOnly)) {
        errorMessage = QObject::tr("Unable to create .stl file at location: %1").arg(filePath);
        return false;
    }
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_5_15);
    return writeData(stream);
}

bool STLWriter::write(QByteArray& out)
{
    QDataStream stream(&out, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    try {
        return writeData(stream);
    } catch (std::bad_alloc const&) {
        errorMessage = QObject::tr("Writing failed!");
        return false;
    }
}

QString STLWriter::getErrorMessage() const
{
    return errorMessage;
}

bool STLWriter::writeData(QDataStream& stream)
{
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    stream.setByteOrder(QDataStream::LittleEndian);
    QByteArray const start = header ? conversions::toByteArray(*header) : QByteArray(stl::headerBytes, '\0');
    stream.writeRawData(start.constData(), stl::headerBytes);
    stream << qint32(mesh.getNumIndices() / stl::indicesPerTriangle);
    if (mesh.isNull()) {
        errorMessage = QObject::tr("Member variable(s) not set.");
        return false;
    }
    writeTriangles(mesh, stream);
    flush(stream);
    if (stream.status() == QDataStream::WriteFailed) {
        errorMessage = QObject::tr("Writing failed!");
        return false;
    }
    return true;
}

void STLWriter::writeTriangles(geometry::Mesh const& triangles, QDataStream& stream) const
{
    constexpr int corners = 3;
    QList<QVector3D> const& vertices = triangles.vertices;
    auto const isOutside = [&](int index) { return index < 0 || index >= vertices.size(); };
    for (int i = 0; i < triangles.getNumIndices(); i += stl::indicesPerTriangle) {
        int const* const face = triangles.getIndices() + i;
        if (triangles.getNumIndices() - i < corners || std::any_of(face, face + corners, isOutside))
            return stream.setStatus(QDataStream::WriteFailed);
        writeFace(vertices[face[0]], vertices[face[1]], vertices[face[2]], stream);
    }
}

void STLWriter::writeFace(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3,
                          QDataStream& stream) const
{
    // One write for each facet: one for each number takes several times as long.
    std::array<char, stl::facetBytes> facet;
    char* next = facet.data();
    for (QVector3D const& point : {QVector3D::normal(p1, p2, p3), p1, p2, p3})
        next = putPoint(point, next);
    *next++ = static_cast<char>(firstAttributeByte);
    *next = static_cast<char>(secondAttributeByte);
    stream.writeRawData(facet.data(), stl::facetBytes);
}
