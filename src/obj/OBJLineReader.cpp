#include "obj/OBJLineReader.h"

#include <QIODevice>
#include <QStringDecoder>
#include <QTextStream>

#include <cstring>

namespace {

constexpr qsizetype blockSize = 65536;

bool isAscii(QByteArrayView bytes)
{
    constexpr quint64 highBits = 0x8080808080808080;
    char const* next = bytes.data();
    qsizetype left = bytes.size();
    quint64 found = 0;
    for (; left >= qsizetype(sizeof found); next += sizeof found, left -= sizeof found) {
        quint64 word = 0;
        std::memcpy(&word, next, sizeof word);
        found |= word;
    }
    for (; left > 0; ++next, --left)
        found |= static_cast<unsigned char>(*next);
    return (found & highBits) == 0;
}

bool isSpace(char c)
{
    return c == ' ';
}

bool isSpace(QChar c)
{
    return c == u' ';
}

QString decode(QByteArrayView line)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString const text = decoder(line);
    return decoder.hasError() ? QString::fromLatin1(line) : text;
}

} // namespace

OBJLineReader::OBJLineReader(QTextStream& stream_)
    : stream(stream_)
    , device(*stream_.device())
    , isSequential(device.isSequential())
{}

OBJLineReader::~OBJLineReader()
{
    if (begin != end)
        device.seek(device.pos() - (end - begin));
}

bool OBJLineReader::atEnd() const
{
    return begin == end && stream.atEnd();
}

bool OBJLineReader::readLine()
{
    tokens.clear();
    QByteArrayView const raw = nextRawLine();
    if (raw.isEmpty())
        return false;
    if (isAscii(raw)) {
        split(QLatin1StringView(raw).trimmed());
    } else {
        decodedLine = decode(raw);
        split(QStringView(decodedLine).trimmed());
    }
    return true;
}

QByteArrayView OBJLineReader::nextRawLine()
{
    if (isSequential) {
        sequentialLine = device.readLine();
        return sequentialLine;
    }
    qsizetype searched = 0;
    do {
        char const* const first = block.constData() + begin;
        auto const left = static_cast<std::size_t>(end - begin - searched);
        if (auto const* newline =
                left ? static_cast<char const*>(std::memchr(first + searched, '\n', left)) : nullptr) {
            qsizetype const length = newline + 1 - first;
            begin += length;
            return {first, length};
        }
        searched = end - begin;
    } while (readAhead());
    begin = end;
    return {block.constData() + end - searched, searched};
}

// Keeps what was read and not handed out; a line longer than the block makes the block grow with it.
bool OBJLineReader::readAhead()
{
    if (end == block.size()) {
        if (begin > 0)
            std::memmove(block.data(), block.constData() + begin, static_cast<std::size_t>(end - begin));
        end -= begin;
        begin = 0;
        if (end == block.size())
            block.resize(std::max(blockSize, 2 * end));
    }
    qint64 const count = device.read(block.data() + end, block.size() - end);
    end += std::max<qint64>(0, count);
    return count > 0;
}

template <typename View>
void OBJLineReader::split(View line)
{
    if (line.startsWith(QLatin1Char('#')))
        return;
    auto const* next = line.begin();
    auto const* const last = line.end();
    while (next != last) {
        auto const* const first = next;
        while (next != last && !isSpace(*next))
            ++next;
        if (next != first)
            tokens.emplace_back(View(first, next - first));
        if (next != last)
            ++next;
    }
}
