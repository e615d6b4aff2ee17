#pragma once

#include <QPoint>
#include <QSize>

#include <optional>
#include <vector>

/// The free spaces of a bin in which rectangles are packed: a list that is searched from its end and split
/// guillotine-wise.
class FreeSpaces
{
public:
    /// One space: the whole bin.
    void reset(QSize bin);

    /// Takes `w` x `h`, both positive, from the last space that holds them. Where they lie, or nothing.
    std::optional<QPoint> insert(int w, int h);

private:
    std::optional<std::size_t> findLast(int w, int h) const;
    bool isInBlock(std::size_t begin, int w, int h) const;
    void append(QPoint corner, int w, int h);

    // In step. Sizes lie apart from the rest because they are what the search walks through.
    std::vector<int> widths;
    std::vector<int> heights;
    std::vector<QPoint> corners;
};
