#pragma once

#include "inhouse/data/Material.h"
#include "inhouse/data/Mesh.h"

#include <QByteArray>
#include <QString>
#include <QtEndian>

#include <bit>

namespace support {

/// The bytes of shape-tree records, value by value (not by the writer under test).
class ShapeTreeBytes
{
public:
    ShapeTreeBytes& u8(int value)
    {
        bytes.append(static_cast<char>(value));
        return *this;
    }
    ShapeTreeBytes& u16(int value) { return put(static_cast<quint16>(value)); }
    ShapeTreeBytes& u32(quint32 value) { return put(value); }
    ShapeTreeBytes& f32(float value) { return put(std::bit_cast<quint32>(value)); }
    ShapeTreeBytes& text(QString const& value)
    {
        u32(static_cast<quint32>(value.size()));
        for (QChar const c : value)
            u16(c.unicode());
        return *this;
    }
    ShapeTreeBytes& mesh(geometry::Mesh const& mesh)
    {
        return points(mesh.vertices).points(mesh.normals).words(mesh.indices).words(mesh.colors).uvs(mesh);
    }
    ShapeTreeBytes& emptyMesh() { return u32(0).u32(0).u32(0).u32(0).u32(0); }
    ShapeTreeBytes& color(int valid, int red, int green, int blue, int alpha)
    {
        return u8(valid).u16(red).u16(green).u16(blue).u16(alpha);
    }
    /// Four times the colour, the numbers from 1 to 7, and the flag.
    ShapeTreeBytes& material(int detailNoise)
    {
        for (int i = 0; i < 4; ++i)
            color(1, 0x1122, 0x3344, 0x5566, 0x7788);
        for (int i = 1; i <= 7; ++i)
            f32(static_cast<float>(i));
        return u8(detailNoise);
    }
    /// A node without a shape.
    ShapeTreeBytes& node(QString const& name, quint32 children) { return text(name).u8(0).u32(children); }

    QByteArray bytes;

private:
    template <typename Word>
    ShapeTreeBytes& put(Word value)
    {
        Word const stored = qToLittleEndian(value);
        bytes.append(reinterpret_cast<char const*>(&stored), sizeof(stored));
        return *this;
    }
    ShapeTreeBytes& points(QList<QVector3D> const& list)
    {
        u32(static_cast<quint32>(list.size()));
        for (QVector3D const& point : list)
            f32(point.x()).f32(point.y()).f32(point.z());
        return *this;
    }
    template <typename Value>
    ShapeTreeBytes& words(QList<Value> const& list)
    {
        u32(static_cast<quint32>(list.size()));
        for (Value const value : list)
            u32(static_cast<quint32>(value));
        return *this;
    }
    ShapeTreeBytes& uvs(geometry::Mesh const& mesh)
    {
        u32(static_cast<quint32>(mesh.textureCoordinates.size()));
        for (QVector2D const& point : mesh.textureCoordinates)
            f32(point.x()).f32(point.y());
        return *this;
    }
};

/// The material that `ShapeTreeBytes::material(0)` describes.
inline geometry::Material shapeTreeMaterial()
{
    QColor const color = QColor::fromRgba64(0x1122, 0x3344, 0x5566, 0x7788);
    return {color, color, color, color, 1, 2, 3, 4, 5, 6, 7, false};
}

/// The header of a file of that version.
inline QByteArray shapeTreeHeader(quint32 major, quint32 minor)
{
    QByteArray numbers(8, '\0');
    qToBigEndian(major, numbers.data());
    qToBigEndian(minor, numbers.data() + 4);
    return QByteArray("\x26\0\0\0{3D7A9E42-6B1C-4F08-9E35-A2C4D6F81B07}", 42) + numbers;
}

} // namespace support
