#pragma once

#include <QDataStream>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

/// The primitives of shape-tree records. Every number is little-endian, whatever the stream is set to; floats
/// travel as their 32 bits, so that each value comes back exactly.
namespace shapestream {

/// Reads exactly `count` bytes, in as many steps as the device needs; false when it ends before.
bool readBytes(QDataStream& stream, char* target, int count);
/// True when the stream took all `count` bytes.
bool writeBytes(QDataStream& stream, char const* bytes, int count);

template <typename Word>
bool readWord(QDataStream& stream, Word& value)
{
    std::array<char, sizeof(Word)> bytes;
    if (!readBytes(stream, bytes.data(), static_cast<int>(bytes.size())))
        return false;
    value = qFromLittleEndian<Word>(bytes.data());
    return true;
}

template <typename Word>
bool writeWord(QDataStream& stream, Word value)
{
    std::array<char, sizeof(Word)> bytes;
    qToLittleEndian(value, bytes.data());
    return writeBytes(stream, bytes.data(), static_cast<int>(bytes.size()));
}

/// A byte that is 0 or 1; anything else is damage.
bool readFlag(QDataStream& stream, bool& flag);

inline constexpr int blockBytes = 48 * 1024;

/// A 32-bit count and that many items, each made of one or more `Word`s. The list grows block by block with
/// the bytes that arrive, as a count is only a claim.
template <typename Word, typename List>
bool readItems(QDataStream& stream, List& list)
{
    using Item = typename List::value_type;
    constexpr int itemBytes = sizeof(Item);
    constexpr quint32 blockItems = blockBytes / itemBytes;
    static_assert(itemBytes % sizeof(Word) == 0 && blockBytes % itemBytes == 0);
    quint32 missing = 0;
    if (!readWord(stream, missing))
        return false;
    std::array<Word, blockBytes / sizeof(Word)> block;
    while (missing > 0) {
        quint32 const items = std::min(missing, blockItems);
        int const bytes = static_cast<int>(items) * itemBytes;
        if (!readBytes(stream, reinterpret_cast<char*>(block.data()), bytes))
            return false;
        qFromLittleEndian<Word>(block.data(), bytes / qsizetype(sizeof(Word)), block.data());
        qsizetype const filled = list.size();
        list.resize(filled + items);
        std::memcpy(static_cast<void*>(list.data() + filled), block.data(), static_cast<std::size_t>(bytes));
        missing -= items;
    }
    return true;
}

/// The items of a list on a machine that has them in memory as they are stored: no copy of them is made, and
/// a device gets them in as few writes as it can take.
template <typename List>
bool writeAsTheyAre(QDataStream& stream, List const& list)
{
    constexpr qsizetype itemBytes = sizeof(typename List::value_type);
    constexpr qsizetype mostItems = std::numeric_limits<int>::max() / itemBytes;
    for (qsizetype begin = 0; begin < list.size(); begin += mostItems) {
        qsizetype const items = std::min(list.size() - begin, mostItems);
        auto const* const bytes = reinterpret_cast<char const*>(list.constData() + begin);
        if (!writeBytes(stream, bytes, static_cast<int>(items * itemBytes)))
            return false;
    }
    return true;
}

/// The items of a list, turned around block by block.
template <typename Word, typename List>
bool writeSwapped(QDataStream& stream, List const& list)
{
    constexpr int itemBytes = sizeof(typename List::value_type);
    constexpr qsizetype blockItems = blockBytes / itemBytes;
    std::array<Word, blockBytes / sizeof(Word)> block;
    for (qsizetype begin = 0; begin < list.size(); begin += blockItems) {
        int const bytes = static_cast<int>(std::min(list.size() - begin, blockItems)) * itemBytes;
        std::memcpy(block.data(), list.constData() + begin, static_cast<std::size_t>(bytes));
        qToLittleEndian<Word>(block.data(), bytes / qsizetype(sizeof(Word)), block.data());
        if (!writeBytes(stream, reinterpret_cast<char const*>(block.data()), bytes))
            return false;
    }
    return true;
}

/// Writes what `readItems` reads. False, too, for a list that a 32-bit count cannot hold.
template <typename Word, typename List>
bool writeItems(QDataStream& stream, List const& list)
{
    if (list.size() > qsizetype(std::numeric_limits<quint32>::max()) ||
        !writeWord(stream, static_cast<quint32>(list.size())))
        return false;
    if constexpr (QSysInfo::ByteOrder == QSysInfo::LittleEndian)
        return writeAsTheyAre(stream, list);
    else
        return writeSwapped<Word>(stream, list);
}

} // namespace shapestream
