#include "framework/NumberParsing.h"
#include "obj/OBJReader.h"
#include "obj/OBJReaderLists.h"

#include <array>
#include <optional>

// Nearly all lines of nearly all files are vertices and triangles in their plainest spelling. They are read
// here without cutting them into tokens first; whatever is out of the ordinary is left to readLine, which
// would read these lines alike.

namespace {

// Behind the spaces from `next` on, of which there is one at least; else null.
char const* skipSpaces(char const* next, char const* end)
{
    char const* const first = next;
    while (next != end && *next == ' ')
        ++next;
    return next != first ? next : nullptr;
}

bool isTokenEnd(char const* next, char const* end)
{
    return next == end || *next == ' ';
}

// What follows the numbers that count is ignored.
template <std::size_t count>
std::optional<std::array<float, count>> readNumbers(char const* next, char const* end)
{
    std::array<float, count> numbers;
    for (float& number : numbers) {
        next = skipSpaces(next, end);
        if (!next || !numbers::takeFloat(next, end, number) || !isTokenEnd(next, end))
            return std::nullopt;
    }
    return numbers;
}

void append(std::array<float, 3> const& xyz, QList<QVector3D>& list)
{
    list.append({xyz[0], xyz[1], xyz[2]});
}

void append(std::array<float, 2> const& uv, QList<QVector2D>& list)
{
    list.append({uv[0], uv[1]});
}

template <std::size_t count, typename List>
bool readVector(char const* next, char const* end, List& list)
{
    auto const numbers = readNumbers<count>(next, end);
    if (numbers)
        append(*numbers, list);
    return numbers.has_value();
}

// digits[/[digits][/[digits]]]; an index that is absent is 0 in the file. Behind the group; null where it is
// another one.
char const* readCorner(char const* next, char const* end, OBJReader::VertexIndices& corner)
{
    corner.vertex = numbers::takeDigits(next, end) - 1;
    if (next != end && *next == '/')
        corner.uv = numbers::takeDigits(++next, end) - 1;
    if (next != end && *next == '/')
        corner.normal = numbers::takeDigits(++next, end) - 1;
    return corner.vertex >= 0 && isTokenEnd(next, end) ? next : nullptr;
}

bool readCorners(char const* next, char const* end, std::array<OBJReader::VertexIndices, 3>& corners)
{
    for (OBJReader::VertexIndices& corner : corners) {
        next = skipSpaces(next, end);
        next = next ? readCorner(next, end, corner) : nullptr;
        if (!next)
            return false;
    }
    return next == end;
}

} // namespace

bool OBJReader::readPlainLine(QByteArrayView line, WorkingLists& lists)
{
    if (line.size() < 2)
        return false;
    char const* const keyword = line.begin();
    char const* const end = line.end();
    if (keyword[0] == 'f') {
        std::array<VertexIndices, 3> corners;
        bool const isPlain = readCorners(keyword + 1, end, corners);
        if (isPlain)
            appendFace(corners[0], corners[1], corners[2], lists);
        return isPlain;
    }
    if (keyword[0] != 'v')
        return false;
    switch (keyword[1]) {
    case ' ':
        return readVector<3>(keyword + 1, end, lists.positions);
    case 'n':
        return readVector<3>(keyword + 2, end, lists.normals);
    case 't':
        return readVector<2>(keyword + 2, end, lists.textureCoordinates);
    default:
        return false;
    }
}
