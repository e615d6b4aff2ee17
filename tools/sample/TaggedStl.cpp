#include "sample/TaggedStl.h"

#include <QtEndian>

#include <algorithm>
#include <map>
#include <utility>

namespace sample {

namespace {

constexpr qsizetype facetBytes = 50;
constexpr std::size_t facetsInOneWrite = 4096;

char* put(QVector3D const& vector, char* target)
{
    for (float const value : {vector.x(), vector.y(), vector.z()}) {
        qToLittleEndian(value, target);
        target += sizeof(float);
    }
    return target;
}

void put(DentalArch const& arch, DentalArch::Facet const& facet, char* target)
{
    QVector3D const a = arch.vertices[facet.corners[0]];
    QVector3D const b = arch.vertices[facet.corners[1]];
    QVector3D const c = arch.vertices[facet.corners[2]];
    for (QVector3D const& vector : {QVector3D::normal(a, b, c), a, b, c})
        target = put(vector, target);
    target[0] = 0;
    target[1] = static_cast<char>(facet.tag);
}

std::vector<std::size_t> orderedByTag(DentalArch const& arch)
{
    std::map<int, std::size_t> next;
    for (DentalArch::Facet const& facet : arch.facets)
        ++next[facet.tag];
    std::size_t begin = 0;
    for (auto& [tag, count] : next)
        begin += std::exchange(count, begin);
    std::vector<std::size_t> order(arch.facets.size());
    for (std::size_t i = 0; i < arch.facets.size(); ++i)
        order[next[arch.facets[i].tag]++] = i;
    return order;
}

} // namespace

bool writeTaggedStl(QIODevice& device, DentalArch const& arch, QByteArray const& header)
{
    QByteArray count(sizeof(quint32), '\0');
    qToLittleEndian(static_cast<quint32>(arch.facets.size()), count.data());
    if (device.write(header) != header.size() || device.write(count) != count.size())
        return false;
    std::vector<std::size_t> const order = orderedByTag(arch);
    QByteArray bytes(facetBytes * static_cast<qsizetype>(facetsInOneWrite), '\0');
    for (std::size_t begin = 0; begin < order.size(); begin += facetsInOneWrite) {
        std::size_t const end = std::min(order.size(), begin + facetsInOneWrite);
        for (std::size_t i = begin; i < end; ++i)
            put(arch, arch.facets[order[i]], bytes.data() + facetBytes * static_cast<qsizetype>(i - begin));
        qint64 const size = facetBytes * static_cast<qint64>(end - begin);
        if (device.write(bytes.constData(), size) != size)
            return false;
    }
    return true;
}

} // namespace sample
