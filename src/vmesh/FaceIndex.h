#pragma once

#include <QHashFunctions>
#include <QtGlobal>

#include <array>
#include <cstddef>
#include <vector>

namespace vmesh {

/// Three points, ascending.
using Face = std::array<qint32, 3>;

/// Numbers faces from 0 in the order in which they are first added. A hash table with open addressing;
/// whole faces are compared, so that equal hashes only cost time. Whoever makes a file cannot choose points
/// of equal hashes, which depend on a seed; the numbers do not.
class FaceIndex
{
public:
    using Number = quint32;
    static constexpr Number none = ~Number(0);

    /// Throws std::bad_alloc.
    explicit FaceIndex(std::size_t expectedFaces, std::size_t seed = QHashSeed::globalSeed());

    /// The number of `face`, which gets one when it has none. Throws std::bad_alloc.
    Number add(Face const& face);
    /// The number of `face`, or `none`.
    Number find(Face const& face) const;
    std::size_t size() const { return faces.size(); }

private:
    std::size_t slotOf(Face const& face) const;
    void grow();

    std::size_t seed;
    std::vector<Face> faces;
    std::vector<Number> table; // a power of two of slots, half of them free
};

} // namespace vmesh
