#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace meshoperations {

struct Point
{
    float x;
    float y;
    float z;
};

/// Equality of floats: -0 equals +0, NaN equals nothing.
inline bool isSamePoint(Point const& a, Point const& b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

inline bool hasNaN(Point const& p)
{
    return !isSamePoint(p, p);
}

/// 32 bits of a point, the same for -0 and +0. Good on what files hold (grids, mirrored parts, full
/// mantissas), but no secret: whoever wants collisions can compute them.
std::uint32_t hashOf(Point const& point);

/// Distinct points in order of first appearance, found through open addressing with linear probing.
///
/// Slots hold the 32-bit hash and the 32-bit number of a point: eight of them share a cache line, and a
/// point is looked at only when its whole hash agrees. The table doubles at a load of three quarters; it
/// starts with room for `expected` points, or where these are many for half of them.
class PointTable
{
public:
    explicit PointTable(std::size_t expected);

    /// The number of the point equal to `point`, which is appended when there is none yet.
    int insert(Point const& point, std::uint32_t hash);
    void prefetchSlot(std::uint32_t hash) const;

    /// Steps that all calls together took beyond their first slot.
    std::size_t extraSteps() const { return steps; }
    std::vector<Point>& distinct() { return points; }

private:
    struct Slot
    {
        std::uint32_t hash = 0;
        /// Number of the point, plus one; 0 in a free slot.
        std::uint32_t entry = 0;
    };

    int append(Point const& point);
    void grow();
    void place(Slot slot);

    std::vector<Slot> slots;
    std::vector<Point> points;
    std::size_t mask = 0;
    std::size_t stored = 0;
    std::size_t limit = 0;
    std::size_t steps = 0;
    unsigned shift = 0;
};

struct MergedVertices
{
    /// The distinct points, in order of first appearance, each with the bits of its first appearance.
    std::vector<Point> points;
    /// For each vertex given, the number of its point.
    std::vector<int> ids;
};

struct VertexSoup
{
    /// 3 * `count` floats: x, y, z interleaved.
    float const* coordinates = nullptr;
    std::size_t count = 0;
    /// Distinct points to expect; a wrong guess costs time, never correctness.
    std::size_t expected = 0;
};

/// Merges through a `PointTable`. False when `cancel` was set, or when the table took more than `budget`
/// extra steps; `merged` is then of no use.
bool mergeByTable(VertexSoup const& soup, std::size_t budget, std::atomic<bool> const& cancel,
                  MergedVertices& merged);

/// Merges through a radix sort of the coordinates: slower, but linear whatever the coordinates are. False
/// when `cancel` was set.
bool mergeBySorting(VertexSoup const& soup, std::atomic<bool> const& cancel, MergedVertices& merged);

/// Merges exactly coincident vertices in linear time: through the table, and where crafted coordinates
/// make its chains long, through the sort. False when `cancel` was set. Throws std::bad_alloc.
bool mergeVertices(VertexSoup const& soup, std::atomic<bool> const& cancel, MergedVertices& merged);

} // namespace meshoperations
