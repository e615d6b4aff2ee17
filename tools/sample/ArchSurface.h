#pragma once

#include "sample/Anatomy.h"
#include "sample/ArchCurve.h"

#include <cstdint>
#include <vector>

namespace sample {

/// A point of the surface, in millimetres, and its colour, packed AABBGGRR.
struct Place3
{
    double x;
    double y;
    double z;
    unsigned int color;
};

/// A stretch of the arch: one tooth, or the ridge behind the last one.
struct Zone
{
    /// Along the arch, mm from the midline.
    double begin;
    double end;
    /// 0 for a ridge.
    Tooth const* tooth;
    int tag;
    /// 1 when the tooth's distal side is at its end, -1 when at its begin.
    double distalSide;
    /// What sets this tooth apart from the next mouth's.
    double heightOffset;
    double leanOffset;
    /// The sections at both ends, shared with the neighbours.
    Section sectionAtBegin;
    Section sectionAtEnd;
};

/// The smooth surface that a sample is cut from, as a function of two numbers: along the arch and across it.
class ArchSurface
{
public:
    explicit ArchSurface(std::uint64_t seed);

    /// From the patient's left to the right.
    std::vector<Zone> const& zones() const { return allZones; }

    /// One cross-section of the arch.
    class Column
    {
    public:
        Column(Zone const& zone, ArchCurve const& curve, double within);

        /// From the tongue (0) over the top to the cheek (1).
        Place3 crown(double t) const;
        /// From the crown (0) down to the rim (1).
        Place3 tongueGum(double t) const;
        Place3 cheekGum(double t) const;

    private:
        Place3 gum(double side, double t) const;
        double reliefAt(double across) const;
        unsigned int crownColor(double up, double relief) const;
        Place3 place(double b, double z, unsigned int color) const;

        Zone const& zone;
        ArchCurve::Place origin;
        Section section;
        /// 0 at both ends of a tooth, 1 in its middle: along its crown, which is square, and along its gum.
        double fullness;
        double roundness;
        /// -1 mesial to 1 distal.
        double along;
        double distance;
    };

    Column column(std::size_t zone, double within) const { return {allZones[zone], curve, within}; }

private:
    void addZone(int side, Tooth const* tooth, double begin, double end);
    void joinNeighbours();

    ArchCurve curve;
    std::uint64_t seed;
    std::vector<Zone> allZones;
};

} // namespace sample
