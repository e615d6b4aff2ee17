#pragma once

#include <QImage>

#include <array>
#include <span>
#include <vector>

namespace tool::preview {

/// A vertex as the rasteriser takes it.
struct Corner
{
    /// Samples from the left and from the top, in sixteenths.
    qint64 x = 0;
    qint64 y = 0;
    /// Larger is closer.
    double depth = 0;
    /// Whatever is interpolated: the normal first, then a colour or a texture coordinate.
    std::array<float, 6> values = {};
};

constexpr qint64 sixteenths = 16;
constexpr qint64 half = sixteenths / 2;

/// Where a sample lies in a triangle, and what its corners say there.
class Triangle
{
public:
    /// Turns the corners clockwise, as seen.
    explicit Triangle(std::array<Corner, 3> const& corners);

    bool isEmpty() const { return area == 0; }
    std::array<Corner, 3> const& corners() const { return corner; }
    /// How far the place (in sixteenths) is inside each edge; negative means outside.
    std::array<qint64, 3> weightsAt(qint64 x, qint64 y) const;
    /// What one sample to the right, or one down, adds to the weights.
    std::array<qint64, 3> const& stepRight() const { return right; }
    std::array<qint64, 3> const& stepDown() const { return down; }

    float depthAt(std::array<qint64, 3> const& weights) const;
    std::array<float, 6> valuesAt(std::array<qint64, 3> const& weights) const;

private:
    std::array<Corner, 3> corner;
    qint64 area;
    double scale;
    std::array<qint64, 3> right;
    std::array<qint64, 3> down;
};

/// Samples with a depth each, finer than the pixels of the final picture.
///
/// Places are whole numbers and nothing but addition, multiplication, division and square roots is done to
/// the rest, so that a picture has the same bytes on every machine with IEEE-754 floating point.
class Canvas
{
public:
    Canvas(int pixels, int samplesPerPixel);

    int sampleWidth() const { return width; }

    /// Draws a triangle; each sample whose centre is inside and in front is given `shade(values)`, the colour
    /// as 0xRRGGBB. Neighbours never both own a sample. Parts outside the canvas are cut off.
    template <typename Shade>
    void draw(std::array<Corner, 3> const& corners, Shade const& shade);

    /// The picture, each pixel the mean of its samples.
    QImage toImage(QRgb background) const;

private:
    struct Sample
    {
        float depth;
        QRgb color;
    };

    /// Samples from left to before right, from top to before bottom.
    struct Box
    {
        qint64 left;
        qint64 right;
        qint64 top;
        qint64 bottom;
    };

    Box boxAround(std::array<Corner, 3> const& corners) const;
    template <typename Shade>
    void drawRow(Triangle const& triangle, std::array<qint64, 3> weights, std::span<Sample> row,
                 Shade const& shade);
    QRgb meanOf(int column, int row, QRgb background) const;

    int pixels;
    int samplesPerPixel;
    int width;
    std::vector<Sample> samples;
};

template <typename Shade>
void Canvas::drawRow(Triangle const& triangle, std::array<qint64, 3> weights, std::span<Sample> row,
                     Shade const& shade)
{
    for (Sample& sample : row) {
        if ((weights[0] | weights[1] | weights[2]) >= 0) {
            float const depth = triangle.depthAt(weights);
            if (depth > sample.depth)
                sample = {depth, shade(triangle.valuesAt(weights))};
        }
        for (std::size_t i = 0; i < 3; ++i)
            weights[i] += triangle.stepRight()[i];
    }
}

template <typename Shade>
void Canvas::draw(std::array<Corner, 3> const& corners, Shade const& shade)
{
    Triangle const triangle(corners);
    if (triangle.isEmpty())
        return;
    Box const box = boxAround(corners);
    auto const columns = static_cast<std::size_t>(box.right - box.left);
    std::array<qint64, 3> weights =
        triangle.weightsAt(box.left * sixteenths + half, box.top * sixteenths + half);
    for (qint64 y = box.top; y < box.bottom; ++y) {
        auto const begin = static_cast<std::size_t>(y * width + box.left);
        drawRow(triangle, weights, std::span(samples).subspan(begin, columns), shade);
        for (std::size_t i = 0; i < 3; ++i)
            weights[i] += triangle.stepDown()[i];
    }
}

} // namespace tool::preview
