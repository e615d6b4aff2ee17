#pragma once

#include <QList>
#include <QVector2D>
#include <QVector3D>

#include <array>
#include <vector>

namespace sample {

/// What a synthetic scan is made from.
struct Options
{
    /// Exactly so many facets; from `fewestFacets` to `mostFacets`.
    int facets = 200'000;
    /// Varies the teeth a little, and the roughness of the surface.
    quint64 seed = 1;

    static constexpr int fewestFacets = 500;
    static constexpr int mostFacets = 40'000'000;
};

/// The tag of the gum; teeth have their FDI number (31 to 37 on the patient's left, 41 to 47 on the right).
constexpr int gumTag = 1;

/// A scan of a lower dental arch, in millimetres: +z up, +y to the front, the occlusal plane near z = 8.
struct DentalArch
{
    struct Facet
    {
        std::array<int, 3> corners;
        int tag;
    };

    QList<QVector3D> vertices;
    /// Packed AABBGGRR, one for each vertex: gum pink, enamel, darker fissures.
    QList<unsigned int> colors;
    /// One for each vertex: u along the arch, v from the tongue to the cheek, 0 to 1.
    QList<QVector2D> textureCoordinates;
    /// Counter-clockwise seen from outside. One open sheet, as an intraoral scan is: neighbouring facets
    /// share their vertices, across tags too, and every edge has at most two facets.
    std::vector<Facet> facets;
};

/// Makes the scan. The same options give the same bits on every platform whose floating point is IEEE-754
/// without contraction. A facet count outside the limits is brought to the nearest one.
DentalArch makeDentalArch(Options const& options);

} // namespace sample
