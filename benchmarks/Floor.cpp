#include "Floor.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <numbers>
#include <utility>
#include <vector>

namespace bench::floor {

namespace {

constexpr qsizetype headerBytes = 84;
constexpr qsizetype facetBytes = 50;
constexpr qsizetype normalBytes = 12;
constexpr qsizetype vertexBlockBytes = 36;
constexpr qsizetype attributeOffset = 48;

using Corner = std::array<float, 3>;
using Facet = std::array<Corner, 3>;

// Linear probing over slots of a tag and an index, twice as many as there are facets: a facet makes half a
// vertex. The slots of a block of corners are fetched together.
class Merge
{
public:
    explicit Merge(qsizetype facets)
        : slots(slotArray(facets))
        , shift(64 - std::bit_width(slotCount(facets) - 1))
        , mask(slotCount(facets) - 1)
    {
        vertices.reserve(facets / 2 + facets / 8);
    }

    // The vertex of each corner of `count` facets, with -1 behind each third.
    void add(Facet const* facets, std::size_t count, int* indices)
    {
        std::array<std::uint64_t, 3 * blockFacets> hashes;
        std::uint64_t* hash = hashes.data();
        for (std::size_t i = 0; i < count; ++i)
            for (Corner const& corner : facets[i])
                __builtin_prefetch(&slots[(*hash++ = hashOf(corner)) >> shift]);
        hash = hashes.data();
        for (std::size_t i = 0; i < count; ++i) {
            for (Corner const& corner : facets[i])
                *indices++ = add(corner, *hash++);
            *indices++ = -1;
        }
    }

    QList<QVector3D> vertices;

    static constexpr std::size_t blockFacets = 32;

private:
    struct Slot
    {
        std::uint32_t tag;
        int indexPlusOne;
    };
    struct Freed
    {
        void operator()(Slot* memory) const { std::free(memory); }
    };

    static std::size_t slotCount(qsizetype facets)
    {
        return std::bit_ceil(static_cast<std::size_t>(2 * facets) + 2);
    }

    // Zeroed pages come from the system when they are touched.
    static Slot* slotArray(qsizetype facets)
    {
        return static_cast<Slot*>(std::calloc(slotCount(facets), sizeof(Slot)));
    }

    static std::uint64_t hashOf(Corner const& corner)
    {
        constexpr std::uint64_t factor = 0x9E3779B97F4A7C15u;
        auto const bits = [&](std::size_t i) { return std::bit_cast<std::uint32_t>(corner[i] + 0.0f); };
        std::uint64_t const mixed =
            (bits(0) | std::uint64_t(bits(1)) << 32) * factor ^ bits(2) * (factor + 2);
        return (mixed ^ mixed >> 32) * factor;
    }

    int add(Corner const& corner, std::uint64_t hash)
    {
        QVector3D const vertex(corner[0] + 0.0f, corner[1] + 0.0f, corner[2] + 0.0f);
        auto const tag = static_cast<std::uint32_t>(hash);
        std::size_t at = hash >> shift;
        for (; slots[at].indexPlusOne != 0; at = (at + 1) & mask)
            if (slots[at].tag == tag &&
                std::memcmp(&vertices.at(slots[at].indexPlusOne - 1), &vertex, sizeof(vertex)) == 0)
                return slots[at].indexPlusOne - 1;
        vertices.append(vertex);
        slots[at] = {tag, static_cast<int>(vertices.size())};
        return slots[at].indexPlusOne - 1;
    }

    std::unique_ptr<Slot[], Freed> slots;
    int shift;
    std::size_t mask;
};

// acos for -1 to 1, within 1e-7: that of the C library would take half of the time of all.
float arcCosine(float cosine)
{
    float const x = std::fabs(cosine);
    float sum = -0.0012624911f;
    for (float const factor : {0.0066700901f, -0.0170881256f, 0.0308918810f, -0.0501743046f, 0.0889789874f,
                               -0.2145988016f, 1.5707963050f})
        sum = sum * x + factor;
    float const angle = sum * std::sqrt(std::max(1.0f - x, 0.0f));
    return cosine < 0.0f ? std::numbers::pi_v<float> - angle : angle;
}

} // namespace

void addNormals(geometry::Mesh& mesh)
{
    mesh.normals.resize(mesh.vertices.size());
    QVector3D* const normals = mesh.normals.data();
    QVector3D const* const vertices = mesh.vertices.constData();
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4) {
        int const* const corners = mesh.indices.constData() + i;
        QVector3D const ab = vertices[corners[1]] - vertices[corners[0]];
        QVector3D const bc = vertices[corners[2]] - vertices[corners[1]];
        QVector3D const ca = vertices[corners[0]] - vertices[corners[2]];
        QVector3D normal = QVector3D::crossProduct(ab, bc);
        float const x = ab.lengthSquared();
        float const y = bc.lengthSquared();
        float const z = ca.lengthSquared();
        normal *= 1.0f / std::sqrt(normal.lengthSquared());
        normals[corners[0]] += normal * arcCosine(-QVector3D::dotProduct(ab, ca) / std::sqrt(x * z));
        normals[corners[1]] += normal * arcCosine(-QVector3D::dotProduct(ab, bc) / std::sqrt(x * y));
        normals[corners[2]] += normal * arcCosine(-QVector3D::dotProduct(bc, ca) / std::sqrt(y * z));
    }
    for (QVector3D& normal : mesh.normals)
        normal *= 1.0f / std::sqrt(normal.lengthSquared());
}

