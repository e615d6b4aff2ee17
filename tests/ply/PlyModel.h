#pragma once

#include "inhouse/data/Material.h"
#include "ply/PLYTokens.h"
#include "support/PlyFiles.h"

#include <QColor>
#include <QList>
#include <QStringList>
#include <QVector2D>
#include <QVector3D>

#include <optional>

/// What a PLY file cut to any length must give, worked out from offsets instead of by reading. Knows only
/// files of the shapes below, in which the value at place k of row i is known beforehand.
namespace ply_model {

struct Field
{
    QByteArray name;
    QByteArray type;
    int size;
};

/// Elements of a file; faces have one list of 3 entries, which is the field "list" of size 13.
struct Shape
{
    bool bigEndian = false;
    QByteArray lineEnd = "\n";
    QByteArrayList comments;
    int vertices = 0;
    QList<Field> vertexFields;
    int faces = 0;
    QList<Field> faceFields;
    QList<Field> materialFields;
    bool asCloud = false;
    bool hasFaceColors = false;
    bool hasTexture = false;
};

struct Result
{
    bool success = false;
    /// The line expected in the log, if any.
    QByteArray warning;
    QByteArray critical;
    QList<QVector3D> positions;
    QList<QVector3D> normals;
    QList<unsigned int> colors;
    QList<QVector2D> coordinates;
    QList<int> indices;
    QList<QColor> faceColors;
    std::optional<geometry::Material> material;
};

inline int rowBytes(QList<Field> const& fields)
{
    int bytes = 0;
    for (Field const& field : fields)
        bytes += field.size;
    return bytes;
}

/// The number that the file stores in field `field` of row `row`: whole, not 0, and fit for any type.
inline int valueAt(int row, int field)
{
    return 1 + (row * 7 + field * 3) % 100;
}

inline int cornerAt(Shape const& shape, int face, int corner)
{
    return (face + 1 + corner) % shape.vertices;
}

inline void putValue(support::PLYBody& body, Field const& field, int value)
{
    if (field.type == "double")
        body.f64(value);
    else if (field.type == "float")
        body.f32(static_cast<float>(value));
    else if (field.size == 4)
        body.i32(value);
    else if (field.size == 2)
        body.i16(value);
    else if (field.size == 1)
        body.u8(value);
}

inline QByteArray headerOf(Shape const& shape)
{
    auto const propertyLines = [](QList<Field> const& fields) {
        QByteArrayList lines;
        for (Field const& field : fields)
            lines +=
                field.name == "list" ? support::plyIndices[0] : "property " + field.type + ' ' + field.name;
        return lines;
    };
    QByteArrayList lines = {"ply", shape.bigEndian ? "format binary_big_endian 1.0"
                                                   : "format binary_little_endian 1.0"};
    lines += shape.comments + QByteArrayList{support::plyCount("vertex", shape.vertices)} +
             propertyLines(shape.vertexFields) + QByteArrayList{support::plyCount("face", shape.faces)} +
             propertyLines(shape.faceFields);
    if (!shape.materialFields.isEmpty())
        lines += QByteArrayList{"element velquin_material 1"} + propertyLines(shape.materialFields);
    return support::plyLines(lines + QByteArrayList{"end_header"}, shape.lineEnd);
}

inline QByteArray bodyOf(Shape const& shape)
{
    support::PLYBody body(shape.bigEndian);
    for (int row = 0; row < shape.vertices; ++row)
        for (int i = 0; i < shape.vertexFields.size(); ++i)
            putValue(body, shape.vertexFields[i], valueAt(row, i));
    for (int row = 0; row < shape.faces && !shape.asCloud; ++row)
        for (int i = 0; i < shape.faceFields.size(); ++i) {
            if (shape.faceFields[i].name == "list")
                body.triangle(cornerAt(shape, row, 0), cornerAt(shape, row, 1), cornerAt(shape, row, 2));
            else
                putValue(body, shape.faceFields[i], valueAt(row, i));
        }
    for (int i = 0; i < shape.materialFields.size(); ++i)
        putValue(body, shape.materialFields[i], valueAt(0, i));
    return body.bytes;
}

/// What the body gives when only `length` bytes of it are there.
Result cutBody(Shape const& shape, qsizetype length);
/// What a header cut to `header` gives, without any body.
Result cutHeader(Shape const& shape, QByteArray const& header);

} // namespace ply_model
