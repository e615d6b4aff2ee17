#include "sample/ArchCurve.h"

#include <algorithm>
#include <cmath>

namespace sample {

namespace {

constexpr double quadratic = 0.030;
constexpr double quartic = 4.3e-5;
constexpr double step = 1.0 / 128.0;
constexpr int steps = 40 * 128;

double depth(double x)
{
    return (quadratic + quartic * x * x) * x * x;
}

double slope(double x)
{
    return (2.0 * quadratic + 4.0 * quartic * x * x) * x;
}

} // namespace

ArchCurve::ArchCurve()
    : lengths(steps + 1, 0.0)
{
    for (int i = 1; i <= steps; ++i) {
        double const rise = depth(i * step) - depth((i - 1) * step);
        lengths[static_cast<std::size_t>(i)] =
            lengths[static_cast<std::size_t>(i) - 1] + std::sqrt(step * step + rise * rise);
    }
}

ArchCurve::Place ArchCurve::at(double distance) const
{
    double const size = std::min(std::abs(distance), lengths.back());
    auto const next = std::upper_bound(lengths.begin() + 1, lengths.end() - 1, size);
    auto const before = next - 1;
    double const within = (size - *before) / (*next - *before);
    double const x = (static_cast<double>(before - lengths.begin()) + within) * step;
    double const rise = slope(x);
    double const norm = std::sqrt(1.0 + rise * rise);
    double const side = distance < 0.0 ? -1.0 : 1.0;
    return {side * x, -depth(x), side * rise / norm, 1.0 / norm};
}

} // namespace sample
