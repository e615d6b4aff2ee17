#include "Fuzz.h"
#include "obj/PackerModel.h"

#include <QRect>

namespace {

using Rectangles = std::vector<RectanglePacker::Rectangle>;

// Sides up to `most`, small ones more often; the packer takes sides of 0, too.
int side(fuzz::Choices& choices, int most)
{
    int const low = choices.byte();
    return (low < 128 ? low : low << 8 | choices.byte()) % (most + 1);
}

Rectangles rectanglesFrom(fuzz::Choices& choices, int most)
{
    constexpr int mostRectangles = 48;
    Rectangles rectangles;
    for (int count = choices.below(mostRectangles + 1); count > 0; --count) {
        int const width = side(choices, most);
        rectangles.push_back({0, 0, width, side(choices, most)});
    }
    return rectangles;
}

QRect rectOf(RectanglePacker::Rectangle const& r)
{
    return {r.x, r.y, r.w, r.h};
}

void requireSound(Rectangles const& packed, QSize size, int maximumSide)
{
    QRect const atlas(QPoint(0, 0), size);
    fuzz::require(size.width() <= maximumSide || size.height() <= maximumSide);
    for (std::size_t i = 0; i < packed.size(); ++i) {
        if (packed[i].w == 0 || packed[i].h == 0)
            continue;
        fuzz::require(atlas.contains(rectOf(packed[i])));
        for (std::size_t j = i + 1; j < packed.size(); ++j)
            fuzz::require(!rectOf(packed[i]).intersects(rectOf(packed[j])));
    }
}

void requireSame(Rectangles const& a, Rectangles const& b)
{
    fuzz::require(a.size() == b.size());
    for (std::size_t i = 0; i < a.size(); ++i)
        fuzz::require(a[i].x == b[i].x && a[i].y == b[i].y && a[i].w == b[i].w && a[i].h == b[i].h);
}

} // namespace

// The greatest side of the atlas, then the sides of rectangles.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    fuzz::silence();
    fuzz::Choices choices(fuzz::bytesOf(data, size));
    int const maximumSide = choices.flag() ? 8192 : 1 + choices.byte();
    Rectangles const rectangles = rectanglesFrom(choices, 8192);

    Rectangles packed = rectangles;
    auto const result = RectanglePacker::pack(packed, maximumSide);
    if (result.isComplete)
        requireSound(packed, result.size, maximumSide);
    Rectangles again = rectangles;
    auto const second = RectanglePacker::pack(again, maximumSide);
    fuzz::require(second.isComplete == result.isComplete && second.size == result.size);
    requireSame(packed, again);

    auto const model = packermodel::pack(rectangles, maximumSide);
    fuzz::require(model.isComplete == result.isComplete && QSize(model.width, model.height) == result.size);
    requireSame(packed, model.rectangles);
    return 0;
}
