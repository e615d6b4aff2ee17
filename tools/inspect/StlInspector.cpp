#include "LibraryLog.h"
#include "Text.h"
#include "check/Checkers.h"
#include "inspect/Formats.h"
#include "inspect/MetadataRecord.h"
#include "inspect/StlBinary.h"
#include "inspect/StlReport.h"
#include "inspect/StlText.h"
#include "stl/STLReader.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

bool hasBinarySize(Source const& source)
{
    return source.size >= stl::prefixBytes && source.size == stl::fileBytes(stl::claimedFacets(source.head));
}

QString recognise(Source const& source)
{
    if (stl::isReadAsText(source.head))
        return Text::tr("by its first line, which starts with \"solid\"");
    if (hasBinarySize(source))
        return Text::counted("by its size, which is that of the %n facet(s) it claims", nullptr,
                             stl::claimedFacets(source.head));
    return {};
}

void addCounts(Report& report, qint64 facets, qint64 vertices)
{
    Report& inFile = report.section("inFile"_L1, Text::tr("in the file"));
    inFile.add("facets"_L1, Text::tr("facets"), facets);
    inFile.add("vertices"_L1, Text::tr("vertices"), vertices);
}

// As a reader hands it out: coincident vertices merged, degenerate facets dropped.
bool addCleanedCounts(Report& report, QString const& path)
{
    LogCapture const log;
    STLReader reader(nullptr, false, path);
    bool const isRead = reader.read(std::atomic<bool>(false));
    Report& cleaned = report.section("afterCleaning"_L1, Text::tr("after cleaning"));
    cleaned.add("facets"_L1, Text::tr("facets"),
                isRead ? Value(reader.getMesh().getNumIndices() / 4) : Value());
    cleaned.add("vertices"_L1, Text::tr("vertices"),
                isRead ? Value(reader.getMesh().getNumVertices()) : Value());
    return isRead;
}

void addTags(Report& report, stl::Contents const& contents)
{
    Table table = stl::tagTable(contents);
    QString const label = table.rows.empty() ? QString() : Text::tr("tags");
    report.add("tags"_L1, label, std::move(table));
}

void addHeader(Report& report, QByteArray const& header)
{
    std::optional<MeshHeader> const metadata = decodeMetadataRecord(header);
    QString text;
    if (!metadata)
        text = QString::fromLatin1(header.constData(),
                                   qsizetype(qstrnlen(header.constData(), size_t(header.size()))))
                   .trimmed();
    report.add("header"_L1, text.isEmpty() ? QString() : Text::tr("header"), text);
    addMetadata(report, metadata);
}

bool isTextInCapitals(Source const& source)
{
    return source.head.trimmed().toLower().startsWith("solid") && !source.head.contains('\0');
}

void failBinarySize(Source const& source, Inspection& inspection)
{
    if (isTextInCapitals(source)) {
        inspection.fail(
            ExitCode::Malformed,
            Text::tr("begins with \"%1\"; text is known by \"solid\" in small letters, so that this "
                     "counts as binary data")
                .arg(QString::fromLatin1(source.head.trimmed().left(5))),
            "stl-capital-solid"_L1);
        return;
    }
    if (source.size < stl::prefixBytes) {
        inspection.fail(
            ExitCode::Malformed,
            Text::counted("expected a header of 80 bytes and a facet count of 4, found %n byte(s)", nullptr,
                          source.size),
            "stl-too-short"_L1);
        return;
    }
    qint64 const claimed = stl::claimedFacets(source.head);
    qint64 const held = (source.size - stl::prefixBytes) / stl::facetBytes;
    inspection.fail(
        ExitCode::Malformed,
        Text::tr("the header says %1 facets = %2 bytes, the file holds %3 bytes, room for %4 facets")
            .arg(claimed)
            .arg(stl::fileBytes(claimed))
            .arg(source.size)
            .arg(held),
        "stl-size"_L1);
}

void inspectBinary(Source const& source, Inspection& inspection)
{
    inspection.report.add("encoding"_L1, Text::tr("encoding"), "binary"_L1);
    if (!hasBinarySize(source)) {
        failBinarySize(source, inspection);
        return;
    }
    QFile file(source.path);
    if (!file.open(QIODevice::ReadOnly)) {
        inspection.fail(ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened: ") + file.errorString());
        return;
    }
    stl::Contents const contents = stl::contentsOf(file, stl::claimedFacets(source.head));
    addCounts(inspection.report, contents.facets, 3 * contents.facets);
    addCleanedCounts(inspection.report, source.path);
    contents.bounds.addTo(inspection.report);
    addHeader(inspection.report, source.head.left(stl::headerBytes));
    addTags(inspection.report, contents);
}

void failNoVertices(Source const& source, Inspection& inspection)
{
    if (hasBinarySize(source))
        inspection.fail(
            ExitCode::Unsupported,
            Text::counted("a binary STL of %n facet(s) whose header begins with \"solid\": such a file is "
                          "read as text, and as text it holds no vertices",
                          nullptr, stl::claimedFacets(source.head)),
            "stl-says-solid"_L1);
    else if (source.head.contains('\0'))
        inspection.fail(ExitCode::Malformed,
                        Text::tr("begins with \"solid\" as text does, but holds binary data whose size is "
                                 "not that of the facets it claims"),
                        "stl-damaged-solid"_L1);
    else
        inspection.fail(ExitCode::Malformed,
                        Text::tr("expected lines that begin with \"vertex\", found none"),
                        "stl-no-vertex"_L1);
}

void inspectText(Source const& source, Inspection& inspection)
{
    inspection.report.add("encoding"_L1, Text::tr("encoding"), "ascii"_L1);
    QFile file(source.path);
    if (!file.open(QIODevice::ReadOnly)) {
        inspection.fail(ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened: ") + file.errorString());
        return;
    }
    stl::TextContents const contents = stl::textContentsOf(file);
    addCounts(inspection.report, contents.vertices / 3, contents.vertices);
    if (!contents.problem.isEmpty())
        inspection.fail(ExitCode::Malformed, contents.problem, contents.problemCode);
    else if (contents.vertices == 0)
        failNoVertices(source, inspection);
    else if (!addCleanedCounts(inspection.report, source.path))
        inspection.fail(ExitCode::Malformed, Text::tr("no facet has three different corners"),
                        "stl-all-degenerate"_L1);
    contents.bounds.addTo(inspection.report);
}

void inspect(Source const& source, Inspection& inspection)
{
    if (stl::isReadAsText(source.head))
        inspectText(source, inspection);
    else
        inspectBinary(source, inspection);
}

} // namespace

Table stl::tagTable(Contents const& contents)
{
    Table table;
    table.columns = {{"tag"_L1, Text::tr("tag")},
                     {"subTag"_L1, Text::tr("subTag")},
                     {"facets"_L1, Text::tr("facets")},
                     {"area"_L1, Text::tr("area (mm²)")}};
    for (auto const& [tag, tagged] : contents.tags)
        table.rows.push_back({tag.tag, tag.subTag, tagged.facets, tagged.area});
    return table;
}

Format const stlFormat = {"stl"_L1, "STL"_L1, "stl"_L1, recognise, inspect, checkStl};

} // namespace tool
