#include "stl/STLFacetBlock.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace stl {

namespace {

constexpr std::size_t facetsAtOnce = 64;

using Values = std::array<float, facetsAtOnce>;

// One list for each coordinate, so that what is done to all normals is done to four at a time.
struct Normals
{
    Values x = {};
    Values y = {};
    Values z = {};
    Values lengths;
};

void putPoint(QVector3D const& point, char* target)
{
    static_assert(sizeof(QVector3D) == normalBytes);
    // qToLittleEndian() would first look whether the two places are the same.
    if constexpr (std::endian::native == std::endian::little)
        std::memcpy(target, &point, sizeof(point));
    else
        qToLittleEndian<float>(&point, 3, target);
}

void putCorners(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3, Attributes attributes,
                char* target)
{
    target += normalBytes;
    putPoint(p1, target);
    putPoint(p2, target + sizeof(QVector3D));
    putPoint(p3, target + 2 * sizeof(QVector3D));
    target[vertexBlockBytes] = static_cast<char>(attributes.first);
    target[vertexBlockBytes + 1] = static_cast<char>(attributes.second);
}

// The same for every value as qFuzzyIsNull, which takes several instructions to drop a sign.
bool isFuzzyNull(float value)
{
    return std::fabs(value) <= 0.00001f;
}

// As QVector3D::normalized does it, with its measure of length and its idea of what is as good as 0 or 1.
void normalize(Normals& normals)
{
    Values& lengths = normals.lengths;
    for (std::size_t i = 0; i < facetsAtOnce; ++i)
        lengths[i] = std::hypot(normals.x[i], normals.y[i], normals.z[i]);
    Values divisors;
    for (std::size_t i = 0; i < facetsAtOnce; ++i)
        divisors[i] = isFuzzyNull(lengths[i] - 1.0f) ? 1.0f : lengths[i];
    for (Values* const values : {&normals.x, &normals.y, &normals.z}) {
        for (std::size_t i = 0; i < facetsAtOnce; ++i)
            (*values)[i] /= divisors[i];
        for (std::size_t i = 0; i < facetsAtOnce; ++i)
            (*values)[i] = isFuzzyNull(lengths[i]) ? 0.0f : (*values)[i];
    }
}

// `normals` is overwritten; what it had before does not matter.
void putFewFacets(std::span<int const> indices, QVector3D const* vertices, Attributes attributes,
                  char* const target, Normals& normals)
{
    std::size_t const count = indices.size() / indicesPerTriangle;
    int const* face = indices.data();
    char* facet = target;
    for (std::size_t i = 0; i < count; ++i, face += indicesPerTriangle, facet += facetBytes) {
        QVector3D const& p1 = vertices[face[0]];
        QVector3D const& p2 = vertices[face[1]];
        QVector3D const& p3 = vertices[face[2]];
        QVector3D const normal = QVector3D::crossProduct(p2 - p1, p3 - p1);
        normals.x[i] = normal.x();
        normals.y[i] = normal.y();
        normals.z[i] = normal.z();
        putCorners(p1, p2, p3, attributes, facet);
    }
    normalize(normals);
    face = indices.data();
    facet = target;
    for (std::size_t i = 0; i < count; ++i, face += indicesPerTriangle, facet += facetBytes) {
        qToLittleEndian(normals.x[i], facet);
        qToLittleEndian(normals.y[i], facet + sizeof(float));
        qToLittleEndian(normals.z[i], facet + 2 * sizeof(float));
        bool const isFinite = normals.lengths[i] <= std::numeric_limits<float>::max();
        if (!isFinite) [[unlikely]]
            putPoint(facetNormal(vertices[face[0]], vertices[face[1]], vertices[face[2]]), facet);
    }
}

} // namespace

Q_NEVER_INLINE QVector3D facetNormal(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3)
{
    return QVector3D::normal(p1, p2, p3);
}

void putFacet(QVector3D const& p1, QVector3D const& p2, QVector3D const& p3, Attributes attributes,
              char* target)
{
    putPoint(facetNormal(p1, p2, p3), target);
    putCorners(p1, p2, p3, attributes, target);
}

bool areFaces(std::span<int const> indices, qsizetype vertexCount)
{
    // A negative index is a large one without its sign.
    constexpr qsizetype most = qsizetype(std::numeric_limits<int>::max()) + 1;
    auto const end = static_cast<unsigned int>(std::min(vertexCount, most));
    // All four at once, though what stands behind the corners does not matter.
    std::array<unsigned int, indicesPerTriangle> isOutside = {};
    for (std::size_t i = 0; i < indices.size(); i += indicesPerTriangle)
        for (std::size_t corner = 0; corner < indicesPerTriangle; ++corner)
            isOutside[corner] |= static_cast<unsigned int>(indices[i + corner]) >= end ? 1U : 0U;
    return (isOutside[0] | isOutside[1] | isOutside[2]) == 0;
}

void putFacets(std::span<int const> indices, QVector3D const* vertices, Attributes attributes, char* target)
{
    constexpr std::size_t indicesAtOnce = facetsAtOnce * indicesPerTriangle;
    Normals normals;
    while (!indices.empty()) {
        auto const few = indices.first(std::min(indices.size(), indicesAtOnce));
        putFewFacets(few, vertices, attributes, target, normals);
        indices = indices.subspan(few.size());
        target += few.size() / indicesPerTriangle * facetBytes;
    }
}

} // namespace stl
