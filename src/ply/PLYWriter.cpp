#include "ply/PLYWriter.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
#include "framework/RowBlocks.h"
#include "inhouse/data/Unstrip.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QRegularExpression>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype indicesPerTriangle = 4;
constexpr quint8 corners = 3;

constexpr qsizetype vectorBytes = sizeof(QVector3D);
constexpr qsizetype faceBytes = 1 + 3 * 4;
constexpr qsizetype materialBytes = 4 * (3 + 4) + 3 * 4 + 1;

struct VertexLists
{
    QVector3D const* positions;
    QVector3D const* normals;
    unsigned int const* colors;
};

char* putVector(QVector3D const& vector, char* target)
{
    static_assert(vectorBytes == 3 * sizeof(float));
    qToLittleEndian<float>(&vector, 3, target);
    return target + vectorBytes;
}

// The rows of the vertices from `first` on.
template <bool hasNormals, std::size_t colorBytes>
void putVertices(VertexLists const& lists, qsizetype first, qsizetype count, char* target)
{
    for (qsizetype i = first; i < first + count; ++i) {
        target = putVector(lists.positions[i], target);
        if constexpr (hasNormals)
            target = putVector(lists.normals[i], target);
        if constexpr (colorBytes > 0) {
            unsigned int const color = qToLittleEndian(lists.colors[i]); // red comes first
            std::memcpy(target, &color, colorBytes);
            target += colorBytes;
        }
    }
}

// A layout of vertex rows, which no row has to ask for again.
struct VertexLayout
{
    qsizetype rowBytes;
    void (*put)(VertexLists const& lists, qsizetype first, qsizetype count, char* target);
};

template <bool hasNormals>
VertexLayout vertexLayout(std::size_t colorBytes)
{
    constexpr qsizetype coordinateBytes = (hasNormals ? 2 : 1) * vectorBytes;
    switch (colorBytes) {
    case 0:
        return {coordinateBytes, putVertices<hasNormals, 0>};
    case 3:
        return {coordinateBytes + 3, putVertices<hasNormals, 3>};
    default:
        return {coordinateBytes + 4, putVertices<hasNormals, 4>};
    }
}

// The rows of faces, of whose four entries the last is left out.
void putFaces(int const* indices, qsizetype count, char* target)
{
    for (int const* const end = indices + count * indicesPerTriangle; indices != end;
         indices += indicesPerTriangle, target += faceBytes) {
        *target = static_cast<char>(corners);
        qToLittleEndian<qint32>(indices, corners, target + 1);
    }
}

// As RowBlocks::putRows.
template <typename Put>
bool writeRows(QDataStream& stream, qsizetype count, qsizetype rowBytes, Put const& put)
{
    RowBlocks blocks(stream, rowBytes);
    return blocks.putRows(count, rowBytes, put) && blocks.write();
}

class MaterialRow
{
public:
    void put(quint8 value) { *next++ = static_cast<char>(value); }
    void put(float value)
    {
        qToLittleEndian(std::bit_cast<quint32>(value), next);
        next += sizeof(value);
    }
    void put(QColor const& color)
    {
        put(static_cast<quint8>(color.red()));
        put(static_cast<quint8>(color.green()));
        put(static_cast<quint8>(color.blue()));
    }
    bool write(QDataStream& stream) const
    {
        return stream.writeRawData(bytes.data(), materialBytes) == materialBytes;
    }

private:
    std::array<char, materialBytes> bytes;
    char* next = bytes.data();
};

void appendLines(QString& text, std::initializer_list<QLatin1StringView> lines)
{
    for (QLatin1StringView const line : lines)
        text += line + u'\n';
}

void appendScanComments(QString& text, MeshHeader const& header)
{
    QRegularExpression const marks(u"[\u00AE\u2122]"_s);
    QString const date = header.getAcquisitionDate().date().toString(Qt::ISODate);
    text += "comment scan information\n"_L1;
    text += "comment scanner name: "_L1 + header.getScannerName().remove(marks) + u'\n';
    text += "comment scanner serial: "_L1 + header.getScannerSerial() + u'\n';
    text += "comment imported: "_L1 + (header.isImported() ? u'1' : u'0') + u'\n';
    text += "comment software version: "_L1 + header.getSoftwareVersion() + u'\n';
    text += "comment acquisition date: "_L1 + date + u'\n';
}

void appendMaterialLines(QString& text)
{
    text += "element velquin_material 1\n"_L1;
    for (QLatin1StringView const group : {"ambient"_L1, "diffuse"_L1, "specular"_L1, "emissive"_L1}) {
        for (QLatin1StringView const channel : {"red"_L1, "green"_L1, "blue"_L1})
            text += "property uchar "_L1 + group + u'_' + channel + u'\n';
        text += "property float "_L1 + group + "_intensity\n"_L1;
    }
    appendLines(text, {"property float shininess"_L1, "property float transparency"_L1,
                       "property float base_reflectance"_L1, "property uchar detail_noise"_L1});
}

bool reportStep(bool success, char const* text, QDataStream const& stream)
{
    if (!success)
        qWarning() << text << int(stream.status());
    return success;
}

} // namespace

PLYWriter::~PLYWriter() = default;

void PLYWriter::setData(geometry::Mesh const& mesh, bool writeAlpha_,
                        utility::Optional<geometry::Material> const& material_)
{
    geometry::Mesh const triangles = geometry::unstrip(mesh);
    vertices = triangles.vertices;
    normals = triangles.normals;
    indices = triangles.indices;
    colors = triangles.colors;
    writeAlpha = writeAlpha_;
    material = material_;
}

