#include "ply/PLYWriter.h"

#include "framework/FileAccess.h"
#include "framework/MemoryGuard.h"
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
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype indicesPerTriangle = 4;
constexpr quint8 corners = 3;

constexpr qsizetype longestVertexBytes = 2 * 3 * 4 + 4;
constexpr qsizetype faceBytes = 1 + 3 * 4;
constexpr qsizetype materialBytes = 4 * (3 + 4) + 3 * 4 + 1;

// Rows of the body, many of them gathered for one write.
class Rows
{
public:
    explicit Rows(QDataStream& stream_)
        : stream(stream_)
        , bytes(blockBytes + longestRow, Qt::Uninitialized)
        , next(bytes.data())
    {}

    void put(quint8 value) { *next++ = static_cast<char>(value); }
    void put(int value) { putWord(static_cast<quint32>(value)); }
    void put(float value) { putWord(std::bit_cast<quint32>(value)); }
    void put(QVector3D const& vector)
    {
        static_assert(sizeof(QVector3D) == 3 * sizeof(float));
        qToLittleEndian<float>(&vector, 3, next);
        next += sizeof(QVector3D);
    }
    void put(QColor const& color)
    {
        put(static_cast<quint8>(color.red()));
        put(static_cast<quint8>(color.green()));
        put(static_cast<quint8>(color.blue()));
    }

    /// To be called behind each row. False when a block could not be written.
    bool endRow() { return next - bytes.constData() < blockBytes || write(); }
    /// What is still gathered.
    bool write()
    {
        auto const size = static_cast<int>(next - bytes.constData());
        next = bytes.data();
        return size == 0 || stream.writeRawData(bytes.constData(), size) == size;
    }

private:
    static constexpr qsizetype blockBytes = 64 * 1024;
    static constexpr qsizetype longestRow = std::max({longestVertexBytes, faceBytes, materialBytes});

    void putWord(quint32 value)
    {
        qToLittleEndian(value, next);
        next += sizeof(value);
    }

    QDataStream& stream;
    QByteArray bytes;
    char* next;
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
    Rows rows(stream);
    for (qsizetype i = 0; i < vertices.size(); ++i) {
        rows.put(vertices[i]);
        if (hasNormals)
            rows.put(normals[i]);
        for (int shift = 0; hasColors && shift < (writeAlpha ? 32 : 24); shift += 8)
            rows.put(static_cast<quint8>(colors[i] >> shift));
        if (!rows.endRow())
            return false;
    }
    return rows.write();
}

bool PLYWriter::writeFaces(QDataStream& stream) const
{
    Rows rows(stream);
    for (qsizetype i = 0; i + indicesPerTriangle <= indices.size(); i += indicesPerTriangle) {
        rows.put(corners);
        rows.put(indices[i]);
        rows.put(indices[i + 1]);
        rows.put(indices[i + 2]);
        if (!rows.endRow())
            return false;
    }
    return rows.write();
}

bool PLYWriter::writeMaterial(QDataStream& stream) const
{
    Rows rows(stream);
    rows.put(material->ambientColor);
    rows.put(material->ambientIntensity);
    rows.put(material->diffuseColor);
    rows.put(material->diffuseIntensity);
    rows.put(material->specularColor);
    rows.put(material->specularIntensity);
    rows.put(material->emissiveColor);
    rows.put(material->emissiveIntensity);
    rows.put(material->shininess);
    rows.put(material->transparency);
    rows.put(material->baseReflectance);
    rows.put(static_cast<quint8>(material->detailNoise ? 1 : 0));
    return rows.write();
}
