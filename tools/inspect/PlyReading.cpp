#include "inspect/PlyReading.h"

#include "LibraryLog.h"
#include "Text.h"

#include <array>

using namespace Qt::StringLiterals;

namespace tool::ply {

namespace {

bool hasFaceColor(HeaderText const& header)
{
    Element const* const face = header.element("face"_L1);
    if (face == nullptr)
        return false;
    for (Property const& property : face->properties) {
        if (useOf(*face, property) == "face colour"_L1)
            return true;
    }
    return false;
}

bool hasPointsOnly(HeaderText const& header)
{
    Element const* const vertex = header.element("vertex"_L1);
    Element const* const face = header.element("face"_L1);
    return vertex != nullptr && vertex->count > 0 && (face == nullptr || face->count == 0);
}

Reading readAs(QString const& path, PLYReader::ReadMode mode, bool withFaceColors)
{
    Reading reading;
    LogCapture const capture;
    std::atomic<bool> const cancel = false;
    reading.reader = std::make_unique<PLYReader>(mode);
    reading.reader->setFileName(path);
    reading.reader->setTextureSupport(SurfaceReader::TextureOptional);
    reading.reader->activeFaceColorMode(withFaceColors);
    reading.success = reading.reader->read(cancel);
    reading.isCloud = mode != PLYReader::MeshMode;
    reading.hasFaceColors = withFaceColors;
    reading.log = capture.messages();
    return reading;
}

QString elementNames(HeaderText const& header)
{
    QStringList names;
    for (Element const& element : header.elements)
        names << element.name;
    return names.join(", "_L1);
}

// A count other than 3, as the library reports it; empty when that was not the reason.
QString polygonCorners(QStringList const& log)
{
    for (QString const& message : log) {
        if (message.startsWith("Unsupported indices count"_L1))
            return message.section(u' ', 4, 4);
    }
    return {};
}

struct Finding
{
    ExitCode code = ExitCode::Ok;
    QString sentence;
    QLatin1StringView problemCode;
};

Finding malformed(QString const& sentence, QLatin1StringView problemCode = {})
{
    return {ExitCode::Malformed, sentence, problemCode};
}

Finding unsupported(QString const& sentence, QLatin1StringView problemCode)
{
    return {ExitCode::Unsupported, sentence, problemCode};
}

bool isFine(Finding const& finding)
{
    return finding.code == ExitCode::Ok;
}

Finding judgeEnd(HeaderText const& header)
{
    if (header.bodyStart < 0)
        return malformed(Text::tr("expected \"end_header\", found the end of the file"));
    return {};
}

// A carriage return alone ends no line, and a tab parts no words.
Finding judgeSpace(QString const& line)
{
    if (line.contains(u'\r'))
        return malformed(Text::tr("the lines of the header end with carriage returns; expected line feeds"),
                         "ply-line-ends"_L1);
    if (line.contains(u'\t'))
        return malformed(Text::tr("expected spaces between the words of the header, found a tab: \"%1\"")
                             .arg(line.left(40).replace(u'\t', "\\t"_L1)),
                         "ply-tabs"_L1);
    return {};
}

Finding judgeLines(HeaderText const& header)
{
    bool const isCutShort = !header.hasMagic() && header.firstLine.startsWith("ply"_L1, Qt::CaseInsensitive);
    if (Finding finding = judgeSpace(isCutShort ? header.firstLine : header.strangeLine); !isFine(finding))
        return finding;
    if (!header.hasMagic())
        return malformed(
            Text::tr("expected \"ply\" in the first line, found \"%1\"").arg(header.firstLine.left(40)));
    if (!header.strangeLine.isEmpty())
        return malformed(
            Text::tr("expected a line of a PLY header, found \"%1\"").arg(header.strangeLine.left(40)));
    if (header.format == "ascii"_L1)
        return unsupported(Text::tr("is encoded in ASCII; only binary PLY is read"), "ply-ascii"_L1);
    if (header.format != "binary_little_endian"_L1 && header.format != "binary_big_endian"_L1)
        return malformed(
            Text::tr("expected the format \"binary_little_endian\" or \"binary_big_endian\", found \"%1\"")
                .arg(header.format));
    return judgeEnd(header);
}

Finding judgeProperty(Element const& element, Property const& property)
{
    if (!useOf(element, property).startsWith("fails"_L1))
        return {};
    if (property.isList())
        return unsupported(Text::tr("has a list \"%1\"; the only list that is read is \"vertex_indices\"")
                               .arg(property.name),
                           "ply-properties"_L1);
    return unsupported(Text::tr("stores \"%1\" as \"%2\", a type that is read as no bytes")
                           .arg(property.name, property.type),
                       "ply-properties"_L1);
}

Finding judgeElements(HeaderText const& header, QStringList const& log)
{
    constexpr std::size_t leastProperties = 3;
    for (QString const& message : log) {
        if (message.contains("element is not in the expected order"_L1))
            return unsupported(
                Text::tr("has the elements %1; expected vertex, face and velquin_material first, in "
                         "this order")
                    .arg(elementNames(header)),
                "ply-elements"_L1);
    }
    Element const* const vertex = header.element("vertex"_L1);
    if (vertex == nullptr || vertex->properties.size() < leastProperties)
        return malformed(Text::tr("expected a vertex element of at least 3 properties, found %1")
                             .arg(vertex == nullptr ? 0 : vertex->properties.size()));
    for (Element const& element : header.elements) {
        for (Property const& property : element.properties) {
            if (Finding finding = judgeProperty(element, property); !isFine(finding))
                return finding;
        }
    }
    return {};
}

QString missingBytes(qint64 announced, qint64 held)
{
    return Text::tr("the header announces a body of %1 bytes, the file holds %2: %3 are missing")
        .arg(announced)
        .arg(held)
        .arg(announced - held);
}

Finding judgeBody(Source const& source, HeaderText const& header, Reading const& reading)
{
    qint64 const announced = announcedBytes(header);
    qint64 const held = source.size - header.bodyStart;
    if (QString const corners = polygonCorners(reading.log); !corners.isEmpty())
        return unsupported(Text::counted("has a face of %n corner(s); only triangles are read", nullptr,
                                         corners.toLongLong()),
                           "ply-polygons"_L1);
    if (held < announced)
        return malformed(missingBytes(announced, held), "ply-size"_L1);
    if (!reading.success)
        return malformed(Text::tr("a face asks for a vertex that is not there"), "ply-bad-index"_L1);
    return {};
}

Finding judgeUse(HeaderText const& header, Reading const& reading)
{
    if (reading.isCloud)
        return unsupported(Text::counted("holds %n point(s) and no faces; as a mesh it is not read", nullptr,
                                         header.element("vertex"_L1)->count),
                           "ply-points"_L1);
    if (reading.hasFaceColors)
        return unsupported(Text::tr("faces have colours; such a file is read only where they are asked for"),
                           "ply-face-colours"_L1);
    return {};
}

} // namespace

Reading readFile(QString const& path, HeaderText const& header)
{
    Reading reading = readAs(path, PLYReader::MeshMode, false);
    if (!reading.success && hasPointsOnly(header))
        reading = readAs(path, PLYReader::PointCloudMode, false);
    else if (!reading.success && hasFaceColor(header))
        reading = readAs(path, PLYReader::MeshMode, true);
    return reading;
}

void judge(Source const& source, HeaderText const& header, Reading const& reading, Inspection& inspection)
{
    // Headers in UTF-16 are read too, but not here.
    if (reading.success && !header.hasMagic())
        return;
    Finding finding = reading.success ? judgeEnd(header) : judgeLines(header);
    if (isFine(finding) && !reading.success)
        finding = judgeElements(header, reading.log);
    if (isFine(finding))
        finding = judgeBody(source, header, reading);
    if (isFine(finding))
        finding = judgeUse(header, reading);
    if (!isFine(finding))
        inspection.fail(finding.code, finding.sentence, finding.problemCode);
}

} // namespace tool::ply
