#include "obj/FreeSpaces.h"

namespace {

// So many sizes are compared at once, as vectors where the machine has them: a file may name very many small
// textures, and nearly all the time of their packing goes into this search.
constexpr std::size_t blockSize = 16;

} // namespace

void FreeSpaces::reset(QSize bin)
{
    widths.assign(1, bin.width());
    heights.assign(1, bin.height());
    corners.assign(1, {0, 0});
}

std::optional<QPoint> FreeSpaces::insert(int w, int h)
{
    std::optional<std::size_t> const index = findLast(w, h);
    if (!index)
        return std::nullopt;
    QPoint const corner = corners[*index];
    int const freeW = widths[*index] - w;
    int const freeH = heights[*index] - h;
    int const width = widths[*index];
    int const height = heights[*index];
    widths[*index] = widths.back();
    heights[*index] = heights.back();
    corners[*index] = corners.back();
    widths.pop_back();
    heights.pop_back();
    corners.pop_back();
    // The greater part stays whole.
    if (freeW > freeH) {
        append(corner + QPoint(w, 0), freeW, height);
        append(corner + QPoint(0, h), w, freeH);
    } else {
        append(corner + QPoint(0, h), width, freeH);
        append(corner + QPoint(w, 0), freeW, h);
    }
    return corner;
}

std::optional<std::size_t> FreeSpaces::findLast(int w, int h) const
{
    std::size_t end = widths.size();
    while (end >= blockSize && !isInBlock(end - blockSize, w, h))
        end -= blockSize;
    for (std::size_t i = end; i-- > 0;)
        if (widths[i] >= w && heights[i] >= h)
            return i;
    return std::nullopt;
}

// Without a branch for each of them.
bool FreeSpaces::isInBlock(std::size_t begin, int w, int h) const
{
    int const* const blockWidths = widths.data() + begin;
    int const* const blockHeights = heights.data() + begin;
    int found = 0;
    for (std::size_t i = 0; i < blockSize; ++i)
        found |= int(blockWidths[i] >= w) & int(blockHeights[i] >= h);
    return found != 0;
}

void FreeSpaces::append(QPoint corner, int w, int h)
{
    if (w <= 0 || h <= 0)
        return;
    widths.push_back(w);
    heights.push_back(h);
    corners.push_back(corner);
}
