#include "Floor.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <map>
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

// Linear probing over vertex indices; twice as many slots as corners can need.
class Merge
{
public:
    explicit Merge(qsizetype facets)
        : slots(std::bit_ceil(static_cast<std::size_t>(2 * facets) + 1), -1)
        , mask(slots.size() - 1)
    {
        vertices.reserve(facets / 2 + facets / 8);
    }

    int add(Corner const& corner)
    {
        QVector3D const vertex(corner[0] + 0.0f, corner[1] + 0.0f, corner[2] + 0.0f);
        std::size_t slot = hash(corner) & mask;
        for (; slots[slot] >= 0; slot = (slot + 1) & mask)
            if (std::memcmp(&vertices[slots[slot]], &vertex, sizeof(vertex)) == 0)
                return slots[slot];
        slots[slot] = static_cast<int>(vertices.size());
        vertices.append(vertex);
        return slots[slot];
    }

    QList<QVector3D> vertices;

private:
    static std::size_t hash(Corner const& corner)
    {
        std::uint64_t mixed = 0;
        for (float const coordinate : corner)
            mixed = (mixed ^ std::bit_cast<std::uint32_t>(coordinate + 0.0f)) * 0x9E3779B97F4A7C15u;
        return static_cast<std::size_t>(mixed ^ mixed >> 32);
    }

    std::vector<int> slots;
    std::size_t mask;
};

float angle(QVector3D const& a, QVector3D const& b)
{
    return std::acos(std::clamp(
        QVector3D::dotProduct(a, b) / std::sqrt(a.lengthSquared() * b.lengthSquared()), -1.0f, 1.0f));
}

} // namespace

void addNormals(geometry::Mesh& mesh)
{
    mesh.normals.resize(mesh.vertices.size());
    QVector3D* const normals = mesh.normals.data();
    for (qsizetype i = 0; i < mesh.indices.size(); i += 4) {
        int const* const corners = mesh.indices.constData() + i;
        QVector3D const a = mesh.vertices.at(corners[0]);
        QVector3D const b = mesh.vertices.at(corners[1]);
        QVector3D const c = mesh.vertices.at(corners[2]);
        QVector3D const normal = QVector3D::crossProduct(b - a, c - a).normalized();
        normals[corners[0]] += normal * angle(b - a, c - a);
        normals[corners[1]] += normal * angle(c - b, a - b);
        normals[corners[2]] += normal * angle(a - c, b - c);
    }
    for (QVector3D& normal : mesh.normals)
        normal.normalize();
}

namespace {

geometry::Mesh mergedWithNormals(std::vector<Facet> const& soup)
{
    Merge merge(static_cast<qsizetype>(soup.size()));
    QList<int> indices;
    indices.resize(4 * static_cast<qsizetype>(soup.size()));
    int* next = indices.data();
    for (Facet const& facet : soup) {
        for (Corner const& corner : facet)
            *next++ = merge.add(corner);
        *next++ = -1;
    }
    geometry::Mesh mesh(merge.vertices, indices);
    addNormals(mesh);
    return mesh;
}

} // namespace

geometry::Mesh readStl(QByteArray const& bytes)
{
    qsizetype const facets = (bytes.size() - headerBytes) / facetBytes;
    std::vector<Facet> soup(static_cast<std::size_t>(facets));
    char const* record = bytes.constData() + headerBytes + normalBytes;
    for (Facet& facet : soup) {
        std::memcpy(&facet, record, vertexBlockBytes);
        record += facetBytes;
    }
    return mergedWithNormals(soup);
}

QList<geometry::Mesh> readTaggedStl(QByteArray const& bytes)
{
    std::map<std::pair<int, int>, std::vector<Facet>> surfaces;
    std::pair<int, int> tag(-1, -1);
    std::vector<Facet>* surface = nullptr;
    char const* const end = bytes.constData() + bytes.size();
    for (char const* record = bytes.constData() + headerBytes; record != end; record += facetBytes) {
        std::pair<int, int> const next(static_cast<unsigned char>(record[attributeOffset + 1]),
                                       record[attributeOffset]);
        if (!surface || next != tag)
            surface = &surfaces[tag = next];
        std::memcpy(&surface->emplace_back(), record + normalBytes, vertexBlockBytes);
    }
    QList<geometry::Mesh> meshes;
    for (auto const& [key, soup] : surfaces)
        meshes.append(mergedWithNormals(soup));
    return meshes;
}

geometry::Mesh readAsciiStl(QByteArray const& bytes)
{
    std::vector<Facet> soup;
    std::size_t corners = 0;
    char const* const end = bytes.constData() + bytes.size();
    for (char const* line = bytes.constData(); line < end;) {
        auto const* const lineEnd =
            static_cast<char const*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        while (*line == ' ')
            ++line;
        if (*line == 'v') {
            if (corners % 3 == 0)
                soup.emplace_back();
            char const* next = line + std::strlen("vertex");
            for (float& coordinate : soup.back()[corners % 3])
                next = std::from_chars(next + 1, lineEnd, coordinate).ptr;
            ++corners;
        }
        line = lineEnd + 1;
    }
    return mergedWithNormals(soup);
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
