#include "support/StlFiles.h"

#include <QTextStream>
#include <QtEndian>

#include <bit>

namespace support {

namespace {

QByteArray word(quint32 value)
{
    QByteArray bytes(sizeof(quint32), Qt::Uninitialized);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray pointBytes(QVector3D const& point)
{
    return word(std::bit_cast<quint32>(point.x())) + word(std::bit_cast<quint32>(point.y())) +
           word(std::bit_cast<quint32>(point.z()));
}

QByteArray vertexLine(QVector3D const& point)
{
    auto const number = [](float value) { return ' ' + QByteArray::number(double(value), 'g', 9); };
    return "      vertex" + number(point.x()) + number(point.y()) + number(point.z()) + '\n';
}

} // namespace

StlFacet loneFacet(int number, int subTagByte, int tagByte)
{
    float const x = 10.0f * static_cast<float>(number);
    return {{x + 0.5f, 1, 2}, {x + 1.25f, 3, 4}, {x + 2, 5, 7}, subTagByte, tagByte};
}

QByteArray facetBytes(StlFacet const& facet)
{
    return pointBytes({7, 8, 9}) + pointBytes(facet.a) + pointBytes(facet.b) + pointBytes(facet.c) +
           static_cast<char>(facet.subTagByte) + static_cast<char>(facet.tagByte);
}

QByteArray binaryStl(QList<StlFacet> const& facets, QByteArray const& header)
{
    QByteArray bytes = header + word(static_cast<quint32>(facets.size()));
    for (StlFacet const& facet : facets)
        bytes += facetBytes(facet);
    return bytes;
}

QByteArray binaryStl(quint32 count, QByteArray const& body)
{
    return QByteArray(80, '\0') + word(count) + body;
}

QByteArray asciiStl(QList<StlFacet> const& facets)
{
    QByteArray text = "solid test\n";
    for (StlFacet const& facet : facets)
        text += "  facet normal 7 8 9\n    outer loop\n" + vertexLine(facet.a) + vertexLine(facet.b) +
                vertexLine(facet.c) + "    endloop\n  endfacet\n";
    return text + "endsolid test\n";
}

QList<QVector3D> cornersOf(QList<StlFacet> const& facets)
{
    QList<QVector3D> corners;
    for (StlFacet const& facet : facets)
        corners << facet.a << facet.b << facet.c;
    return corners;
}

QList<QVector3D> cornersOf(geometry::Mesh const& mesh)
{
    QList<QVector3D> corners;
    for (int const index : mesh.indices)
        if (index >= 0)
            corners << mesh.vertices.at(index);
    return corners;
}

quint32 wrappingCount(quint32 size, bool isNegative)
{
    // 25 * inverse == 1 modulo 2^32, so that 50 * (half * inverse) == 2 * half, and adding 2^31 adds 50 *
    // 2^31.
    constexpr quint32 inverse = 3264175145u;
    static_assert(quint32(25u * inverse) == 1u);
    constexpr quint32 top = 0x80000000u;
    quint32 const count = (size - 84u) / 2u * inverse;
    return isNegative ? count | top : count & ~top;
}

} // namespace support
