#pragma once

#include <span>

namespace sample {

/// The cross-section of the arch at one place, in the plane across the arch: b points to the cheek, z up from
/// the gum line. Millimetres. Sections are blended number by number.
struct Section
{
    /// Half the width of the crown at the gum, where it bulges most (to the tongue and to the cheek), and
    /// across its top.
    double gumHalfWidth;
    double tongueBulge;
    double cheekBulge;
    double topHalfWidth;
    /// From the gum line to the grooves of the top.
    double height;
    /// How far the top leans to the cheek.
    double lean;
    /// The gum line on both sides.
    double tongueGumLine;
    double cheekGumLine;
};

/// (1 - t) * a + t * b.
Section blend(Section const& a, Section const& b, double t);

/// A bump on top of a crown. Places and radii as fractions: along the tooth from -1 (mesial) to 1 (distal),
/// across it from -1 (tongue) to 1 (cheek). A negative height makes a pit or a fissure.
struct Cusp
{
    double along;
    double across;
    double radiusAlong;
    double radiusAcross;
    double height;
};

/// One kind of tooth; both sides of the arch have one of each.
struct Tooth
{
    /// Second digit of its FDI number, 1 (central incisor) to 7 (second molar).
    int position;
    /// Its width along the arch.
    double width;
    /// How angular it looks from above: 0 round, 1 square.
    double squareness;
    Section middle;
    /// Where it meets its neighbours.
    Section contact;
    std::span<Cusp const> cusps;
};

/// From the central incisor to the second molar.
std::span<Tooth const> lowerTeeth();

/// The ridge behind the last tooth, where the arch ends.
Section retromolarEnd();
double retromolarLength();

} // namespace sample
