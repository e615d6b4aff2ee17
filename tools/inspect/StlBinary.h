#pragma once

#include "inspect/Bounds.h"

#include <QByteArrayView>
#include <QIODevice>

#include <functional>
#include <map>
#include <utility>

namespace tool::stl {

constexpr qint64 headerBytes = 80;
constexpr qint64 prefixBytes = 84;
constexpr qint64 facetBytes = 50;

/// The facet count that the bytes 80 to 83 claim; 0 when `head` is shorter.
qint64 claimedFacets(QByteArrayView head);

/// The length of a binary file with that many facets.
constexpr qint64 fileBytes(qint64 facets)
{
    return prefixBytes + facetBytes * facets;
}

/// The attribute word of a facet: the second byte, unsigned, and the first, signed.
struct FacetTag
{
    int tag = 0;
    int subTag = 0;

    bool operator==(FacetTag const&) const = default;
    bool operator<(FacetTag const& other) const
    {
        return std::pair(tag, subTag) < std::pair(other.tag, other.subTag);
    }
};

/// The 50 bytes of one facet.
class FacetRecord
{
public:
    explicit FacetRecord(QByteArrayView bytes_)
        : bytes(bytes_)
    {}

    /// All 50 bytes.
    QByteArrayView record() const { return bytes; }
    QVector3D corner(int index) const;
    FacetTag tag() const;
    /// In mm², computed in double precision.
    double area() const;

private:
    float number(qsizetype offset) const;

    QByteArrayView bytes;
};

/// Calls `visit` with each whole facet of a binary file, `count` of them at most. Returns how many there
/// were.
qint64 forEachFacet(QIODevice& device, qint64 count, std::function<void(FacetRecord const&)> const& visit);

/// What a pass over the facets of a file finds.
struct Contents
{
    struct Tagged
    {
        qint64 facets = 0;
        double area = 0;
    };

    qint64 facets = 0;
    Bounds bounds;
    std::map<FacetTag, Tagged> tags;

    void add(FacetRecord const& facet);
};

Contents contentsOf(QIODevice& device, qint64 count);

} // namespace tool::stl
