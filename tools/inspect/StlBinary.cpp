#include "inspect/StlBinary.h"

#include <QtEndian>

#include <array>

namespace tool::stl {

namespace {

constexpr qsizetype firstVertexOffset = 12;
constexpr qsizetype vertexBytes = 12;
constexpr qsizetype attributeOffset = firstVertexOffset + 3 * vertexBytes;
static_assert(attributeOffset + 2 == facetBytes);
constexpr qint64 facetsInOneRead = 4096;

struct Point
{
    double x;
    double y;
    double z;
};

Point difference(QVector3D const& a, QVector3D const& b)
{
    return {double(a.x()) - double(b.x()), double(a.y()) - double(b.y()), double(a.z()) - double(b.z())};
}

Point cross(Point const& a, Point const& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

} // namespace

qint64 claimedFacets(QByteArrayView head)
{
    return head.size() < prefixBytes ? 0 : qFromLittleEndian<quint32>(head.data() + headerBytes);
}

float FacetRecord::number(qsizetype offset) const
{
    return qFromLittleEndian<float>(bytes.data() + offset);
}

QVector3D FacetRecord::corner(int index) const
{
    qsizetype const offset = firstVertexOffset + vertexBytes * index;
    return {number(offset), number(offset + 4), number(offset + 8)};
}

FacetTag FacetRecord::tag() const
{
    return {static_cast<unsigned char>(bytes[attributeOffset + 1]),
            static_cast<signed char>(bytes[attributeOffset])};
}

double FacetRecord::area() const
{
    Point const normal = cross(difference(corner(1), corner(0)), difference(corner(2), corner(0)));
    return 0.5 * std::sqrt(normal.x * normal.x + normal.y * normal.y + normal.z * normal.z);
}

qint64 forEachFacet(QIODevice& device, qint64 count, std::function<void(FacetRecord const&)> const& visit)
{
    if (!device.seek(prefixBytes))
        return 0;
    qint64 seen = 0;
    while (seen < count) {
        QByteArray const bytes = device.read(facetBytes * qMin(facetsInOneRead, count - seen));
        qint64 const whole = bytes.size() / facetBytes;
        for (qint64 i = 0; i < whole; ++i)
            visit(FacetRecord(QByteArrayView(bytes).sliced(i * facetBytes, facetBytes)));
        seen += whole;
        if (whole == 0 || bytes.size() % facetBytes != 0)
            break;
    }
    return seen;
}

void Contents::add(FacetRecord const& facet)
{
    Tagged& tagged = tags[facet.tag()];
    ++tagged.facets;
    tagged.area += facet.area();
    for (int const corner : {0, 1, 2})
        bounds.add(facet.corner(corner));
}

Contents contentsOf(QIODevice& device, qint64 count)
{
    Contents contents;
    contents.facets =
        forEachFacet(device, count, [&contents](FacetRecord const& facet) { contents.add(facet); });
    return contents;
}

} // namespace tool::stl
