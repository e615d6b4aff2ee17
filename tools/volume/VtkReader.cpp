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

constexpr qint64 mostCounted = std::numeric_limits<qint32>::max();
constexpr QByteArrayView firstWords = "# vtk DataFile Version ";

// The text with the places of a number, counted from 1, and of how many there are.
QString ofMany(QString const& text, qint64 index, qint64 count)
{
    return text.arg(QString::number(index + 1), QString::number(count));
}

class VtkReader
{
public:
    VtkReader(QByteArrayView text_, TetrahedralMesh& mesh_)
        : text(text_)
        , words(text)
        , mesh(mesh_)
    {}

    Problem read()
    {
        if (Problem problem = readHeader())
            return problem;
        while (words.next() && words.word() != "POINT_DATA" && words.word() != "CELL_DATA") {
            if (Problem problem = readSection())
                return problem;
        }
        if (!hasPoints || !hasCells || !hasTypes)
            return malformed(words.expected(Text::tr("POINTS, CELLS and CELL_TYPES")));
        return problemOf(mesh);
    }

private:
    Problem readHeader();
    Problem readSection();
    Problem readPoints();
    Problem readCells();
    Problem readCounted(qint64 cells, qint64 numbers);
    Problem readOffsets(qint64 offsets, qint64 numbers);
    Problem readConnectivity(qint64 numbers);
    Problem readTypes();
    Problem takeCell(CellKind const& kind, qint64 cell);
    Problem takeTetrahedron(qint64 cell);
    Problem skipField();
    Problem readIndex();
    Problem readCount(qint64& count);
    bool readNumber(qint64 least, qint64 most, qint64& number);
    Problem expectWord(QByteArrayView word);

    QByteArrayView text;
    Words words;
    TetrahedralMesh& mesh;
    // The points of cell k are those from ends[k - 1] to ends[k].
    std::vector<qint64> ends;
    std::vector<qint32> indices;
    bool hasPoints = false;
    bool hasCells = false;
    bool hasTypes = false;
};

Problem VtkReader::expectWord(QByteArrayView word)
{
    return words.next() && words.word() == word ? Problem()
                                                : malformed(words.expected(QString::fromLatin1(word)));
}

Problem VtkReader::readHeader()
{
    words.next();
    if (!text.startsWith(firstWords))
        return malformed(words.expectedLine(
            Text::tr("\"%1\" and a number").arg(QLatin1StringView(firstWords.chopped(1)))));
    words.nextLine();
    words.nextLine(); // the title
    words.next();
    if (words.word() == "BINARY")
        return unsupported(words.expected(Text::tr("ASCII (write the file as text)")));
    if (words.word() != "ASCII")
        return malformed(words.expected(u"ASCII"_s));
    if (Problem problem = expectWord("DATASET"))
        return problem;
    words.next();
    if (words.word() != "UNSTRUCTURED_GRID")
        return unsupported(words.expected(u"UNSTRUCTURED_GRID"_s));
    return {};
}

Problem VtkReader::readSection()
{
    struct Section
    {
        QByteArrayView keyword;
        Problem (VtkReader::*read)();
    };
    static constexpr std::array sections = {
        Section{"POINTS", &VtkReader::readPoints},
        Section{"CELLS", &VtkReader::readCells},
        Section{"CELL_TYPES", &VtkReader::readTypes},
        Section{"FIELD", &VtkReader::skipField},
    };
    if (words.word() == "METADATA") {
        words.skipParagraph();
        return {};
    }
    auto const section = std::find_if(sections.begin(), sections.end(),
                                      [this](Section const& row) { return row.keyword == words.word(); });
    if (section == sections.end())
        return malformed(words.expected(Text::tr("POINTS, CELLS, CELL_TYPES, FIELD or METADATA")));
    return (this->*section->read)();
}

bool VtkReader::readNumber(qint64 least, qint64 most, qint64& number)
{
    std::optional<qint64> const found = words.next() ? integerIn(words.word()) : std::nullopt;
    if (!found || *found < least || *found > most)
        return false;
    number = *found;
    return true;
}

Problem VtkReader::readCount(qint64& count)
{
    return readNumber(0, mostCounted, count) ? Problem()
                                             : malformed(words.expected(Text::tr("how many there are")));
}

Problem VtkReader::readPoints()
{
    if (std::exchange(hasPoints, true))
        return malformed(words.expected(Text::tr("one section POINTS")));
    qint64 count = 0;
    if (Problem problem = readCount(count))
        return problem;
    words.next(); // the type of the coordinates
    for (qint64 i = 0; i < 3 * count; ++i) {
        std::optional<float> const coordinate = words.next() ? coordinateIn(words.word()) : std::nullopt;
        if (!coordinate)
            return malformed(
                words.expected(ofMany(Text::tr("a coordinate of point %1 of %2"), i / 3, count)));
        if (Problem problem = interruption())
            return problem;
        mesh.points.push_back(*coordinate);
    }
    return {};
}

Problem VtkReader::readCells()
{
    if (!hasPoints)
        return malformed(words.expected(Text::tr("POINTS before CELLS")));
    if (std::exchange(hasCells, true))
        return malformed(words.expected(Text::tr("one section CELLS")));
    qint64 first = 0;
    qint64 second = 0;
    if (Problem problem = readCount(first))
        return problem;
    if (Problem problem = readCount(second))
        return problem;
    Words ahead = words;
    if (ahead.next() && ahead.word() == "OFFSETS")
        return readOffsets(first, second);
    return readCounted(first, second);
}

