#include "sample/TexturedObj.h"

#include "sample/Random.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace sample {

namespace {

constexpr int width = 1024;
constexpr int height = 330;
// The arch that has a vertex for each pixel.
constexpr int facetsOfTexture = 2 * (width - 1) * (height - 1);

void appendNumber(QByteArray& text, float number)
{
    std::array<char, 32> digits = {};
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text += ' ';
    text.append(digits.data(), end.ptr - digits.data());
}

QRgb withGrain(unsigned int aabbggrr, quint64 seed, quint64 pixel)
{
    constexpr double grain = 5.0;
    int const change = static_cast<int>(std::lround(grain * randomAt(seed + 1, pixel)));
    auto const channel = [&](int shift) {
        return std::clamp(static_cast<int>(aabbggrr >> shift & 0xFF) + change, 0, 255);
    };
    return qRgb(channel(0), channel(8), channel(16));
}

} // namespace

QByteArray objOf(DentalArch const& arch, QString const& libraryName)
{
    QByteArray text = "# Synthetic scan of a lower dental arch, in millimetres\nmtllib " +
                      libraryName.toUtf8() + "\no arch\n";
    for (QVector3D const& vertex : arch.vertices) {
        text += 'v';
        for (float const number : {vertex.x(), vertex.y(), vertex.z()})
            appendNumber(text, number);
        text += '\n';
    }
    for (QVector2D const& coordinate : arch.textureCoordinates) {
        text += "vt";
        for (float const number : {coordinate.x(), coordinate.y()})
            appendNumber(text, number);
        text += '\n';
    }
    text += "usemtl arch\n";
    for (DentalArch::Facet const& facet : arch.facets) {
        text += 'f';
        for (int const corner : facet.corners) {
            QByteArray const index = QByteArray::number(corner + 1);
            text += ' ' + index + '/' + index;
        }
        text += '\n';
    }
    return text;
}

QByteArray mtlOf(QString const& imageName)
{
    return "newmtl arch\nKd 1 1 1\nmap_Kd " + imageName.toUtf8() + '\n';
}

QImage textureOf(quint64 seed)
{
    DentalArch const arch = makeDentalArch({facetsOfTexture, seed});
    QImage image(width, height, QImage::Format_RGB32);
    // Vertices go across the arch first; v = 0 is the bottom row of an image.
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y) {
            int const vertex = x * height + y;
            image.setPixel(x, height - 1 - y,
                           withGrain(arch.colors[vertex], seed, static_cast<quint64>(vertex)));
        }
    }
    return image;
}

} // namespace sample
