#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QtEndian>

#include <bit>
#include <initializer_list>

namespace support {

/// The body of a PLY file, value by value, in one byte order.
class PLYBody
{
public:
    explicit PLYBody(bool bigEndian_ = false)
        : bigEndian(bigEndian_)
    {}

    PLYBody& u8(int value) { return put(static_cast<quint8>(value)); }
    PLYBody& i16(int value) { return put(static_cast<quint16>(value)); }
    PLYBody& i32(int value) { return put(static_cast<quint32>(value)); }
    PLYBody& u32(quint32 value) { return put(value); }
    PLYBody& f32(float value) { return put(std::bit_cast<quint32>(value)); }
    PLYBody& f64(double value) { return put(std::bit_cast<quint64>(value)); }
    PLYBody& f32(std::initializer_list<float> values)
    {
        for (float const value : values)
            f32(value);
        return *this;
    }
    PLYBody& u8(std::initializer_list<int> values)
    {
        for (int const value : values)
            u8(value);
        return *this;
    }
    /// A face as most files store it: the count as a byte, three 32-bit indices.
    PLYBody& triangle(int a, int b, int c) { return u8(3).i32(a).i32(b).i32(c); }

    QByteArray bytes;

private:
    template <typename Word>
    PLYBody& put(Word value)
    {
        Word const stored = bigEndian ? qToBigEndian(value) : qToLittleEndian(value);
        bytes.append(reinterpret_cast<char const*>(&stored), sizeof(stored));
        return *this;
    }

    bool bigEndian;
};

/// The lines, each ended by `lineEnd`.
inline QByteArray plyLines(QByteArrayList const& lines, QByteArray const& lineEnd = "\n")
{
    return lines.isEmpty() ? QByteArray() : lines.join(lineEnd) + lineEnd;
}

inline QByteArrayList const plyStart = {"ply", "format binary_little_endian 1.0"};
inline QByteArrayList const plyPosition = {"property float x", "property float y", "property float z"};
inline QByteArrayList const plyNormal = {"property float nx", "property float ny", "property float nz"};
inline QByteArrayList const plyColor = {"property uchar red", "property uchar green", "property uchar blue"};
inline QByteArrayList const plyIndices = {"property list uchar int vertex_indices"};
inline QByteArrayList const plyMaterial = {
    "element velquin_material 1",        "property uchar ambient_red",
    "property uchar ambient_green",      "property uchar ambient_blue",
    "property float ambient_intensity",  "property uchar diffuse_red",
    "property uchar diffuse_green",      "property uchar diffuse_blue",
    "property float diffuse_intensity",  "property uchar specular_red",
    "property uchar specular_green",     "property uchar specular_blue",
    "property float specular_intensity", "property uchar emissive_red",
    "property uchar emissive_green",     "property uchar emissive_blue",
    "property float emissive_intensity", "property float shininess",
    "property float transparency",       "property float base_reflectance",
    "property uchar detail_noise",
};

inline QByteArray plyCount(char const* element, int count)
{
    return QByteArray("element ") + element + ' ' + QByteArray::number(count);
}

/// A whole header for triangles over vertices with these properties.
inline QByteArray plyHeader(int vertices, QByteArrayList const& properties, int faces,
                            QByteArrayList const& more = {})
{
    return plyLines(plyStart + QByteArrayList{plyCount("vertex", vertices)} + properties +
                    QByteArrayList{plyCount("face", faces)} + plyIndices + more +
                    QByteArrayList{"end_header"});
}

/// One triangle over three vertices, nothing else.
inline QByteArray plyTriangle()
{
    return plyHeader(3, plyPosition, 1) + PLYBody().f32({0, 0, 0, 1, 0, 0, 0, 1, 0}).triangle(0, 1, 2).bytes;
}

} // namespace support