namespace {

// Gathers facets into blocks, merges a block when it is full.
class Builder
{
public:
    explicit Builder(qsizetype facets)
        : merge(facets)
    {
        indices.reserve(4 * facets);
    }

    Facet& facet()
    {
        if (used == block.size())
            flush();
        return block[used++];
    }

    geometry::Mesh finish()
    {
        flush();
        geometry::Mesh mesh(std::move(merge.vertices), std::move(indices));
        addNormals(mesh);
        return mesh;
    }

private:
    void flush()
    {
        qsizetype const before = indices.size();
        indices.resize(before + 4 * static_cast<qsizetype>(used));
        merge.add(block.data(), used, indices.data() + before);
        used = 0;
    }

    Merge merge;
    QList<int> indices;
    std::array<Facet, Merge::blockFacets> block;
    std::size_t used = 0;
};

std::size_t tagOf(char const* record)
{
    return qFromLittleEndian<quint16>(record + attributeOffset);
}

} // namespace

geometry::Mesh readStl(QByteArray const& bytes)
{
    Builder builder((bytes.size() - headerBytes) / facetBytes);
    char const* const end = bytes.constData() + bytes.size();
    for (char const* record = bytes.constData() + headerBytes; record != end; record += facetBytes)
        std::memcpy(&builder.facet(), record + normalBytes, vertexBlockBytes);
    return builder.finish();
}

QList<geometry::Mesh> readTaggedStl(QByteArray const& bytes)
{
    std::vector<qsizetype> counts(1 << 16);
    char const* const first = bytes.constData() + headerBytes;
    char const* const end = bytes.constData() + bytes.size();
    for (char const* record = first; record != end; record += facetBytes)
        ++counts[tagOf(record)];
    std::vector<std::unique_ptr<Builder>> builders(counts.size());
    for (std::size_t tag = 0; tag < counts.size(); ++tag)
        if (counts[tag] > 0)
            builders[tag] = std::make_unique<Builder>(counts[tag]);
    for (char const* record = first; record != end; record += facetBytes)
        std::memcpy(&builders[tagOf(record)]->facet(), record + normalBytes, vertexBlockBytes);
    QList<geometry::Mesh> meshes;
    for (auto const& builder : builders)
        if (builder)
            meshes.append(builder->finish());
    return meshes;
}

geometry::Mesh readAsciiStl(QByteArray const& bytes)
{
    Builder builder(bytes.size() / (bytes.indexOf("endfacet") + 1)); // as long as the first
    Facet* facet = nullptr;
    std::size_t corner = 2;
    char const* const end = bytes.constData() + bytes.size();
    for (char const* line = bytes.constData(); line < end;) {
        while (*line == ' ')
            ++line;
        char const* next = line;
        if (*line == 'v') {
            corner = (corner + 1) % 3;
            if (corner == 0)
                facet = &builder.facet();
            next += std::strlen("vertex");
            for (float& coordinate : (*facet)[corner])
                next = std::from_chars(next + 1, end, coordinate).ptr;
        }
        line = static_cast<char const*>(std::memchr(next, '\n', static_cast<std::size_t>(end - next))) + 1;
    }
    return builder.finish();
}

QByteArray writeStl(geometry::Mesh const& mesh)
{
    qsizetype const facets = mesh.indices.size() / 4;
    QByteArray bytes(headerBytes + facets * facetBytes, '\0');
    char* record = bytes.data() + headerBytes;
    for (qsizetype i = 0; i < facets; ++i, record += facetBytes) {
        int const* const corners = mesh.indices.constData() + 4 * i;
        std::array<QVector3D, 4> block = {QVector3D(), mesh.vertices.at(corners[0]),
                                          mesh.vertices.at(corners[1]), mesh.vertices.at(corners[2])};
        block[0] = QVector3D::normal(block[1], block[2], block[3]);
        std::memcpy(record, &block, normalBytes + vertexBlockBytes);
    }
    return bytes;
}

} // namespace bench::floor
