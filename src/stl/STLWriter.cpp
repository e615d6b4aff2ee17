#include "stl/STLWriter.h"

#include "framework/FileAccess.h"
#include "framework/ScanMetadata.h"
#include "inhouse/data/Unstrip.h"
#include "stl/STLLayout.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
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
    static_assert(sizeof(QVector3D) == 3 * stl::floatBytes);
    qToLittleEndian<float>(&point, 3, target);
    return target + sizeof(QVector3D);
}

using Points = std::array<QVector3D, 3>;

// Returns where the next facet goes.
char* putFacet(Points const& points, unsigned char firstAttribute, unsigned char secondAttribute,
               char* target)
{
    target = putPoint(QVector3D::normal(points[0], points[1], points[2]), target);
    for (QVector3D const& point : points)
        target = putPoint(point, target);
    *target++ = static_cast<char>(firstAttribute);
    *target++ = static_cast<char>(secondAttribute);
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
    if (!filePath.isEmpty()) // Qt logs what is asked of an empty name
        makeDirectoryOf(file);
    if (file.exists())
        file.remove();
    if (!files::open(file, QIODevice::WriteOnly)) {
        errorMessage = QCoreApplication::translate("STLWriter", "Unable to create .stl file at location: %1")
                           .arg(filePath);
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
        errorMessage = QCoreApplication::translate("STLWriter", "Writing failed!");
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
        errorMessage = QCoreApplication::translate("STLWriter", "Member variable(s) not set.");
        return false;
    }
    writeTriangles(mesh, stream);
    flush(stream);
    if (stream.status() == QDataStream::WriteFailed) {
        errorMessage = QCoreApplication::translate("STLWriter", "Writing failed!");
        return false;
    }
    return true;
}

// Whole blocks of facets with one write each; the rest, and what follows a broken one, facet by facet.
void STLWriter::writeTriangles(geometry::Mesh const& triangles, QDataStream& stream) const
{
    int const count = triangles.getNumIndices();
    for (int i = writeBlocks(triangles, stream); i < count; i += stl::indicesPerTriangle) {
        int const* const face = triangles.getIndices() + i;
        if (!isFace(triangles, i))
            return stream.setStatus(QDataStream::WriteFailed);
        writeFace(triangles.vertices[face[0]], triangles.vertices[face[1]], triangles.vertices[face[2]],
                  stream);
    }
}

bool STLWriter::isFace(geometry::Mesh const& triangles, int index)
{
    constexpr int corners = 3;
    int const* const face = triangles.getIndices() + index;
    auto const isOutside = [&](int corner) { return corner < 0 || corner >= triangles.vertices.size(); };
    return triangles.getNumIndices() - index >= corners && std::none_of(face, face + corners, isOutside);
}

// The index up to which all is written.
int STLWriter::writeBlocks(geometry::Mesh const& triangles, QDataStream& stream) const
{
    constexpr int facetsAtOnce = 1024;
    constexpr int indicesAtOnce = facetsAtOnce * stl::indicesPerTriangle;
    std::array<char, facetsAtOnce * stl::facetBytes> block;
    QVector3D const* const vertices = triangles.vertices.constData();
    int const* const indices = triangles.getIndices();
    int begin = 0;
    for (; triangles.getNumIndices() - begin >= indicesAtOnce; begin += indicesAtOnce) {
        char* next = block.data();
        for (int i = begin; i < begin + indicesAtOnce; i += stl::indicesPerTriangle) {
            if (!isFace(triangles, i))
                return begin;
            next = putFacet({vertices[indices[i]], vertices[indices[i + 1]], vertices[indices[i + 2]]},
                            firstAttributeByte, secondAttributeByte, next);
        }
        stream.writeRawData(block.data(), static_cast<int>(block.size()));
    }
    return begin;
}

void STLWriter::writeFace(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3,
                          QDataStream& stream) const
{
    std::array<char, stl::facetBytes> facet;
    putFacet({p1, p2, p3}, firstAttributeByte, secondAttributeByte, facet.data());
    stream.writeRawData(facet.data(), stl::facetBytes);
}
