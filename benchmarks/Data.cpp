#include "Data.h"

#include "sample/DentalArch.h"
#include "sample/TaggedStl.h"

#include <QBuffer>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <random>

namespace bench {

namespace {

constexpr qsizetype headerBytes = 84;
constexpr qsizetype facetBytes = 50;

template <typename Result>
Result const& once(int facets, std::map<int, Result>& made, std::function<Result()> const& make)
{
    auto found = made.find(facets);
    if (found == made.end())
        found = made.emplace(facets, make()).first;
    return found->second;
}

sample::DentalArch arch(int facets)
{
    sample::Options options;
    options.facets = facets;
    return sample::makeDentalArch(options);
}

QByteArray makeStl(int facets)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    sample::writeTaggedStl(buffer, arch(facets), QByteArray(80, '\0'));
    return bytes;
}

QByteArray shuffled(QByteArray bytes)
{
    std::mt19937 random(1);
    using Record = std::array<char, facetBytes>;
    std::vector<Record> records(static_cast<std::size_t>((bytes.size() - headerBytes) / facetBytes));
    std::memcpy(records.data(), bytes.constData() + headerBytes, records.size() * facetBytes);
    std::shuffle(records.begin(), records.end(), random);
    std::memcpy(bytes.data() + headerBytes, records.data(), records.size() * facetBytes);
    return bytes;
}

geometry::Mesh makeMesh(int facets)
{
    sample::DentalArch const made = arch(facets);
    QList<int> indices;
    indices.reserve(4 * static_cast<qsizetype>(made.facets.size()));
    for (auto const& facet : made.facets)
        indices << facet.corners[0] << facet.corners[1] << facet.corners[2] << -1;
    return {made.vertices, indices};
}

} // namespace

QByteArray const& stl(int facets)
{
    static std::map<int, QByteArray> made;
    return once<QByteArray>(facets, made, [facets] { return makeStl(facets); });
}

QByteArray const& shuffledStl(int facets)
{
    static std::map<int, QByteArray> made;
    return once<QByteArray>(facets, made, [facets] { return shuffled(stl(facets)); });
}

geometry::Mesh const& mesh(int facets)
{
    static std::map<int, geometry::Mesh> made;
    return once<geometry::Mesh>(facets, made, [facets] { return makeMesh(facets); });
}

} // namespace bench
