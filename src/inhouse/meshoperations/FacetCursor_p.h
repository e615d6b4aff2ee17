#pragma once

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cstddef>

namespace meshoperations {

/// Facets that are worked on together: enough to hide the latency of memory, few enough for the first cache.
struct FacetBlock
{
    static constexpr std::size_t capacity = 32;

    std::size_t size = 0;
    /// Indices within the vertices.
    std::array<std::array<int, 3>, capacity> corners;
};

/// Whether all corners lie within `vertexCount` vertices.
inline bool isUsable(std::array<int, 3> const& corners, std::size_t vertexCount)
{
    // Negative ones become huge.
    return std::max({static_cast<std::size_t>(corners[0]), static_cast<std::size_t>(corners[1]),
                     static_cast<std::size_t>(corners[2])}) < vertexCount;
}

/// Walks the triangles of a list of strips, block by block. Every second triangle of a strip has its first
/// two corners swapped, so that all keep the winding of the first; -1 ends a strip. A facet with an index
/// outside the vertices comes as 0, 0, 0, which is degenerate and so contributes nothing anywhere.
class FacetCursor
{
public:
    FacetCursor(int const* indices_, qsizetype count_, qsizetype vertexCount_)
        : indices(indices_)
        , count(count_)
        , vertexCount(static_cast<std::size_t>(vertexCount_))
    {}

    /// Fills `block` with the next facets; false when there are none left.
    bool next(FacetBlock& block)
    {
        block.size = 0;
        while (at < count && block.size < FacetBlock::capacity)
            if (!takeTriangle(block))
                takeEntry(block);
        return block.size > 0;
    }

private:
    static constexpr int restart = -1;

    /// The case of nearly every mesh: a strip of one triangle.
    bool takeTriangle(FacetBlock& block)
    {
        if (run != 0 || count - at < 4 || indices[at + 3] != restart || indices[at] == restart ||
            indices[at + 1] == restart || indices[at + 2] == restart)
            return false;
        put(block, {indices[at], indices[at + 1], indices[at + 2]});
        at += 4;
        return true;
    }

    void takeEntry(FacetBlock& block)
    {
        int const* entry = indices + at++;
        run = *entry == restart ? 0 : run + 1;
        if (run < 3)
            return;
        bool const swapped = run % 2 == 0;
        put(block, {entry[swapped ? -1 : -2], entry[swapped ? -2 : -1], entry[0]});
    }

    void put(FacetBlock& block, std::array<int, 3> const& corners) const
    {
        block.corners[block.size++] = isUsable(corners, vertexCount) ? corners : std::array<int, 3>{};
    }

    int const* indices;
    qsizetype count;
    std::size_t vertexCount;
    qsizetype at = 0;
    /// Entries of the present strip so far.
    qsizetype run = 0;
};

} // namespace meshoperations
