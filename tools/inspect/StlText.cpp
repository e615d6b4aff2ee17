#include "inspect/StlText.h"

#include "Text.h"

#include <QTextStream>

#include <optional>

using namespace Qt::StringLiterals;

namespace tool::stl {

namespace {

constexpr int coordinates = 3;
constexpr qsizetype shownCharacters = 60;

std::optional<QVector3D> vertexIn(QString const& line)
{
    QStringList const pieces = line.split(u' ', Qt::SkipEmptyParts).mid(1, coordinates);
    if (pieces.size() < coordinates)
        return {};
    QVector3D vertex;
    for (int i = 0; i < coordinates; ++i) {
        bool isNumber = false;
        vertex[i] = pieces[i].toFloat(&isNumber);
        if (!isNumber)
            return {};
    }
    return vertex;
}

QString badVertex(qint64 lineNumber, QString const& line)
{
    QString const shown = line.trimmed().left(shownCharacters).replace(u'\t', "\\t"_L1);
    return Text::tr("line %1: expected \"vertex\" and three numbers with spaces between, found \"%2\"")
        .arg(QString::number(lineNumber), shown);
}

} // namespace

bool isReadAsText(QByteArrayView head)
{
    QTextStream stream(head.toByteArray(), QIODevice::ReadOnly);
    return stream.readLine().trimmed().startsWith("solid"_L1);
}

TextContents textContentsOf(QIODevice& device)
{
    TextContents contents;
    QTextStream stream(&device);
    QString line;
    for (qint64 lineNumber = 1; stream.readLineInto(&line); ++lineNumber) {
        if (!line.trimmed().startsWith("vertex"_L1))
            continue;
        std::optional<QVector3D> const vertex = vertexIn(line);
        if (!vertex) {
            contents.problem = badVertex(lineNumber, line);
            contents.problemCode = "stl-bad-vertex"_L1;
            return contents;
        }
        ++contents.vertices;
        contents.lastVertexLine = lineNumber;
        contents.bounds.add(*vertex);
    }
    if (contents.vertices % 3 == 0)
        return contents;
    contents.problemCode = "stl-vertex-count"_L1;
    contents.problem =
        Text::tr("expected three vertices for each facet, found %1 vertices, the last in line %2")
            .arg(contents.vertices)
            .arg(contents.lastVertexLine);
    return contents;
}

} // namespace tool::stl
