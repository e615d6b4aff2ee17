#include "obj/PackerModel.h"

#include <algorithm>
#include <functional>

namespace packermodel {
namespace {

using Rectangle = RectanglePacker::Rectangle;
using Order = std::vector<std::size_t>;

long long areaOf(Rectangle const& r)
{
    return static_cast<long long>(r.w) * r.h;
}

std::vector<Rectangle> splitOf(Rectangle const& s, int w, int h)
{
    int const freeW = s.w - w;
    int const freeH = s.h - h;
    if (freeW == 0 && freeH == 0)
        return {};
    if (freeW > 0 && freeH == 0)
        return {{s.x + w, s.y, freeW, s.h}};
    if (freeW == 0 && freeH > 0)
        return {{s.x, s.y + h, s.w, freeH}};
    if (freeW > freeH)
        return {{s.x + w, s.y, freeW, s.h}, {s.x, s.y + h, w, freeH}};
    return {{s.x, s.y + h, s.w, freeH}, {s.x + w, s.y, freeW, h}};
}

bool insert(std::vector<Rectangle>& spaces, Rectangle& r)
{
    for (auto i = static_cast<int>(spaces.size()) - 1; i >= 0; --i) {
        Rectangle const s = spaces[static_cast<std::size_t>(i)];
        if (s.w - r.w < 0 || s.h - r.h < 0)
            continue;
        r.x = s.x;
        r.y = s.y;
        spaces[static_cast<std::size_t>(i)] = spaces[spaces.size() - 1];
        spaces.resize(spaces.size() - 1);
        for (Rectangle const& rest : splitOf(s, r.w, r.h))
            spaces.push_back(rest);
        return true;
    }
    return false;
}

/// The number of rectangles that are inserted before one does not fit.
std::size_t insertAll(std::vector<Rectangle>& rectangles, Order const& order, int width, int height)
{
    std::vector<Rectangle> spaces = {{0, 0, width, height}};
    std::size_t count = 0;
    while (count < order.size() && insert(spaces, rectangles[order[count]]))
        ++count;
    return count;
}

struct Bin
{
    bool isFound = false;
    int w = 0;
    int h = 0;
    long long inserted = 0;
};

Bin search(std::vector<Rectangle> rectangles, Order const& order, Bin start, bool testsW, bool testsH)
{
    int w = testsW ? start.w / 2 : start.w;
    int h = testsH ? start.h / 2 : start.h;
    int step = (testsW ? w : h) / 2;
    while (true) {
        std::size_t const count = insertAll(rectangles, order, w, h);
        if (count == order.size()) {
            if (step <= 1)
                return {true, w, h, 0};
            w -= testsW ? step : 0;
            h -= testsH ? step : 0;
        } else {
            w += testsW ? step : 0;
            h += testsH ? step : 0;
            bool const isTooBig =
                testsW && testsH ? static_cast<long long>(w) * h > static_cast<long long>(start.w) * start.h
                                 : (testsW && w > start.w) || (testsH && h > start.h);
            if (isTooBig) {
                long long inserted = 0;
                for (std::size_t i = 0; i < count; ++i)
                    inserted += areaOf(rectangles[order[i]]);
                return {false, 0, 0, inserted};
            }
        }
        step = std::max(1, step / 2);
    }
}

Bin searchAll(std::vector<Rectangle> const& rectangles, Order const& order, int maximumSide)
{
    Bin best = search(rectangles, order, {true, maximumSide, maximumSide, 0}, true, true);
    if (!best.isFound)
        return best;
    if (Bin const narrower = search(rectangles, order, best, true, false); narrower.isFound)
        best = narrower;
    if (Bin const lower = search(rectangles, order, best, false, true); lower.isFound)
        best = lower;
    return best;
}

} // namespace

Packing pack(std::vector<Rectangle> rectangles, int maximumSide)
{
    using Key = std::function<double(Rectangle const&)>;
    std::vector<Key> const keys = {
        [](Rectangle const& r) { return double(areaOf(r)); },
        [](Rectangle const& r) { return 2.0 * (r.w + r.h); },
        [](Rectangle const& r) { return double(std::max(r.w, r.h)); },
        [](Rectangle const& r) { return double(r.w); },
        [](Rectangle const& r) { return double(r.h); },
        [](Rectangle const& r) {
            return double(float(std::max(r.w, r.h)) / float(std::min(r.w, r.h)) * float(areaOf(r)));
        },
    };
    for (Rectangle& r : rectangles)
        r.x = r.y = 0;
    Order all;
    for (std::size_t i = 0; i < rectangles.size(); ++i)
        if (areaOf(rectangles[i]) > 0)
            all.push_back(i);

    Order bestOrder;
    Bin best{false, maximumSide, maximumSide, 0};
    long long mostInserted = -1;
    bool isChosen = false;
    for (Key const& key : keys) {
        Order order = all;
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return key(rectangles[a]) > key(rectangles[b]);
        });
        Bin const bin = searchAll(rectangles, order, maximumSide);
        if (bin.isFound) {
            if (static_cast<long long>(bin.w) * bin.h <= static_cast<long long>(best.w) * best.h) {
                best = bin;
                bestOrder = order;
                isChosen = true;
            }
        } else if (!isChosen && bin.inserted > mostInserted) {
            mostInserted = bin.inserted;
            bestOrder = order;
            isChosen = true;
        }
    }

    Packing result;
    std::size_t const placed = insertAll(rectangles, bestOrder, best.w, best.h);
    result.isComplete = placed == bestOrder.size();
    for (std::size_t i = 0; i < placed; ++i) {
        Rectangle const& r = rectangles[bestOrder[i]];
        result.width = std::max(result.width, r.x + r.w);
        result.height = std::max(result.height, r.y + r.h);
    }
    result.rectangles = rectangles;
    return result;
}

} // namespace packermodel
