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

int OBJCornerMap::lengthOf(int chain) const
{
    int length = 0;
    for (int i = chain; i != noLink; i = links[static_cast<std::size_t>(i)].next)
        ++length;
    return length;
}

int OBJCornerMap::find(OBJReader::VertexIndices const& corner) const
{
    int length = 0;
    for (int i = chains[static_cast<std::size_t>(corner.vertex)]; i != noLink; ++length) {
        Link const& link = links[static_cast<std::size_t>(i)];
        if (link.isOf(corner))
            return i;
        i = link.next;
    }
    if (length < longestChain)
        return -1;
    auto const found = rest.find(corner);
    return found == rest.end() ? -1 : found->second;
}

int OBJCornerMap::insert(OBJReader::VertexIndices const& corner)
{
    int& first = chains[static_cast<std::size_t>(corner.vertex)];
    auto const ordinal = static_cast<int>(links.size());
    bool const isInChain = lengthOf(first) < longestChain;
    links.push_back({corner.normal, corner.uv, corner.material, first});
    if (isInChain)
        first = ordinal;
    else
        rest.emplace(corner, ordinal);
    return ordinal;
}
