#include "stl/STLWriter.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "framework/RowBlocks.h"
#include "framework/ScanMetadata.h"
#include "inhouse/data/Unstrip.h"
#include "stl/STLFacetBlock.h"
#include "stl/STLLayout.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>
#include <span>
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

QString writingFailed()
{
    return QCoreApplication::translate("STLWriter", "Writing failed!");
}

// Want of memory is a failure to write.
template <typename Step>
bool succeeds(Step const& step, QString& errorMessage)
{
    using Verdict = std::optional<bool>;
    Verdict const verdict = memory::resultOr(Verdict(), [&step] { return Verdict(step()); });
    if (!verdict)
        errorMessage = writingFailed();
    return verdict.value_or(false);
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
    return succeeds([&] { return writeData(stream); }, errorMessage);
}

bool STLWriter::write(QByteArray& out)
{
    QDataStream stream(&out, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    return succeeds([&] { return writeData(stream); }, errorMessage);
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
        errorMessage = writingFailed();
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

// The index up to which all is written, or tried on a device that takes no more.
int STLWriter::writeBlocks(geometry::Mesh const& triangles, QDataStream& stream) const
{
    auto const count = static_cast<std::size_t>(triangles.getNumIndices());
    std::span<int const> left(triangles.getIndices(), count - count % stl::indicesPerTriangle);
    RowBlocks blocks(stream, stl::facetBytes);
    bool isGood = true;
    while (isGood && !left.empty()) {
        std::span<char> const room = blocks.room();
        std::size_t const facets =
            std::min(room.size() / stl::facetBytes, left.size() / stl::indicesPerTriangle);
        auto const faces = left.first(facets * stl::indicesPerTriangle);
        if (!stl::areFaces(faces, triangles.vertices.size()))
            break;
        stl::putFacets(faces, triangles.vertices.constData(), {firstAttributeByte, secondAttributeByte},
                       room.data());
        isGood = blocks.take(static_cast<qsizetype>(facets) * stl::facetBytes);
        left = left.subspan(faces.size());
    }
    blocks.write();
    return static_cast<int>(left.data() - triangles.getIndices());
}

void STLWriter::writeFace(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3,
                          QDataStream& stream) const
{
    std::array<char, stl::facetBytes> facet;
    stl::putFacet(p1, p2, p3, {firstAttributeByte, secondAttributeByte}, facet.data());
    stream.writeRawData(facet.data(), stl::facetBytes);
}
