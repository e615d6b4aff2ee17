#pragma once

#include <QByteArrayView>
#include <QStringView>
#include <QVector3D>

#include <optional>

class QTextStream;

/// ASCII STL, line by line.
namespace stl {

/// Reads the first line; whether it starts with "solid" behind white space.
bool isAscii(QTextStream& stream);

/// Goes to the next line, in parts: a file may have gigabytes before its next line feed.
void skipRestOfLine(QTextStream& stream);

/// Whether a line starts with "vertex" behind white space.
bool isVertexLine(QStringView line);
/// The second to fourth piece between spaces; nothing when one of them is missing or no number.
std::optional<QVector3D> parseVertex(QStringView line);

enum class Line
{
    Skipped,
    Vertex,
    /// A vertex line that has no vertex.
    Broken,
    /// Its bytes do not tell which: it has to be decoded together with what is around it.
    Unclear
};

/// The same for the bytes of a line without its end. `vertex` is set for a vertex line.
Line parseLine(QByteArrayView line, QVector3D& vertex);

/// Reads a vertex line at the start of [next, end) as exporters write it: the keyword and three numbers in
/// plain spelling, spaces between them. Where the line after it begins; null, with `vertex` as it was, at any
/// other line, which `parseLine` reads. That would read these lines alike.
char const* takeVertexLine(char const* next, char const* end, QVector3D& vertex);

} // namespace stl
