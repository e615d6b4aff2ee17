#include "preview/Palette.h"

#include <algorithm>
#include <array>

namespace tool::preview {

namespace {

/// A colour of full strength; `hue` from 0 to 1535, red at 0, in whole numbers.
std::array<int, 3> fullColor(int hue)
{
    int const part = hue % 256;
    switch (hue / 256) {
    case 0:
        return {255, part, 0};
    case 1:
        return {255 - part, 255, 0};
    case 2:
        return {0, 255, part};
    case 3:
        return {0, 255 - part, 255};
    case 4:
        return {part, 0, 255};
    default:
        return {255, 0, 255 - part};
    }
}

} // namespace

QRgb tagColor(int tag, int subTag)
{
    // Steps of the golden ratio around the circle of hues: any few tags in a row lie far apart.
    constexpr int hues = 1536;
    constexpr int goldenStep = 949;
    constexpr int subTagStep = 211;
    constexpr int lightness = 96;
    int const hue = ((tag * goldenStep + subTag * subTagStep) % hues + hues) % hues;
    auto const [red, green, blue] = fullColor(hue);
    auto const soft = [](int value) { return lightness + value * (235 - lightness) / 255; };
    return qRgb(soft(red), soft(green), soft(blue));
}

} // namespace tool::preview
