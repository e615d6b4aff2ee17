#include "vmesh/FaceIndex.h"

#include <algorithm>
#include <bit>

namespace vmesh {

namespace {

// A product carries low bits upwards, the shift brings them down again: neighbouring points end far apart.
quint64 hashOf(Face const& face, std::size_t seed)
{
    constexpr quint64 goldenRatio = 0x9e3779b97f4a7c15ULL; // of 2^64
    quint64 hash = seed;
    for (qint32 const point : face) {
        hash = (hash ^ static_cast<quint32>(point)) * goldenRatio;
        hash ^= hash >> 32;
    }
    return hash;
}

constexpr std::size_t leastSlots = 16;

} // namespace

FaceIndex::FaceIndex(std::size_t expectedFaces, std::size_t seed_)
    : seed(seed_)
    , table(std::bit_ceil(std::max(leastSlots, 2 * expectedFaces)), none)
{
    faces.reserve(expectedFaces);
}

// The slot that holds the face, or the free one where it belongs.
std::size_t FaceIndex::slotOf(Face const& face) const
{
    std::size_t const mask = table.size() - 1;
    std::size_t slot = static_cast<std::size_t>(hashOf(face, seed)) & mask;
    while (table[slot] != none && faces[table[slot]] != face)
        slot = (slot + 1) & mask;
    return slot;
}

FaceIndex::Number FaceIndex::find(Face const& face) const
{
    return table[slotOf(face)];
}

FaceIndex::Number FaceIndex::add(Face const& face)
{
    std::size_t slot = slotOf(face);
    if (table[slot] != none)
        return table[slot];
    if (2 * (faces.size() + 1) > table.size()) {
        grow();
        slot = slotOf(face);
    }
    table[slot] = static_cast<Number>(faces.size());
    faces.push_back(face);
    return table[slot];
}

void FaceIndex::grow()
{
    table.assign(2 * table.size(), none);
    for (std::size_t number = 0; number < faces.size(); ++number)
        table[slotOf(faces[number])] = static_cast<Number>(number);
}

} // namespace vmesh