void PLYWriter::setData(geometry::PointCloud const& cloud)
{
    vertices = cloud.positions;
    normals = cloud.normals;
    indices.clear();
    colors = cloud.colors();
}

void PLYWriter::setHeaderData(utility::Optional<MeshHeader> const& header)
{
    headerData = header;
}

void PLYWriter::setFilePath(QString const& path)
{
    filePath = path;
}

QString PLYWriter::getErrorMessage() const
{
    return errorMessage;
}

bool PLYWriter::write()
{
    QFile file(filePath);
    if (file.exists())
        file.remove();
    if (!files::open(file, QIODevice::WriteOnly)) {
        errorMessage = QCoreApplication::translate("PLYWriter", "Unable to create .ply file at location: %1")
                           .arg(filePath);
        return false;
    }
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_5_15);
    if (!writeData(stream))
        return false;
    // A full disk shows only when the last bytes leave the file's buffer.
    if (file.flush())
        return true;
    errorMessage = QCoreApplication::translate("PLYWriter", "Could not write data to file at location: %1")
                       .arg(filePath);
    return false;
}

bool PLYWriter::write(QByteArray& bytes)
{
    // Without Truncate the end of a longer content would stay.
    QDataStream stream(&bytes, QIODevice::WriteOnly | QIODevice::Truncate);
    stream.setVersion(QDataStream::Qt_5_15);
    return writeData(stream);
}

bool PLYWriter::writeData(QDataStream& stream)
{
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    stream.setByteOrder(QDataStream::LittleEndian);
    if (!memory::succeeds([&] { return writeHeader(stream); })) {
        errorMessage =
            QCoreApplication::translate("PLYWriter", "Could not write header to file at location: %1")
                .arg(filePath);
        return false;
    }
    if (!memory::succeeds([&] { return writeBody(stream); })) {
        errorMessage =
            QCoreApplication::translate("PLYWriter", "Could not write data to file at location: %1")
                .arg(filePath);
        return false;
    }
    return true;
}

bool PLYWriter::writeHeader(QDataStream& stream) const
{
    QString text;
    appendLines(text, {"ply"_L1, "format binary_little_endian 1.0"_L1});
    if (headerData)
        appendScanComments(text, *headerData);
    text += u"element vertex %1\n"_s.arg(vertices.size());
    appendLines(text, {"property float x"_L1, "property float y"_L1, "property float z"_L1});
    if (!normals.isEmpty())
        appendLines(text, {"property float nx"_L1, "property float ny"_L1, "property float nz"_L1});
    if (!colors.isEmpty())
        appendLines(text, {"property uchar red"_L1, "property uchar green"_L1, "property uchar blue"_L1});
    if (!colors.isEmpty() && writeAlpha)
        appendLines(text, {"property uchar alpha"_L1});
    text += u"element face %1\n"_s.arg(indices.size() / indicesPerTriangle);
    appendLines(text, {"property list uchar int vertex_index"_L1});
    if (material)
        appendMaterialLines(text);
    appendLines(text, {"end_header"_L1});

    // The length counts UTF-16 units, not bytes: text beyond ASCII costs the header its end.
    QByteArray const bytes = text.toUtf8();
    return stream.writeRawData(bytes.constData(), static_cast<int>(text.size())) == text.size();
}

bool PLYWriter::writeBody(QDataStream& stream) const
{
    return reportStep(writeVertices(stream), "PLYWriter: failed to write vertices -", stream) &&
           reportStep(writeFaces(stream), "PLYWriter: failed to write faces -", stream) &&
           (!material || reportStep(writeMaterial(stream), "PLYWriter: failed to write material -", stream));
}

bool PLYWriter::writeVertices(QDataStream& stream) const
{
    bool const hasNormals = !normals.isEmpty();
    bool const hasColors = !colors.isEmpty();
    if ((hasNormals && normals.size() < vertices.size()) || (hasColors && colors.size() < vertices.size()))
        return false;
    std::size_t const colorBytes = !hasColors ? 0 : writeAlpha ? 4 : 3;
    VertexLayout const layout = hasNormals ? vertexLayout<true>(colorBytes) : vertexLayout<false>(colorBytes);
    VertexLists const lists = {vertices.constData(), normals.constData(), colors.constData()};
    return writeRows(
        stream, vertices.size(), layout.rowBytes,
        [&](qsizetype first, qsizetype count, char* target) { layout.put(lists, first, count, target); });
}

bool PLYWriter::writeFaces(QDataStream& stream) const
{
    return writeRows(stream, indices.size() / indicesPerTriangle, faceBytes,
                     [&](qsizetype first, qsizetype count, char* target) {
                         putFaces(indices.constData() + first * indicesPerTriangle, count, target);
                     });
}

bool PLYWriter::writeMaterial(QDataStream& stream) const
{
    MaterialRow row;
    row.put(material->ambientColor);
    row.put(material->ambientIntensity);
    row.put(material->diffuseColor);
    row.put(material->diffuseIntensity);
    row.put(material->specularColor);
    row.put(material->specularIntensity);
    row.put(material->emissiveColor);
    row.put(material->emissiveIntensity);
    row.put(material->shininess);
    row.put(material->transparency);
    row.put(material->baseReflectance);
    row.put(static_cast<quint8>(material->detailNoise ? 1 : 0));
    return row.write(stream);
}
