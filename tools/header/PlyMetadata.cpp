#include "Text.h"
#include "header/Metadata.h"
#include "output/OutputFile.h"

#include <QList>

#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr QByteArrayView title = "comment scan information";

/// One line of metadata: what it begins with, and how it is taken from and put into a header.
struct Line
{
    QByteArrayView key;
    QString (*value)(MeshHeader const& header);
};

QString nameWithoutMarks(MeshHeader const& header)
{
    return header.getScannerName().remove(u'®').remove(u'™');
}

constexpr std::array lines = {
    Line{"comment scanner name: ", nameWithoutMarks},
    Line{"comment scanner serial: ", [](MeshHeader const& header) { return header.getScannerSerial(); }},
    Line{"comment imported: ",
         [](MeshHeader const& header) { return QString(header.isImported() ? u'1' : u'0'); }},
    Line{"comment software version: ", [](MeshHeader const& header) { return header.getSoftwareVersion(); }},
    Line{"comment acquisition date: ",
         [](MeshHeader const& header) { return header.getAcquisitionDate().date().toString(Qt::ISODate); }},
};

/// The lines of a PLY header with their ends, "end_header" the last; empty when there is none.
QList<QByteArray> readHeader(QIODevice& in)
{
    constexpr qint64 longestLine = 4096;
    constexpr qsizetype mostLines = 10'000;
    QList<QByteArray> header;
    while (header.size() < mostLines) {
        header << in.readLine(longestLine);
        if (header.first().trimmed().toLower() != "ply" || header.last().isEmpty())
            return {};
        if (header.last().trimmed().toLower() == "end_header")
            return header;
    }
    return {};
}

Problem noHeader()
{
    return {ExitCode::Malformed,
            Text::tr("expected a PLY header from \"ply\" to \"end_header\", found none")};
}

std::size_t fieldOf(QByteArray const& line)
{
    std::size_t field = 0;
    while (field < lines.size() && !line.startsWith(lines[field].key.trimmed()))
        ++field;
    return field;
}

bool isMetadata(QByteArray const& line)
{
    return line.trimmed() == title || fieldOf(line) < lines.size();
}

MeshHeader toMetadata(std::array<QString, lines.size()> const& values)
{
    QDate const date = QDate::fromString(values[4], Qt::ISODate);
    return {values[0], values[1], values[2] == "1"_L1, values[3],
            date.isValid() ? date.startOfDay(Qt::UTC) : QDateTime()};
}

QByteArray toLines(MeshHeader const& metadata, QByteArray const& lineEnd)
{
    QByteArray text = title.toByteArray() + lineEnd;
    for (Line const& line : lines)
        text += line.key.toByteArray() + line.value(metadata).toUtf8() + lineEnd;
    return text;
}

QByteArray withMetadata(QList<QByteArray> const& header, Metadata const& metadata)
{
    QByteArray const lineEnd = header.first().endsWith("\r\n") ? "\r\n" : "\n";
    QByteArray text;
    bool isPlaced = !metadata.has_value();
    for (QByteArray const& line : header) {
        if (isMetadata(line))
            continue;
        text += line;
        if (!isPlaced && line.trimmed().toLower().startsWith("format ")) {
            text += toLines(*metadata, lineEnd);
            isPlaced = true;
        }
    }
    return text;
}

} // namespace

Problem readPlyMetadata(QIODevice& in, Metadata& metadata)
{
    QList<QByteArray> const header = readHeader(in);
    if (header.isEmpty())
        return noHeader();
    std::array<QString, lines.size()> values;
    bool isThere = false;
    for (QByteArray const& line : header) {
        std::size_t const field = fieldOf(line);
        if (field == lines.size())
            continue;
        values[field] = QString::fromUtf8(line.sliced(lines[field].key.trimmed().size())).trimmed();
        isThere = true;
    }
    metadata.reset();
    if (isThere)
        metadata = toMetadata(values);
    return {};
}

Problem writePlyMetadata(QIODevice& in, Metadata const& metadata, QFile& out)
{
    QList<QByteArray> const header = readHeader(in);
    if (header.isEmpty())
        return noHeader();
    QByteArray const text = withMetadata(header, metadata);
    if (out.write(text) != text.size())
        return {ExitCode::ReadOrWriteFailed, whyNotWritten(out.fileName())};
    return copyRest(in, out);
}

} // namespace tool