Problem VtkReader::readIndex()
{
    qint64 index = 0;
    if (!readNumber(0, mesh.pointCount() - 1, index))
        return malformed(words.expected(Text::tr("the index of one of %1 points").arg(mesh.pointCount())));
    indices.push_back(static_cast<qint32>(index));
    return {};
}

// Up to version 4.2: in front of the points of each cell stands how many they are.
Problem VtkReader::readCounted(qint64 cells, qint64 numbers)
{
    for (qint64 k = 0; k < cells; ++k) {
        qint64 const room = numbers - k - qint64(indices.size()) - 1;
        qint64 count = 0;
        if (!readNumber(0, room, count))
            return malformed(words.expected(
                ofMany(Text::tr("the number of points of cell %1 of %2, at most %3"), k, cells).arg(room)));
        if (Problem problem = interruption())
            return problem;
        for (qint64 i = 0; i < count; ++i) {
            if (Problem problem = readIndex())
                return problem;
        }
        ends.push_back(qint64(indices.size()));
    }
    qint64 const found = cells + qint64(indices.size());
    return found == numbers ? Problem()
                            : malformed(Text::tr("line %1: CELLS announces %2 numbers and has %3")
                                            .arg(words.line())
                                            .arg(numbers)
                                            .arg(found));
}

// Since version 5.0: where the points of each cell begin, and where the last ones end.
Problem VtkReader::readOffsets(qint64 offsets, qint64 numbers)
{
    words.next();
    words.next(); // the type of the offsets
    qint64 least = 0;
    for (qint64 k = 0; k < offsets; ++k) {
        qint64 const most = k == 0 ? 0 : numbers;
        if (!readNumber(least, most, least))
            return malformed(words.expected(
                ofMany(Text::tr("offset %1 of %2, from %3 to %4"), k, offsets).arg(least).arg(most)));
        if (k > 0)
            ends.push_back(least);
    }
    if (least != numbers)
        return malformed(words.expected(Text::tr("%1 as last offset").arg(numbers)));
    return readConnectivity(numbers);
}

Problem VtkReader::readConnectivity(qint64 numbers)
{
    if (Problem problem = expectWord("CONNECTIVITY"))
        return problem;
    words.next(); // the type of the indices
    for (qint64 i = 0; i < numbers; ++i) {
        if (Problem problem = readIndex())
            return problem;
    }
    return {};
}

Problem VtkReader::readTypes()
{
    if (!hasCells)
        return malformed(words.expected(Text::tr("CELLS before CELL_TYPES")));
    if (std::exchange(hasTypes, true))
        return malformed(words.expected(Text::tr("one section CELL_TYPES")));
    qint64 const cells = qint64(ends.size());
    qint64 count = 0;
    if (!readNumber(cells, cells, count))
        return malformed(words.expected(Text::tr("the number of cells, %1").arg(cells)));
    for (qint64 k = 0; k < count; ++k) {
        qint64 code = 0;
        if (!readNumber(0, mostCounted, code))
            return malformed(words.expected(ofMany(Text::tr("the type of cell %1 of %2"), k, count)));
        CellKind const* const kind = vtkKind(code);
        if (kind == nullptr)
            return unsupported(
                Text::tr("line %1: cells of the type %2 are not known").arg(words.line()).arg(code));
        if (Problem problem = takeCell(*kind, k))
            return problem;
    }
    return {};
}

Problem VtkReader::takeCell(CellKind const& kind, qint64 cell)
{
    if (Problem problem = problemOf(kind, words.line()))
        return problem;
    std::size_t const k = static_cast<std::size_t>(cell);
    qint64 const points = ends[k] - (k == 0 ? 0 : ends[k - 1]);
    bool const isSound = kind.nodes == 0 ? !kind.isTetrahedron() || points >= 4 : points == kind.nodes;
    if (!isSound)
        return malformed(Text::tr("line %1: the type of cell %2, %3, does not fit its %4 points")
                             .arg(QString::number(words.line()), QString::number(cell),
                                  Text::shown(kind.name), QString::number(points)));
    if (kind.isTetrahedron()) {
        mesh.curved += points > 4 ? 1 : 0;
        return takeTetrahedron(cell);
    }
    ++mesh.leftOut[kind.name];
    return {};
}

Problem VtkReader::takeTetrahedron(qint64 cell)
{
    qint64 const begin = cell == 0 ? 0 : ends[static_cast<std::size_t>(cell - 1)];
    auto const corners = indices.begin() + begin;
    for (int i = 1; i < 4; ++i) {
        if (std::find(corners, corners + i, corners[i]) != corners + i)
            return malformed(Text::tr("cell %1, counted from 0: a tetrahedron has point %2 twice")
                                 .arg(cell)
                                 .arg(corners[i]));
    }
    mesh.tetrahedra.insert(mesh.tetrahedra.end(), corners, corners + 4);
    return {};
}

// FIELD name arrays, and for each: name, components, tuples, type, values.
Problem VtkReader::skipField()
{
    qint64 arrays = 0;
    words.next();
    if (Problem problem = readCount(arrays))
        return problem;
    for (qint64 i = 0; i < arrays; ++i) {
        words.next();
        if (words.word() == "METADATA") {
            words.skipParagraph();
            words.next();
        }
        qint64 components = 0;
        qint64 tuples = 0;
        if (Problem problem = readCount(components))
            return problem;
        if (Problem problem = readCount(tuples))
            return problem;
        words.next();
        for (qint64 value = 0; value < components * tuples; ++value) {
            if (!words.next())
                return malformed(words.expected(Text::tr("a value of a field")));
        }
    }
    return {};
}

} // namespace

Problem readVtk(QByteArrayView text, TetrahedralMesh& mesh)
{
    return VtkReader(text, mesh).read();
}

} // namespace tool::volume
