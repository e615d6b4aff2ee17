#include "stl/STLAscii.h"

#include "framework/ByteLines.h"
#include "framework/NumberParsing.h"

#include <QString>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <cstring>

using namespace Qt::StringLiterals;

namespace stl {

namespace {

constexpr auto asciiStart = "solid"_L1;
constexpr auto vertexKeyword = "vertex"_L1;
// In characters. Binary data, or a file without line feeds, may have gigabytes before the first of them.
constexpr qint64 partLength = 4096;

QString withoutLeadingSpace(QString const& text)
{
    auto const begin = std::find_if_not(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    return text.last(text.end() - begin);
}

// The text up to the next space; `line` is left with what follows.
QStringView takePiece(QStringView& line)
{
    qsizetype begin = 0;
    while (begin < line.size() && line[begin] == u' ')
        ++begin;
    qsizetype end = begin;
    while (end < line.size() && line[end] != u' ')
        ++end;
    QStringView const piece = line.sliced(begin, end - begin);
    line = line.sliced(end);
    return piece;
}

// The parser is quick with bytes, which is all that a number of a known exporter needs.
float toFloat(QStringView text, bool* ok)
{
    std::array<char, 32> bytes;
    auto const isAscii = [](QChar c) { return c.unicode() < 0x80; };
    if (text.size() > qsizetype(bytes.size()) || !std::all_of(text.begin(), text.end(), isAscii))
        return numbers::toFloat(text, ok);
    std::transform(text.begin(), text.end(), bytes.begin(), [](QChar c) { return c.toLatin1(); });
    return numbers::toFloat(QLatin1StringView(bytes.data(), text.size()), ok);
}

// As QChar::isSpace for ASCII.
bool isWhiteSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

char const* skipSpaces(char const* next, char const* end)
{
    while (next != end && *next == ' ')
        ++next;
    return next;
}

// The keyword and three numbers in plain spelling, spaces between them. Behind them; null where there is
// something else.
char const* readPlainVertex(char const* next, char const* end, QVector3D& vertex)
{
    next = skipSpaces(next, end);
    if (end - next < vertexKeyword.size() ||
        std::memcmp(next, vertexKeyword.data(), std::size_t(vertexKeyword.size())) != 0)
        return nullptr;
    next += vertexKeyword.size();
    std::array<float, 3> xyz{};
    for (float& number : xyz) {
        char const* const first = skipSpaces(next, end);
        if (first == next)
            return nullptr;
        next = first;
        if (!numbers::takeFloat(next, end, number))
            return nullptr;
    }
    vertex = QVector3D(xyz[0], xyz[1], xyz[2]);
    return next;
}

// Whether a line that is not ASCII is skipped however it is decoded: its first character shows that it is
// no vertex line, and there is no broken character that might take the line end with it.
bool isOtherText(QByteArrayView line)
{
    char const* const first = std::find_if_not(line.begin(), line.end(), isWhiteSpace);
    return first != line.end() && text::isAscii(QByteArrayView(first, 1)) &&
           *first != vertexKeyword.front().toLatin1() && line.isValidUtf8();
}

} // namespace

void skipRestOfLine(QTextStream& stream)
{
    QString part;
    do
        stream.readLineInto(&part, partLength);
    while (part.size() == partLength);
}

// Reads the first line, in parts.
bool isAscii(QTextStream& stream)
{
    QString start;
    QString part;
    do {
        part = stream.readLine(partLength);
        start = withoutLeadingSpace(start + part);
    } while (part.size() == partLength && start.size() < asciiStart.size());
    if (!start.startsWith(asciiStart))
        return false;
    if (part.size() == partLength)
        skipRestOfLine(stream);
    return true;
}

bool isVertexLine(QStringView line)
{
    return line.trimmed().startsWith(vertexKeyword);
}

// A missing piece is empty, and no number.
std::optional<QVector3D> parseVertex(QStringView line)
{
    takePiece(line); // the keyword, or what stands before it
    QVector3D vertex;
    for (int axis = 0; axis < 3; ++axis) {
        bool isNumber = false;
        vertex[axis] = toFloat(takePiece(line), &isNumber);
        if (!isNumber)
            return {};
    }
    return vertex;
}

char const* takeVertexLine(char const* next, char const* end, QVector3D& vertex)
{
    QVector3D taken;
    next = readPlainVertex(next, end, taken);
    if (!next)
        return nullptr;
    next = skipSpaces(next, end);
    if (next != end && *next == '\r')
        ++next;
    if (next == end || *next != '\n')
        return nullptr;
    vertex = taken;
    return next + 1;
}

Line parseLine(QByteArrayView line, QVector3D& vertex)
{
    if (!text::isAscii(line))
        return isOtherText(line) ? Line::Skipped : Line::Unclear;
    char const* const first = std::find_if_not(line.begin(), line.end(), isWhiteSpace);
    if (first == line.end() || *first != vertexKeyword.front().toLatin1())
        return Line::Skipped;
    QString const decoded = QString::fromLatin1(line);
    if (!isVertexLine(decoded))
        return Line::Skipped;
    std::optional<QVector3D> const parsed = parseVertex(decoded);
    vertex = parsed.value_or(vertex);
    return parsed ? Line::Vertex : Line::Broken;
}

} // namespace stl
