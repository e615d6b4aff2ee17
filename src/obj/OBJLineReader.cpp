#include "obj/OBJLineReader.h"

#include <QIODevice>
#include <QStringDecoder>
#include <QTextStream>

#include <cstring>

namespace {

constexpr qsizetype blockSize = 65536;

bool isWhiteSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

QString decode(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString const text = decoder(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : text;
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
    raw = nextRawLine();
    char const* first = raw.begin();
    char const* last = raw.end();
    while (first != last && isWhiteSpace(*first))
        ++first;
    while (first != last && isWhiteSpace(last[-1]))
        --last;
    line = QByteArrayView(first, last);
    return !raw.isEmpty();
}

OBJLineReader::Tokens const& OBJLineReader::splitLine(std::size_t mostTokens)
{
    tokens.clear();
    if (!line.startsWith('#') && !splitAscii(mostTokens)) {
        // With its white space: it may part a byte order mark or a cut character from what is around them.
        decodedLine = decode(raw);
        tokens.clear();
        split(QStringView(decodedLine).trimmed(), mostTokens);
    }
    return tokens;
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

// False when there are bytes that are not ASCII.
bool OBJLineReader::splitAscii(std::size_t mostTokens)
{
    unsigned char found = 0;
    char const* next = line.begin();
    while (next != line.end()) {
        char const* const first = next;
        for (; next != line.end() && *next != ' '; ++next)
            found |= static_cast<unsigned char>(*next);
        if (next != first && tokens.size() < mostTokens)
            tokens.emplace_back(QLatin1StringView(first, next - first));
        if (next != line.end())
            ++next;
    }
    constexpr unsigned char highBit = 0x80;
    return (found & highBit) == 0;
}

void OBJLineReader::split(QStringView text, std::size_t mostTokens)
{
    if (text.startsWith(u'#'))
        return;
    for (QStringView const token : text.tokenize(u' ', Qt::SkipEmptyParts)) {
        if (tokens.size() == mostTokens)
            return;
        tokens.emplace_back(token);
    }
}
