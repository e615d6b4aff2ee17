#include "ply/PLYSource.h"

#include "framework/ByteLines.h"

#include <QStringConverter>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr qsizetype chunkBytes = qsizetype(64) * 1024;
constexpr qsizetype longestMark = 4;
// A text stream holds the characters of a line in memory several times over.
constexpr qint64 longestLine = text::longestLine;

bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

} // namespace

PLYSource::PLYSource(QIODevice& device_)
    : device(device_)
    , ready(device_.isSequential() || device_.reset())
    , textMode(device_.isTextModeEnabled())
{
    if (textMode)
        device.setTextModeEnabled(false);
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

PLYSource::~PLYSource()
{
    if (!device.isSequential())
        device.seek(handedOut);
    if (textMode)
        device.setTextModeEnabled(true);
}

bool PLYSource::holds(qint64 count) const
{
    while (available() < count && fill()) {
    }
    return available() >= count;
}

QByteArrayView PLYSource::lookAhead(qsizetype count) const
{
    return inBody && holds(count) ? QByteArrayView(ahead).sliced(next) : QByteArrayView();
}

void PLYSource::drop(qsizetype count)
{
    next += count;
    handedOut += count;
}

bool PLYSource::atEnd() const
{
    return endlessLine || !holds(1);
}

qint64 PLYSource::readData(char* target, qint64 maxSize)
{
    if (maxSize <= 0)
        return 0;
    qint64 const count = inBody ? readBody(target, maxSize) : readLinePiece(target, maxSize);
    return count > 0 ? count : -1;
}

qint64 PLYSource::writeData(char const*, qint64)
{
    return -1;
}

bool PLYSource::fill() const
{
    if (ended)
        return false;
    ahead.remove(0, std::exchange(next, 0));
    qsizetype const held = ahead.size();
    ahead.resize(held + chunkBytes);
    qint64 const count = device.read(ahead.data() + held, chunkBytes);
    ended = count <= 0;
    ahead.resize(held + std::max<qint64>(count, 0));
    return !ended;
}

// The same look at the same bytes that QTextStream takes, so that both count in the same units.
void PLYSource::detectEncoding()
{
    holds(longestMark);
    QByteArrayView const start = QByteArrayView(ahead).first(std::min(available(), longestMark));
    auto const encoding = QStringConverter::encodingForData(start).value_or(QStringConverter::Utf8);
    bool const isUtf16 = encoding == QStringConverter::Utf16LE || encoding == QStringConverter::Utf16BE;
    bool const isUtf32 = encoding == QStringConverter::Utf32LE || encoding == QStringConverter::Utf32BE;
    unitBytes = isUtf32 ? 4 : isUtf16 ? 2 : 1;
    bigEndian = encoding == QStringConverter::Utf16BE || encoding == QStringConverter::Utf32BE;
}

qint64 PLYSource::readLinePiece(char* target, qint64 maxSize)
{
    if (unitBytes == 0)
        detectEncoding();
    if (endlessLine)
        return -1;
    qsizetype const length = linePieceLength(std::min<qint64>(maxSize, chunkBytes));
    bool const isLineEnd = length >= unitBytes && isLineFeed(ahead.constData() + next + length - unitBytes);
    lineBytes = isLineEnd ? 0 : lineBytes + length;
    endlessLine = lineBytes >= longestLine;
    return endlessLine ? -1 : handOut(target, length);
}

qint64 PLYSource::readBody(char* target, qint64 maxSize)
{
    qint64 count = 0;
    while (count < maxSize && holds(1))
        count += handOut(target + count, std::min<qint64>(available(), maxSize - count));
    return count;
}

qsizetype PLYSource::linePieceLength(qsizetype maxSize) const
{
    qsizetype searched = 0;
    do {
        for (; searched + unitBytes <= std::min(available(), maxSize); searched += unitBytes)
            if (isLineFeed(ahead.constData() + next + searched))
                return searched + unitBytes;
    } while (available() <= maxSize && fill());
    if (available() <= maxSize)
        return available();
    return std::max<qsizetype>(unitBytes == 1 ? asciiEnd(maxSize) : maxSize - maxSize % unitBytes, 1);
}

// Length of the bytes up to and with the last ASCII character. Where there is none, a line feed at least
// does not come next.
qsizetype PLYSource::asciiEnd(qsizetype maxSize) const
{
    char const* const line = ahead.constData() + next;
    for (qsizetype end = maxSize; end > 0; --end)
        if (isAscii(line[end - 1]))
            return end;
    return line[maxSize] == '\n' ? maxSize - 1 : maxSize;
}

bool PLYSource::isLineFeed(char const* unit) const
{
    int const low = bigEndian ? unitBytes - 1 : 0;
    for (int i = 0; i < unitBytes; ++i)
        if (unit[i] != (i == low ? '\n' : '\0'))
            return false;
    return true;
}

qint64 PLYSource::handOut(char* target, qsizetype size)
{
    std::memcpy(target, ahead.constData() + next, static_cast<std::size_t>(size));
    next += size;
    handedOut += size;
    return size;
}
