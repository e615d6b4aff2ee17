#pragma once

#include "inhouse/meshoperations/FacetCursor_p.h"

#include <QVector3D>

#include <array>
#include <cstddef>

namespace meshoperations {

/// The geometry of a block of facets: a row of facets for each quantity.
///
/// Reckoned in double, where the fourth power of any float neither overflows nor vanishes: no scaling is
/// needed whatever the coordinates are, and the cross product of a sliver keeps its digits.
struct FacetGeometry
{
    using Row = std::array<double, FacetBlock::capacity>;

    /// By corner, then by axis. Rows beyond the block's size may hold anything.
    std::array<std::array<Row, 3>, 3> points{};
    /// Unit normals by axis; 0 for a degenerate facet and for one with NaN or infinity in it.
    std::array<Row, 3> normal;
    /// By corner: its angle in radians, to 2e-7 of its value; 0 where the normal is 0.
    std::array<Row, 3> angle;
};

/// Fills `points` for every facet of the block.
void gatherPoints(QVector3D const* vertices, FacetBlock const& block, FacetGeometry& geometry);

/// Fills `normal` and `angle` from `points`.
void computeCornerAngles(FacetGeometry& geometry);

} // namespace meshoperations
