#pragma once

#include <QDataStream>

#include <algorithm>
#include <memory>
#include <span>

/// Rows on their way to a stream, gathered for few and large writes that end at multiples of `blockBytes` of
/// the file: file systems take such writes at half the cost of small or crooked ones.
///
/// What is gathered goes out with `write`; nothing does by itself.
class RowBlocks
{
public:
    static constexpr qsizetype blockBytes = 1 << 19;

    /// Rows are put behind what `stream` has now. None is longer than `longestRow`. Throws `std::bad_alloc`.
    RowBlocks(QDataStream& stream, qsizetype longestRow);

    /// Where the next rows go: room for one at least.
    std::span<char> room() { return {bytes.get() + filled, static_cast<std::size_t>(roomBytes - filled)}; }
    /// Takes the first `size` bytes of the room. False when a block was full and could not be written.
    bool take(qsizetype size);
    /// Gathers `count` rows of `rowBytes`, which `put(first, count, target)` makes, as many as there is room
    /// for at a time. False as for `take`.
    template <typename Put>
    bool putRows(qsizetype count, qsizetype rowBytes, Put const& put);
    /// What is still gathered. False when it could not be written.
    bool write() { return writeFirst(filled); }

private:
    bool writeFirst(qsizetype size);

    QDataStream& stream;
    qsizetype nextWrite;
    qsizetype roomBytes;
    std::unique_ptr<char[]> bytes;
    qsizetype filled = 0;
};

template <typename Put>
bool RowBlocks::putRows(qsizetype count, qsizetype rowBytes, Put const& put)
{
    for (qsizetype first = 0; first < count;) {
        std::span<char> const target = room();
        qsizetype const rows = std::min(count - first, static_cast<qsizetype>(target.size()) / rowBytes);
        put(first, rows, target.data());
        if (!take(rows * rowBytes))
            return false;
        first += rows;
    }
    return true;
}
