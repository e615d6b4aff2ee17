#pragma once

#include <QSize>

#include <vector>

/// Packs rectangles, without turning them, into a small bin.
///
/// A bin search over six orderings of the rectangles; each ordering is inserted greedily into a list of free
/// spaces that are split guillotine-wise. The same input gives the same result on every platform. Work lists
/// are kept per thread and reused, so any thread may pack at any time.
class RectanglePacker
{
public:
    /// `x` and `y` are counted from a corner of the bin; rectangles of width 0 or height 0 take no part.
    struct Rectangle
    {
        int x = 0;
        int y = 0;
        int w = 0;
        int h = 0;
    };

    struct Result
    {
        /// False when a rectangle did not fit; those that come after it in the packing are then not placed
        /// either.
        bool isComplete = false;
        /// The bounding box of all placed rectangles, from (0, 0).
        QSize size;
    };

    RectanglePacker() = delete;

    /// Writes `x` and `y` of every rectangle that it places; sets those of the others to 0. No bin is larger
    /// than `maximumSide` in both directions.
    static Result pack(std::vector<Rectangle>& rectangles, int maximumSide);
};
