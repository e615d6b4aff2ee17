#pragma once

#include "ply/PLYTokens.h"
#include "support/PlyFiles.h"

#include <QList>
#include <QVector3D>

/// What the tests of `PLYReader` share.
namespace ply_test {

inline QList<QVector3D> const corners = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
inline QList<int> const oneTriangle = {0, 1, 2, -1};

/// A token of the type.
inline QByteArray typeName(ply::Type type)
{
    for (auto const& token : ply::typeTokens)
        if (token.value == type)
            return {token.name.data(), token.name.size()};
    return "nothing";
}

inline QByteArray propertyLine(ply::Type type, char const* name)
{
    return "property " + typeName(type) + ' ' + name;
}

/// A number in the encoding of `type`; nothing for the types that take no bytes.
inline void put(support::PLYBody& body, ply::Type type, double value)
{
    switch (type) {
    case ply::UInt8:
        body.u8(static_cast<int>(value));
        break;
    case ply::Int16:
        body.i16(static_cast<int>(value));
        break;
    case ply::Int32:
    case ply::UInt32:
        body.u32(static_cast<quint32>(static_cast<qint64>(value)));
        break;
    case ply::Float32:
        body.f32(static_cast<float>(value));
        break;
    case ply::Float64:
        body.f64(value);
        break;
    default:
        break;
    }
}

/// The header of one face over the three corners, with more properties of the vertices and these of the
/// face; `tail` stands behind each position, then comes `face`.
inline QByteArray triangleWith(QByteArrayList const& vertexProperties, QByteArrayList const& faceProperties,
                               QByteArray const& tail, QByteArray const& face)
{
    using namespace support;
    QByteArray file =
        plyLines(plyStart + QByteArrayList{plyCount("vertex", 3)} + plyPosition + vertexProperties +
                 QByteArrayList{plyCount("face", 1)} + faceProperties + QByteArrayList{"end_header"});
    for (QVector3D const& corner : corners)
        file += PLYBody().f32({corner.x(), corner.y(), corner.z()}).bytes + tail;
    return file + face;
}

} // namespace ply_test
