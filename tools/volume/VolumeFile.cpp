#include "volume/VolumeFile.h"

#include "LibraryLog.h"
#include "Text.h"
#include "inspect/Format.h"
#include "vmesh/MTModelBoundaryConditionsParser.h"
#include "vmesh/MTModelVMeshParser.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr qint64 linesBeforePoints = 2;
constexpr qint64 linesBeforeConditions = 4;
constexpr qsizetype shownCharacters = 60;

// The line that a parser names in its last message; 0 when it names none.
qint64 lineNamedIn(QStringList const& messages)
{
    static QRegularExpression const pattern(u"could not parse line (\\d+) \\.$"_s);
    return messages.isEmpty() ? 0 : pattern.match(messages.last()).captured(1).toLongLong();
}

/// A line of a text file and one before it.
struct Lines
{
    QString counts;
    QString line; // null behind the last line
};

Lines linesAt(QString const& path, qint64 countsLine, qint64 number)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    Lines lines;
    QTextStream stream(&file);
    for (qint64 i = 1; i <= number; ++i) {
        lines.line = stream.readLine();
        if (i == countsLine)
            lines.counts = lines.line;
    }
    return lines;
}

QString shown(QString const& line)
{
    return line.left(shownCharacters).replace(u'\t', "\\t"_L1);
}

QString sentence(qint64 number, QString const& expected, QString const& line)
{
    if (line.isNull())
        return Text::tr("the file ends before line %1: expected %2").arg(QString::number(number), expected);
    return Text::tr("line %1: expected %2, found \"%3\"").arg(QString::number(number), expected, shown(line));
}

/// Rows of one kind in a volume mesh.
struct Section
{
    qint64 count;
    QString content;
};

// What a volume mesh has in a line behind the sizes, by the counts that it claims.
QString expectedRow(QString const& sizes, qint64 number)
{
    QStringList const counts = sizes.split(u' ');
    auto const countAt = [&counts](qsizetype i) { return counts.value(i).toLongLong(); };
    std::array const sections = {
        Section{countAt(3), Text::tr("point %1 of %2, three numbers with single blanks between")},
        Section{countAt(1), Text::tr("face row %1 of %2, five integers with single blanks between")},
        Section{countAt(2), Text::tr("bound-face row %1 of %2, five integers with single blanks between")}};
    qint64 index = number - linesBeforePoints;
    for (Section const& section : sections) {
        if (index <= section.count)
            return section.content.arg(QString::number(index), QString::number(section.count));
        index -= section.count;
    }
    return {};
}

QString volumeProblem(QString const& path, qint64 number)
{
    Lines const lines = linesAt(path, 2, number);
    if (number == 1)
        return sentence(number, Text::tr("a header with \"# Labeled\""), lines.line);
    if (number == 2)
        return sentence(
            number, Text::tr("four counts (tetrahedra, faces, bound faces, points) that the file can hold"),
            lines.line);
    return sentence(number, expectedRow(lines.counts, number), lines.line);
}

QString conditionsProblem(QString const& path, qint64 number)
{
    if (number == 0)
        return Text::tr("the file ends before line 4: expected the number of conditions");
    Lines const lines = linesAt(path, linesBeforeConditions, number);
    if (number == linesBeforeConditions)
        return sentence(number, Text::tr("the number of conditions"), lines.line);
    QString const expected =
        Text::tr("condition %1 of %2, an index and three numbers with single blanks between");
    return sentence(number,
                    expected.arg(QString::number(number - linesBeforeConditions), lines.counts.trimmed()),
                    lines.line);
}

template <typename File>
Problem readSoundWith(File (*read)(QString const&), QString const& path, File& file)
{
    if (QString const problem = whyUnreadable(path); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, problem};
    file = read(path);
    return file.problem.isEmpty() ? Problem() : Problem{ExitCode::Malformed, file.problem};
}

} // namespace

VolumeFile readVolumeFile(QString const& path)
{
    LogCapture const log;
    MTModelVMeshParser parser(path);
    if (parser.read())
        return {parser.getVMesh(), {}};
    return {{}, volumeProblem(path, lineNamedIn(log.messages()))};
}

ConditionsFile readConditionsFile(QString const& path)
{
    LogCapture const log;
    MTModelBoundaryConditionsParser parser(path);
    if (parser.read())
        return {parser.getBoundaryConditions(), {}};
    return {{}, conditionsProblem(path, lineNamedIn(log.messages()))};
}

Problem readSound(QString const& path, VolumeFile& file)
{
    return readSoundWith(readVolumeFile, path, file);
}

Problem readSound(QString const& path, ConditionsFile& file)
{
    return readSoundWith(readConditionsFile, path, file);
}

} // namespace tool
