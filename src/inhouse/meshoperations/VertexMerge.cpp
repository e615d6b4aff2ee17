#include "inhouse/meshoperations/Prefetch_p.h"
#include "inhouse/meshoperations/VertexMerge_p.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <utility>

namespace meshoperations {

namespace {

/// Vertices between two looks at `cancel`, and between asking for a slot and using it: the 96 corners of 32
/// facets. Fewer do not hide the latency of memory, more begin to push each other out of the first cache.
constexpr std::size_t blockSize = 96;
constexpr unsigned minTableBits = 6;
constexpr unsigned maxTableBits = 32;
/// Whose table stays in the caches, where a sparse one is quicker. A larger one is made for half of what is
/// expected: most surfaces need no more, and the pages of the rest cost more than steps do.
constexpr std::size_t fewPoints = std::size_t(1) << 18;
/// Random coordinates take about one extra step a vertex, three quarters full about four.
constexpr std::size_t stepsPerVertex = 16;
constexpr std::size_t freeSteps = 4096;

Point pointAt(VertexSoup const& soup, std::size_t vertex)
{
    float const* p = soup.coordinates + 3 * vertex;
    return {p[0], p[1], p[2]};
}

std::uint32_t canonicalBits(float value)
{
    return std::bit_cast<std::uint32_t>(value + 0.0f); // -0 + 0 is +0
}

} // namespace

std::uint32_t hashOf(Point const& point)
{
    std::uint64_t const xy = std::uint64_t(canonicalBits(point.y)) << 32 | canonicalBits(point.x);
    std::uint64_t hash = xy * 0x9E3779B97F4A7C15u; // 2^64 / golden ratio
    hash = ((hash ^ hash >> 32) + canonicalBits(point.z)) * 0xD6E8FEB86659FD93u;
    return static_cast<std::uint32_t>((hash ^ hash >> 32) * 0xD6E8FEB86659FD93u >> 32);
}

PointTable::PointTable(std::size_t expected)
{
    std::size_t const room = expected > fewPoints ? expected / 2 : expected;
    std::size_t const wanted = std::bit_width(room + room / 3);
    unsigned const bits = static_cast<unsigned>(std::clamp<std::size_t>(wanted, minTableBits, maxTableBits));
    shift = 32 - bits;
    slots.resize(std::size_t(1) << bits);
    mask = slots.size() - 1;
    limit = slots.size() / 4 * 3;
    points.reserve(expected); // grown step by step it would touch twice as much memory
}

void PointTable::prefetchSlot(std::uint32_t hash) const
{
    prefetch(&slots[hash >> shift]);
}

int PointTable::append(Point const& point)
{
    points.push_back(point);
    return static_cast<int>(points.size()) - 1;
}

int PointTable::insert(Point const& point, std::uint32_t hash)
{
    // Equal to nothing, so never looked for; stored, many of them would fill one chain.
    if (hasNaN(point))
        return append(point);
    if (stored == limit)
        grow();
    std::size_t at = hash >> shift;
    for (; slots[at].entry != 0; at = (at + 1) & mask, ++steps)
        if (slots[at].hash == hash && isSamePoint(points[slots[at].entry - 1], point))
            return static_cast<int>(slots[at].entry - 1);
    int const id = append(point);
    slots[at] = {hash, static_cast<std::uint32_t>(id) + 1};
    ++stored;
    return id;
}

void PointTable::grow()
{
    std::vector<Slot> const old = std::exchange(slots, std::vector<Slot>(slots.size() * 2));
    mask = slots.size() - 1;
    limit = slots.size() / 4 * 3;
    --shift;
    for (Slot const& slot : old)
        if (slot.entry != 0)
            place(slot);
}

void PointTable::place(Slot slot)
{
    std::size_t at = slot.hash >> shift;
    for (; slots[at].entry != 0; at = (at + 1) & mask)
        ++steps;
    slots[at] = slot;
}

bool mergeByTable(VertexSoup const& soup, std::size_t budget, std::atomic<bool> const& cancel,
                  MergedVertices& merged)
{
    PointTable table(soup.expected);
    merged.ids.resize(soup.count);
    std::array<std::uint32_t, blockSize> hashes;
    for (std::size_t begin = 0; begin < soup.count; begin += blockSize) {
        if (cancel || table.extraSteps() > budget)
            return false;
        std::size_t const size = std::min(blockSize, soup.count - begin);
        for (std::size_t i = 0; i < size; ++i) {
            hashes[i] = hashOf(pointAt(soup, begin + i));
            table.prefetchSlot(hashes[i]);
        }
        for (std::size_t i = 0; i < size; ++i)
            merged.ids[begin + i] = table.insert(pointAt(soup, begin + i), hashes[i]);
    }
    merged.points = std::move(table.distinct());
    return true;
}

namespace {

constexpr unsigned digitBits = 11;
constexpr unsigned digitsPerCoordinate = 3;
constexpr std::size_t digitValues = std::size_t(1) << digitBits;
constexpr std::size_t verticesPerPoll = 4096;

/// One pass of a least-significant-digit radix sort: `from`, ordered by digit `digit` of coordinate `axis`.
class DigitPass
{
public:
    DigitPass(VertexSoup const& soup_, unsigned axis_, unsigned digit_)
        : soup(soup_)
        , axis(axis_)
        , shift(digit_ * digitBits)
    {}

