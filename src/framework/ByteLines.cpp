#include "framework/ByteLines.h"

#include <algorithm>
#include <cstring>

namespace text {

namespace {

constexpr std::size_t blockBytes = 262144;

} // namespace

bool isAscii(QByteArrayView bytes)
{
    unsigned char found = 0;
    for (char const byte : bytes)
        found |= static_cast<unsigned char>(byte);
    return found < 0x80;
}

ByteLines::ByteLines(QIODevice& device_)
    : device(device_)
    , buffer(blockBytes)
{}

bool ByteLines::fetch()
{
    if (next < wholeLines)
        return true;
    std::copy(buffer.begin() + next, buffer.begin() + filled, buffer.begin());
    filled -= next;
    next = 0;
    wholeLines = 0;
    while (wholeLines == 0 && readMore()) {
    }
    if (wholeLines == 0 && filled > 0 && filled < longestLine)
        endLastLine();
    return wholeLines > 0;
}

bool ByteLines::readMore()
{
    if (filled >= longestLine)
        return false;
    if (static_cast<std::size_t>(filled) == buffer.size())
        buffer.resize(2 * buffer.size());
    char* const free = buffer.data() + filled;
    qint64 const count = device.read(free, static_cast<qint64>(buffer.size()) - filled);
    if (count <= 0)
        return false;
    qsizetype const lineFeed = QByteArrayView(free, count).lastIndexOf('\n');
    if (lineFeed >= 0)
        wholeLines = filled + lineFeed + 1;
    filled += count;
    return true;
}

// There is room: whoever found the end had made room for more.
void ByteLines::endLastLine()
{
    buffer[static_cast<std::size_t>(filled)] = '\n';
    wholeLines = ++filled;
}

QByteArrayView ByteLines::line() const
{
    auto const* lineFeed =
        static_cast<char const*>(std::memchr(text(), '\n', std::size_t(wholeLines - next)));
    qsizetype length = lineFeed - text();
    if (length > 0 && text()[length - 1] == '\r')
        --length;
    return QByteArrayView(text(), length);
}

void ByteLines::goBehind(QByteArrayView line)
{
    goTo(line.end() + (*line.end() == '\r' ? 2 : 1));
}

} // namespace text
