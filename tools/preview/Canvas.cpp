#include "preview/Canvas.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tool::preview {

namespace {

constexpr float nothingThere = -std::numeric_limits<float>::infinity();

/// Twice the signed area of a triangle; positive when it is clockwise on a screen, where y points down.
qint64 doubleArea(std::array<Corner, 3> const& corners)
{
    auto const& [a, b, c] = corners;
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// Of two triangles that share an edge, one owns the samples that lie on it.
bool ownsItsSamples(Corner const& from, Corner const& to)
{
    return to.y < from.y || (to.y == from.y && to.x > from.x);
}

} // namespace

Triangle::Triangle(std::array<Corner, 3> const& corners)
    : corner(corners)
    , area(doubleArea(corners))
{
    if (area < 0) {
        std::swap(corner[1], corner[2]);
        area = -area;
    }
    scale = area == 0 ? 0.0 : 1.0 / static_cast<double>(area);
    for (std::size_t i = 0; i < 3; ++i) {
        Corner const& from = corner[(i + 1) % 3];
        Corner const& to = corner[(i + 2) % 3];
        right[i] = (from.y - to.y) * sixteenths;
        down[i] = (to.x - from.x) * sixteenths;
    }
}

std::array<qint64, 3> Triangle::weightsAt(qint64 x, qint64 y) const
{
    std::array<qint64, 3> weights = {};
    for (std::size_t i = 0; i < 3; ++i) {
        Corner const& from = corner[(i + 1) % 3];
        Corner const& to = corner[(i + 2) % 3];
        qint64 const inside = (to.x - from.x) * (y - from.y) - (to.y - from.y) * (x - from.x);
        weights[i] = ownsItsSamples(from, to) ? inside : inside - 1;
    }
    return weights;
}

float Triangle::depthAt(std::array<qint64, 3> const& weights) const
{
    double const u = static_cast<double>(weights[1]) * scale;
    double const v = static_cast<double>(weights[2]) * scale;
    return static_cast<float>(corner[0].depth + u * (corner[1].depth - corner[0].depth) +
                              v * (corner[2].depth - corner[0].depth));
}

std::array<float, 6> Triangle::valuesAt(std::array<qint64, 3> const& weights) const
{
    auto const u = static_cast<float>(static_cast<double>(weights[1]) * scale);
    auto const v = static_cast<float>(static_cast<double>(weights[2]) * scale);
    std::array<float, 6> values = corner[0].values;
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] +=
            u * (corner[1].values[i] - corner[0].values[i]) + v * (corner[2].values[i] - corner[0].values[i]);
    return values;
}

Canvas::Canvas(int pixels_, int samplesPerPixel_)
    : pixels(pixels_)
    , samplesPerPixel(samplesPerPixel_)
    , width(pixels_ * samplesPerPixel_)
    , samples(static_cast<std::size_t>(width) * static_cast<std::size_t>(width), Sample{nothingThere, 0})
{}

Canvas::Box Canvas::boxAround(std::array<Corner, 3> const& corners) const
{
    auto const& [a, b, c] = corners;
    auto const clipped = [this](qint64 place) {
        return std::clamp<qint64>((place + half) / sixteenths, 0, width);
    };
    return {clipped(std::min({a.x, b.x, c.x}) - sixteenths), clipped(std::max({a.x, b.x, c.x}) + sixteenths),
            clipped(std::min({a.y, b.y, c.y}) - sixteenths), clipped(std::max({a.y, b.y, c.y}) + sixteenths)};
}

QRgb Canvas::meanOf(int column, int row, QRgb background) const
{
    int red = 0;
    int green = 0;
    int blue = 0;
    int const count = samplesPerPixel * samplesPerPixel;
    for (int i = 0; i < count; ++i) {
        qint64 const x = qint64(column) * samplesPerPixel + i % samplesPerPixel;
        qint64 const y = qint64(row) * samplesPerPixel + i / samplesPerPixel;
        Sample const& sample = samples[static_cast<std::size_t>(y * width + x)];
        QRgb const color = sample.depth == nothingThere ? background : sample.color;
        red += qRed(color);
        green += qGreen(color);
        blue += qBlue(color);
    }
    return qRgb((red + count / 2) / count, (green + count / 2) / count, (blue + count / 2) / count);
}

QImage Canvas::toImage(QRgb background) const
{
    QImage image(pixels, pixels, QImage::Format_RGB32);
    for (int y = 0; y < pixels; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < pixels; ++x)
            line[x] = meanOf(x, y, background);
    }
    return image;
}

} // namespace tool::preview