    bool run(std::vector<int> const& from, std::vector<int>& to, std::atomic<bool> const& cancel) const
    {
        std::array<std::size_t, digitValues> next{};
        for (std::size_t i = 0; i < from.size(); ++i) {
            if (i % verticesPerPoll == 0 && cancel)
                return false;
            ++next[digitOf(from[i])];
        }
        std::exclusive_scan(next.begin(), next.end(), next.begin(), std::size_t(0));
        for (std::size_t i = 0; i < from.size(); ++i) {
            if (i % verticesPerPoll == 0 && cancel)
                return false;
            to[next[digitOf(from[i])]++] = from[i];
        }
        return true;
    }

private:
    std::size_t digitOf(int vertex) const
    {
        float const value = soup.coordinates[3 * static_cast<std::size_t>(vertex) + axis];
        return canonicalBits(value) >> shift & (digitValues - 1);
    }

    VertexSoup const& soup;
    unsigned axis;
    unsigned shift;
};

/// The vertices in an order that puts equal ones side by side, and each of those in order of appearance.
bool sortVertices(VertexSoup const& soup, std::atomic<bool> const& cancel, std::vector<int>& order)
{
    order.resize(soup.count);
    std::iota(order.begin(), order.end(), 0);
    std::vector<int> scratch(soup.count);
    for (unsigned pass = 0; pass < 3 * digitsPerCoordinate; ++pass) {
        DigitPass const sorter(soup, pass / digitsPerCoordinate, pass % digitsPerCoordinate);
        if (!sorter.run(order, scratch, cancel))
            return false;
        order.swap(scratch);
    }
    return true;
}

} // namespace

bool mergeBySorting(VertexSoup const& soup, std::atomic<bool> const& cancel, MergedVertices& merged)
{
    std::vector<int> order;
    if (!sortVertices(soup, cancel, order))
        return false;
    // First the vertex at which each point appears first, then its number.
    merged.ids.resize(soup.count);
    for (std::size_t i = 0, first = 0; i < soup.count; ++i) {
        auto const vertex = static_cast<std::size_t>(order[i]);
        if (!isSamePoint(pointAt(soup, vertex), pointAt(soup, static_cast<std::size_t>(order[first]))))
            first = i;
        merged.ids[vertex] = order[first];
    }
    merged.points.clear();
    for (std::size_t i = 0; i < soup.count; ++i) {
        auto const first = static_cast<std::size_t>(merged.ids[i]);
        merged.ids[i] = first == i ? static_cast<int>(merged.points.size()) : merged.ids[first];
        if (first == i)
            merged.points.push_back(pointAt(soup, i));
    }
    return !cancel;
}

bool mergeVertices(VertexSoup const& soup, std::atomic<bool> const& cancel, MergedVertices& merged)
{
    std::size_t const budget = stepsPerVertex * soup.count + freeSteps;
    return mergeByTable(soup, budget, cancel, merged) || (!cancel && mergeBySorting(soup, cancel, merged));
}

} // namespace meshoperations
