#include "Text.h"
#include "volume/CellKinds.h"
#include "volume/TetrahedralMesh.h"
#include "volume/Words.h"

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace tool::volume {

namespace {

/// The numbers that a file gives its nodes, any positive ones in any order, and their places in it.
class NodeNumbers
{
public:
    void add(qint64 number)
    {
        isSorted = isSorted && (nodes.empty() || nodes.back().number < number);
        nodes.push_back({number, static_cast<qint32>(nodes.size())});
    }

    /// A number that two nodes have, or 0. To be called when all are added.
    qint64 finish()
    {
        if (!isSorted)
            std::sort(nodes.begin(), nodes.end());
        auto const twice = std::adjacent_find(
            nodes.begin(), nodes.end(), [](Node const& a, Node const& b) { return a.number == b.number; });
        return twice == nodes.end() ? 0 : twice->number;
    }

    /// Its place, -1 when there is no such node.
    qint32 placeOf(qint64 number) const
    {
        auto const node = std::lower_bound(nodes.begin(), nodes.end(), Node{number, 0});
        return node == nodes.end() || node->number != number ? -1 : node->place;
    }

    qint64 count() const { return qint64(nodes.size()); }

private:
    struct Node
    {
        qint64 number;
        qint32 place;

        bool operator<(Node const& other) const { return number < other.number; }
    };

    std::vector<Node> nodes;
    bool isSorted = true;
};

class GmshReader
{
public:
    GmshReader(QByteArrayView text, TetrahedralMesh& mesh_)
        : words(text)
        , mesh(mesh_)
    {}

    Problem read()
    {
        if (Problem problem = readFormat())
            return problem;
        while (words.next()) {
            if (Problem problem = readSection())
                return problem;
        }
        if (!hasElements)
            return malformed(words.expected(hasNodes ? u"\"$Elements\""_s : u"\"$Nodes\""_s));
        return problemOf(mesh);
    }

private:
    Problem readFormat();
    Problem readSection();
    Problem skipSection(QByteArray const& end);
    Problem readNodes();
    Problem readNode(qint64 index, qint64 count);
    Problem readElements();
    Problem readElement(qint64 index, qint64 count);
    Problem takeElement(CellKind const& kind, qint64 tags);
    Problem takeTetrahedron();
    Problem expectWord(QByteArrayView word);
    Problem readCount(qint64& count);
    bool readRow();

    Words words;
    TetrahedralMesh& mesh;
    NodeNumbers nodes;
    // Of the line at hand.
    std::vector<qint64> row;
    bool hasNodes = false;
    bool hasElements = false;
};

Problem GmshReader::expectWord(QByteArrayView word)
{
    words.next();
    if (words.word() == word && !words.nextInLine())
        return {};
    return malformed(words.expectedLine(u"\"%1\""_s.arg(QLatin1StringView(word))));
}

Problem GmshReader::readFormat()
{
    if (Problem problem = expectWord("$MeshFormat"))
        return problem;
    words.next();
    if (words.word() != "2.2")
        return unsupported(words.expected(
            Text::tr("version 2.2 (\"gmsh -save -format msh22 -o OUT.msh IN.msh\" writes that)")));
    std::optional<qint64> const encoding = words.nextInLine() ? integerIn(words.word()) : std::nullopt;
    bool const hasSize = words.nextInLine() && integerIn(words.word());
    if (!encoding || !hasSize || words.nextInLine())
        return malformed(words.expectedLine(Text::tr("three numbers, \"2.2 0 8\"")));
    if (*encoding != 0)
        return unsupported(words.expectedLine(
            Text::tr("ASCII, \"2.2 0 8\" (\"gmsh -save -format msh22 -o OUT.msh IN.msh\" writes that)")));
    return expectWord("$EndMeshFormat");
}

Problem GmshReader::readSection()
{
    QByteArray const name = words.word().toByteArray();
    if (!name.startsWith('$') || name.startsWith("$End"))
        return malformed(words.expectedLine(Text::tr("the beginning of a section, such as \"$Nodes\"")));
    if (name == "$Nodes")
        return readNodes();
    return name == "$Elements" ? readElements() : skipSection("$End" + name.mid(1));
}

Problem GmshReader::skipSection(QByteArray const& end)
{
    do {
        words.nextLine();
    } while (words.next() && words.word() != end);
    if (words.word() != end)
        return malformed(words.expected(u"\"%1\""_s.arg(QLatin1StringView(end))));
    return words.nextInLine() ? malformed(words.expectedLine(u"\"%1\""_s.arg(QLatin1StringView(end))))
                              : Problem();
}

// The numbers of the next line. False when there is something else in it.
bool GmshReader::readRow()
{
    // A row of the largest element, with more tags than any mesher writes. Memory is not for longer ones.
    constexpr std::size_t mostNumbers = 256;
    row.clear();
    for (bool isThere = words.next(); isThere; isThere = words.nextInLine()) {
        std::optional<qint64> const number = integerIn(words.word());
        if (!number || row.size() == mostNumbers)
            return false;
        row.push_back(*number);
    }
    return !row.empty();
}

Problem GmshReader::readCount(qint64& count)
{
    if (!readRow() || row.size() != 1 || row[0] < 0)
        return malformed(words.expectedLine(Text::tr("how many there are")));
    count = row[0];
    return {};
}

Problem GmshReader::readNodes()
{
    if (std::exchange(hasNodes, true))
        return malformed(words.expectedLine(Text::tr("one section \"$Nodes\"")));
    qint64 count = 0;
    if (Problem problem = readCount(count))
        return problem;
    for (qint64 i = 0; i < count; ++i) {
        if (Problem problem = readNode(i, count))
            return problem;
    }
    if (qint64 const twice = nodes.finish(); twice != 0)
        return malformed(Text::tr("two nodes have the number %1").arg(twice));
    return expectWord("$EndNodes");
}

Problem GmshReader::readNode(qint64 index, qint64 count)
{
    if (Problem problem = interruption())
        return problem;
    std::optional<qint64> const number = words.next() ? integerIn(words.word()) : std::nullopt;
    bool isSound = number && *number > 0 && nodes.count() < std::numeric_limits<qint32>::max();
    for (int i = 0; i < 3 && isSound; ++i) {
        std::optional<float> const coordinate =
            words.nextInLine() ? coordinateIn(words.word()) : std::nullopt;
        isSound = coordinate.has_value();
        mesh.points.push_back(coordinate.value_or(0.0F));
    }
    if (!isSound || words.nextInLine())
        return malformed(words.expectedLine(Text::tr("node %1 of %2, its number and three coordinates")
                                                .arg(QString::number(index + 1), QString::number(count))));
    nodes.add(*number);
    return {};
}

Problem GmshReader::readElements()
{
    if (!hasNodes)
        return malformed(words.expectedLine(Text::tr("\"$Nodes\" before \"$Elements\"")));
    if (std::exchange(hasElements, true))
        return malformed(words.expectedLine(Text::tr("one section \"$Elements\"")));
    qint64 count = 0;
    if (Problem problem = readCount(count))
        return problem;
    for (qint64 i = 0; i < count; ++i) {
        if (Problem problem = readElement(i, count))
            return problem;
    }
    return expectWord("$EndElements");
}

// Its number, its kind, the number of its tags, these, and its nodes.
Problem GmshReader::readElement(qint64 index, qint64 count)
{
    constexpr qint64 leastNumbers = 3;
    if (Problem problem = interruption())
        return problem;
    bool const isRow = readRow() && qint64(row.size()) > leastNumbers && row[2] >= 0;
    CellKind const* const kind = isRow ? gmshKind(row[1]) : nullptr;
    if (isRow && kind == nullptr)
        return unsupported(
            Text::tr("line %1: elements of the type %2 are not known").arg(words.line()).arg(row[1]));
    if (!isRow || qint64(row.size()) - leastNumbers - kind->nodes != row[2])
        return malformed(
            words.expectedLine(Text::tr("element %1 of %2, its number, type, number of tags, tags and nodes")
                                   .arg(QString::number(index + 1), QString::number(count))));
    return takeElement(*kind, row[2]);
}

Problem GmshReader::takeElement(CellKind const& kind, qint64 tags)
{
    constexpr qint64 numbersBeforeTags = 3;
    if (kind.isTetrahedron()) {
        mesh.curved += kind.nodes > 4 ? 1 : 0;
        row.erase(row.begin(), row.begin() + numbersBeforeTags + tags);
        return takeTetrahedron();
    }
    if (Problem problem = problemOf(kind, words.line()))
        return problem;
    ++mesh.leftOut[kind.name];
    return {};
}

// Of the first four numbers of the row.
Problem GmshReader::takeTetrahedron()
{
    std::array<qint32, 4> corners = {};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = nodes.placeOf(row[i]);
        if (corners[i] < 0)
            return malformed(Text::tr("line %1: a tetrahedron refers to node %2, which is not there")
                                 .arg(words.line())
                                 .arg(row[i]));
        if (std::find(corners.begin(), corners.begin() + i, corners[i]) != corners.begin() + i)
            return malformed(
                Text::tr("line %1: a tetrahedron has node %2 twice").arg(words.line()).arg(row[i]));
    }
    mesh.tetrahedra.insert(mesh.tetrahedra.end(), corners.begin(), corners.end());
    return {};
}

} // namespace

Problem readGmsh(QByteArrayView text, TetrahedralMesh& mesh)
{
    return GmshReader(text, mesh).read();
}

} // namespace tool::volume
