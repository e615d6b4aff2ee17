#include "obj/OBJCornerMap.h"

namespace {

constexpr int noLink = -1;
constexpr int longestChain = 16;

} // namespace

OBJCornerMap::OBJCornerMap(qsizetype positionCount)
    : chains(static_cast<std::size_t>(positionCount), noLink)
{
    links.reserve(static_cast<std::size_t>(positionCount));
}

int OBJCornerMap::find(OBJReader::VertexIndices const& corner) const
{
    int const first = chains[static_cast<std::size_t>(corner.vertex)];
    for (int i = first; i != noLink; i = links[static_cast<std::size_t>(i)].next)
        if (links[static_cast<std::size_t>(i)].corner == corner)
            return i;
    if (first == noLink || links[static_cast<std::size_t>(first)].depth < longestChain)
        return -1;
    auto const found = rest.find(corner);
    return found == rest.end() ? -1 : found->second;
}

int OBJCornerMap::insert(OBJReader::VertexIndices const& corner)
{
    int& first = chains[static_cast<std::size_t>(corner.vertex)];
    int const depth = first == noLink ? 0 : links[static_cast<std::size_t>(first)].depth;
    auto const ordinal = static_cast<int>(links.size());
    links.push_back({corner, first, depth + 1});
    if (depth < longestChain)
        first = ordinal;
    else
        rest.emplace(corner, ordinal);
    return ordinal;
}
