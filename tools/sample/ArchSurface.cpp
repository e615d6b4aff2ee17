#include "sample/ArchSurface.h"

#include "sample/DentalArch.h"
#include "sample/Random.h"

#include <algorithm>
#include <cmath>

namespace sample {

namespace {

constexpr double halfPi = 1.57079632679489661923;

// Taylor's series, good to 1e-9 from -pi/2 to pi/2. The library's sin may differ in its last bit from one
// system to the next.
double sine(double x)
{
    double const s = x * x;
    return x * (1 - s / 6 * (1 - s / 20 * (1 - s / 42 * (1 - s / 72 * (1 - s / 110 * (1 - s / 156))))));
}

double cosine(double x)
{
    return sine(halfPi - std::abs(x));
}

double smooth(double t)
{
    return t * t * (3.0 - 2.0 * t);
}

/// 1 in the middle, 0 from the distance 1 on.
double bump(double squaredDistance)
{
    double const rest = std::max(0.0, 1.0 - squaredDistance);
    return rest * rest;
}

/// The parabola through (0, low), (0.45, middle) and (1, high).
double throughThree(double low, double middle, double high, double t)
{
    constexpr double at = 0.45;
    double const slope = (middle - low - (high - low) * at * at) / (at - at * at);
    return low + slope * t + (high - low - slope) * t * t;
}

struct Rgb
{
    double red;
    double green;
    double blue;
};
constexpr Rgb gumColor = {214, 132, 128};
constexpr Rgb deepGumColor = {176, 84, 88};
constexpr Rgb enamelColor = {232, 218, 190};
constexpr Rgb edgeColor = {214, 218, 214};
constexpr Rgb neckColor = {218, 190, 142};
constexpr Rgb fissureColor = {150, 112, 72};

Rgb mix(Rgb const& a, Rgb const& b, double t)
{
    double const part = std::clamp(t, 0.0, 1.0);
    return {a.red + (b.red - a.red) * part, a.green + (b.green - a.green) * part,
            a.blue + (b.blue - a.blue) * part};
}

unsigned int packed(Rgb const& color)
{
    auto const byte = [](double value) { return static_cast<unsigned int>(std::lround(value)); };
    return 0xFF000000u | byte(color.blue) << 16 | byte(color.green) << 8 | byte(color.red);
}

constexpr double gumDepth = 9.0;
constexpr double heightVariation = 0.25;
constexpr double leanVariation = 0.3;

} // namespace

ArchSurface::ArchSurface(std::uint64_t seed_)
    : seed(seed_)
{
    for (int const side : {-1, 1}) {
        double distance = 0.0;
        for (Tooth const& tooth : lowerTeeth()) {
            addZone(side, &tooth, distance, distance + tooth.width);
            distance += tooth.width;
        }
        addZone(side, nullptr, distance, distance + retromolarLength());
        if (side < 0)
            std::reverse(allZones.begin(), allZones.end());
    }
    joinNeighbours();
}

void ArchSurface::addZone(int side, Tooth const* tooth, double begin, double end)
{
    constexpr int firstOnTheLeft = 30;
    constexpr int firstOnTheRight = 40;
    auto const index = static_cast<std::uint64_t>(2 * allZones.size());
    Zone zone = {};
    zone.begin = side < 0 ? -end : begin;
    zone.end = side < 0 ? -begin : end;
    zone.tooth = tooth;
    zone.tag = tooth == nullptr ? gumTag : (side < 0 ? firstOnTheLeft : firstOnTheRight) + tooth->position;
    zone.distalSide = side;
    zone.heightOffset = heightVariation * randomAt(~seed, index);
    zone.leanOffset = leanVariation * randomAt(~seed, index + 1);
    zone.sectionAtBegin = tooth == nullptr ? retromolarEnd() : tooth->contact;
    zone.sectionAtEnd = zone.sectionAtBegin;
    allZones.push_back(zone);
}

void ArchSurface::joinNeighbours()
{
    for (std::size_t i = 0; i + 1 < allZones.size(); ++i) {
        Zone& left = allZones[i];
        Zone& right = allZones[i + 1];
        Section const shared = blend(left.sectionAtEnd, right.sectionAtBegin, 0.5);
        left.sectionAtEnd = shared;
        right.sectionAtBegin = shared;
    }
}

ArchSurface::Column::Column(Zone const& zone_, ArchCurve const& curve, double within)
    : zone(zone_)
{
    // Closer together where teeth meet, as the surface falls steeply there.
    constexpr double evenPart = 0.35;
    double const even = 2.0 * within - 1.0;
    double const angle = even * halfPi;
    double const place = zone.tooth == nullptr ? even : evenPart * even + (1.0 - evenPart) * sine(angle);
    double const toEnd = 0.5 * (place + 1.0);
    distance = zone.begin + (zone.end - zone.begin) * toEnd;
    origin = curve.at(distance);
    along = place * zone.distalSide;
    section = blend(zone.sectionAtBegin, zone.sectionAtEnd, smooth(toEnd));
    fullness = 0.0;
    roundness = 0.0;
    if (zone.tooth == nullptr)
        return;
    double const s = sine(angle) * sine(angle);
    double const square = zone.tooth->squareness;
    fullness = std::min(1.0, cosine(angle) * std::sqrt((1.0 + s) * (1.0 + square * s * s)));
    Section middle = zone.tooth->middle;
    middle.height += zone.heightOffset;
    middle.lean += zone.leanOffset;
    // The gum waves gently from tooth to tooth; crowns meet in narrow clefts.
    Section const ends = section;
    roundness = 1.0 - place * place;
    section = blend(ends, middle, fullness);
    section.gumHalfWidth = blend(ends, middle, roundness).gumHalfWidth;
    section.tongueGumLine = blend(ends, middle, roundness).tongueGumLine;
    section.cheekGumLine = blend(ends, middle, roundness).cheekGumLine;
}

double ArchSurface::Column::reliefAt(double across) const
{
    // Fissures are no straight lines.
    double const waved = across + 0.16 * along * (1.0 - along * along);
    double relief = 0.0;
    if (zone.tooth == nullptr)
        return relief;
    for (Cusp const& cusp : zone.tooth->cusps) {
        double const x = (along + 0.12 * across - cusp.along) / cusp.radiusAlong;
        double const y = (waved - cusp.across) / cusp.radiusAcross;
        relief += cusp.height * bump(x * x + y * y);
    }
    return relief * fullness;
}

Place3 ArchSurface::Column::place(double b, double z, unsigned int color) const
{
    // The molars stand a little higher than the front teeth.
    constexpr double riseOfTheEnds = 0.0006;
    return {origin.x + b * origin.outwardX, origin.y + b * origin.outwardY,
            z + riseOfTheEnds * distance * distance, color};
}

unsigned int ArchSurface::Column::crownColor(double up, double relief) const
{
    if (zone.tooth == nullptr)
        return packed(gumColor);
    Rgb const body = mix(neckColor, enamelColor, 3.0 * up);
    bool const isFrontTooth = zone.tooth->cusps.size() < 2;
    if (isFrontTooth)
        return packed(mix(body, edgeColor, 3.0 * up - 2.0));
    double const top = up * up * up * up;
    return packed(mix(body, fissureColor, top * fullness * (0.55 - 1.6 * relief)));
}

Place3 ArchSurface::Column::crown(double t) const
{
    double const angle = (2.0 * t - 1.0) * halfPi;
    double const c = cosine(angle); // up
    double const s = sine(angle);   // across
    // A square with round corners: the unit ball of the fourth power.
    double const norm = std::sqrt(std::sqrt(c * c * c * c + s * s * s * s));
    double const up = c / norm;
    double const across = s / norm;
    double const bulge = across < 0.0 ? section.tongueBulge : section.cheekBulge;
    double const halfWidth = throughThree(section.gumHalfWidth, bulge, section.topHalfWidth, up);
    double const gumLine = section.tongueGumLine + (section.cheekGumLine - section.tongueGumLine) * smooth(t);
    double const relief = reliefAt(across);
    double const top = up * up * up * up;
    double const z = gumLine + (section.height - gumLine) * up + relief * top;
    return place(across * halfWidth + section.lean * up * up, z, crownColor(up, relief));
}

Place3 ArchSurface::Column::gum(double side, double t) const
{
    // The free margin stands off the tooth a little, roots show through, and the foot is wide.
    constexpr double margin = 0.35;
    constexpr double marginLength = 0.08;
    constexpr double rootBulge = 0.7;
    double const gumLine = side < 0.0 ? section.tongueGumLine : section.cheekGumLine;
    double const free = std::min(1.0, t / marginLength);
    double const foot = 4.8 + 0.0006 * distance * distance;
    double const out = section.gumHalfWidth + (foot - section.gumHalfWidth) * smooth(t) +
                       margin * free * (2.0 - free) +
                       rootBulge * roundness * roundness * t * (1.0 - t) * (1.0 - t) * 4.0;
    double const z = gumLine + (-gumDepth - gumLine) * t;
    return place(side * out, z, packed(mix(gumColor, deepGumColor, t)));
}

Place3 ArchSurface::Column::tongueGum(double t) const
{
    return gum(-1.0, t);
}

Place3 ArchSurface::Column::cheekGum(double t) const
{
    return gum(1.0, t);
}

} // namespace sample
