#include "framework/RowBlocks.h"

#include <QIODevice>

#include <cstring>

RowBlocks::RowBlocks(QDataStream& stream_, qsizetype longestRow)
    : stream(stream_)
    , nextWrite(blockBytes - stream_.device()->pos() % blockBytes)
    , roomBytes(blockBytes + longestRow)
    , bytes(std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(roomBytes)))
{}

bool RowBlocks::take(qsizetype size)
{
    filled += size;
    while (filled >= nextWrite) {
        if (!writeFirst(nextWrite))
            return false;
        nextWrite = blockBytes;
    }
    return true;
}

bool RowBlocks::writeFirst(qsizetype size)
{
    if (size > 0 && stream.writeRawData(bytes.get(), static_cast<int>(size)) != size)
        return false;
    filled -= size;
    std::memmove(bytes.get(), bytes.get() + size, static_cast<std::size_t>(filled));
    return true;
}
