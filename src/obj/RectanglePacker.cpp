#include "obj/RectanglePacker.h"

#include "obj/FreeSpaces.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

// The search for the smallest bin ends when it moves by no more than this.
constexpr int discardStep = 1;

struct Item
{
    std::size_t index; // into the caller's list
    int w;
    int h;
};

qint64 area(int w, int h)
{
    return qint64(w) * h;
}

qint64 areaKey(Item const& item)
{
    return area(item.w, item.h);
}

qint64 perimeterKey(Item const& item)
{
    return 2 * (qint64(item.w) + item.h);
}

int longSideKey(Item const& item)
{
    return std::max(item.w, item.h);
}

int widthKey(Item const& item)
{
    return item.w;
}

int heightKey(Item const& item)
{
    return item.h;
}

// Puts long and large rectangles first.
float pathologicalKey(Item const& item)
{
    auto const longSide = static_cast<float>(std::max(item.w, item.h));
    auto const shortSide = static_cast<float>(std::min(item.w, item.h));
    return longSide / shortSide * static_cast<float>(areaKey(item));
}

using Ordering = std::vector<Item>;
constexpr std::size_t orderingCount = 6;

// The index breaks ties, so that the result does not depend on the sort at hand.
template <typename Key>
void sortDescending(Ordering& ordering, Key key)
{
    std::sort(ordering.begin(), ordering.end(), [key](Item const& a, Item const& b) {
        auto const keyA = key(a);
        auto const keyB = key(b);
        return keyA != keyB ? keyA > keyB : a.index < b.index;
    });
}

struct Workspace
{
    std::array<Ordering, orderingCount> orderings;
    FreeSpaces spaces;
};

enum class Search
{
    BothSides,
    Width,
    Height
};

/// Either the smallest bin that a search found, or none and the area that its last attempt inserted.
struct Found
{
    std::optional<QSize> bin;
    qint64 insertedArea = 0;
};

void grow(QSize& bin, Search search, int step)
{
    if (search != Search::Height)
        bin.rwidth() += step;
    if (search != Search::Width)
        bin.rheight() += step;
}

bool isBeyond(QSize bin, QSize limit, Search search)
{
    switch (search) {
    case Search::Width:
        return bin.width() > limit.width();
    case Search::Height:
        return bin.height() > limit.height();
    case Search::BothSides:
        break;
    }
    return area(bin.width(), bin.height()) > area(limit.width(), limit.height());
}

bool fits(Ordering const& ordering, QSize bin, FreeSpaces& spaces, qint64& insertedArea)
{
    spaces.reset(bin);
    insertedArea = 0;
    for (Item const& item : ordering) {
        if (!spaces.insert(item.w, item.h))
            return false;
        insertedArea += area(item.w, item.h);
    }
    return true;
}

Found findSmallestBin(Ordering const& ordering, QSize start, Search search, FreeSpaces& spaces)
{
    QSize bin = start;
    if (search != Search::Height)
        bin.setWidth(start.width() / 2);
    if (search != Search::Width)
        bin.setHeight(start.height() / 2);
    Found found;
    int step = (search == Search::Height ? bin.height() : bin.width()) / 2;
    for (;; step = std::max(1, step / 2)) {
        if (!fits(ordering, bin, spaces, found.insertedArea)) {
            grow(bin, search, step);
            if (isBeyond(bin, start, search))
                return found;
        } else if (step <= discardStep) {
            found.bin = bin;
            return found;
        } else {
            grow(bin, search, -step);
        }
    }
}

Found findBin(Ordering const& ordering, QSize maximum, FreeSpaces& spaces)
{
    Found found = findSmallestBin(ordering, maximum, Search::BothSides, spaces);
    for (Search const search : {Search::Width, Search::Height}) {
        if (!found.bin)
            return found;
        if (auto const smaller = findSmallestBin(ordering, *found.bin, search, spaces).bin)
            found.bin = smaller;
    }
    return found;
}

/// The ordering that leads to the smallest bin, and that bin.
struct Choice
{
    Ordering const* ordering = nullptr;
    QSize bin;
};

Choice chooseOrdering(Workspace& work, QSize maximum)
{
    Choice best{nullptr, maximum};
    qint64 mostInserted = -1;
    for (Ordering const& ordering : work.orderings) {
        Found const found = findBin(ordering, maximum, work.spaces);
        if (found.bin) {
            // Of equally small bins the last one counts.
            if (area(found.bin->width(), found.bin->height()) <= area(best.bin.width(), best.bin.height()))
                best = {&ordering, *found.bin};
        } else if (!best.ordering && found.insertedArea > mostInserted) {
            best.ordering = &ordering;
            mostInserted = found.insertedArea;
        }
    }
    return best;
}

void prepareOrderings(std::vector<RectanglePacker::Rectangle> const& rectangles, Workspace& work)
{
    Ordering& first = work.orderings.front();
    first.clear();
    for (std::size_t i = 0; i < rectangles.size(); ++i)
        if (area(rectangles[i].w, rectangles[i].h) > 0)
            first.push_back({i, rectangles[i].w, rectangles[i].h});
    std::fill(work.orderings.begin() + 1, work.orderings.end(), first);
    sortDescending(work.orderings[0], areaKey);
    sortDescending(work.orderings[1], perimeterKey);
    sortDescending(work.orderings[2], longSideKey);
    sortDescending(work.orderings[3], widthKey);
    sortDescending(work.orderings[4], heightKey);
    sortDescending(work.orderings[5], pathologicalKey);
}

} // namespace

RectanglePacker::Result RectanglePacker::pack(std::vector<Rectangle>& rectangles, int maximumSide)
{
    thread_local Workspace work;
    for (Rectangle& rectangle : rectangles)
        rectangle.x = rectangle.y = 0;
    prepareOrderings(rectangles, work);
    Choice const best = chooseOrdering(work, {maximumSide, maximumSide});
    Result result{true, {0, 0}};
    work.spaces.reset(best.bin);
    for (Item const& item : *best.ordering) {
        std::optional<QPoint> const place = work.spaces.insert(item.w, item.h);
        if (!place) {
            result.isComplete = false;
            break;
        }
        rectangles[item.index].x = place->x();
        rectangles[item.index].y = place->y();
        result.size = result.size.expandedTo({place->x() + item.w, place->y() + item.h});
    }
    return result;
}
