#include "LibraryLog.h"
#include "Text.h"
#include "check/Check.h"
#include "check/Checkers.h"
#include "check/ImageChecks.h"
#include "obj/ObjReading.h"

#include <QDir>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

using obj::ImageLine;
using obj::MtlLibrary;
using obj::MtlMaterial;
using obj::ObjText;
using obj::Occurrence;

// "line 7: a face of 5 corners, and 12 more"
QString counted(Occurrence const& found, QString const& what)
{
    QString const more =
        found.count > 1 ? Text::counted(", and %n more", nullptr, found.count - 1) : QString();
    return Text::tr("line %1: %2%3").arg(QString::number(found.firstLine), what, more);
}

struct LineRow
{
    Occurrence ObjText::*found;
    QLatin1StringView code;
    char const* what;
};

// What the library reads past without a word, or with one for each line.
constexpr std::array lineRows = {
    LineRow{&ObjText::polygons, "obj-polygons"_L1,
            QT_TRANSLATE_NOOP("Text", "a face of more than 4 corners")},
    LineRow{&ObjText::badNumbers, "obj-bad-numbers"_L1,
            QT_TRANSLATE_NOOP("Text", "a word where a number is expected")},
    LineRow{&ObjText::innerTabs, "obj-inner-tabs"_L1, QT_TRANSLATE_NOOP("Text", "a tab between numbers")},
    LineRow{&ObjText::tabs, "obj-tabs"_L1, QT_TRANSLATE_NOOP("Text", "a tab behind the keyword")},
    LineRow{&ObjText::continued, "obj-continued-lines"_L1,
            QT_TRANSLATE_NOOP("Text", "a line that goes on in the next")},
    LineRow{&ObjText::vertexColors, "obj-vertex-colours"_L1,
            QT_TRANSLATE_NOOP("Text", "a vertex with a colour behind its position")},
};

// What would end the reading, had it not ended before.
constexpr std::array refusedRows = {
    LineRow{&ObjText::quads, "obj-quads"_L1, QT_TRANSLATE_NOOP("Text", "a face of 4 corners")},
    LineRow{&ObjText::relative, "obj-relative-indices"_L1,
            QT_TRANSLATE_NOOP("Text", "a face with relative (negative) indices")},
    LineRow{&ObjText::shortFaces, "obj-short-face"_L1,
            QT_TRANSLATE_NOOP("Text", "a face of fewer than 3 corners")},
    LineRow{&ObjText::badIndices, "obj-bad-index"_L1,
            QT_TRANSLATE_NOOP("Text", "an index that is 0, missing or no number")},
    LineRow{&ObjText::shortLines, "obj-short-line"_L1, QT_TRANSLATE_NOOP("Text", "too few numbers")},
};

bool isReported(QLatin1StringView code, Findings const& findings)
{
    return std::any_of(findings.all().begin(), findings.all().end(),
                       [&](Finding const& finding) { return finding.kind->code == code; });
}

void checkLines(ObjText const& text, bool isRead, Findings& findings)
{
    for (LineRow const& row : lineRows) {
        if (text.*row.found && !isReported(row.code, findings))
            findings.add(row.code, counted(text.*row.found, Text::tr(row.what)));
    }
    for (LineRow const& row : refusedRows) {
        if (!isRead && text.*row.found && !isReported(row.code, findings))
            findings.add(row.code, counted(text.*row.found, Text::tr(row.what)));
    }
}

// The library then takes the i-th normal and the i-th texture coordinate for the i-th position.
void checkIgnoredIndices(ObjText const& text, Findings& findings)
{
    bool const normalsFit = text.normals == 0 || text.normals == text.vertices;
    bool const texturesFit = text.textureCoordinates == 0 || text.textureCoordinates == text.vertices;
    if (!normalsFit || !texturesFit)
        return;
    if (text.normals > 0 && text.otherNormal)
        findings.add("obj-ignored-indices"_L1,
                     counted(text.otherNormal,
                             Text::tr("a corner whose normal has another number than its position")));
    if (text.textureCoordinates > 0 && text.otherTexture)
        findings.add(
            "obj-ignored-indices"_L1,
            counted(text.otherTexture,
                    Text::tr("a corner whose texture coordinate has another number than its position")));
}

// With a list for each position a vertex is not split: it keeps the coordinate of one material only.
void checkSharedPositions(obj::Reading const& reading, Findings& findings)
{
    ObjText const& text = reading.text;
    bool const isPerPosition =
        text.textureCoordinates == text.vertices && (text.normals == 0 || text.normals == text.vertices);
    bool const isAtlas = !reading.reader->getTexture().isNull() && text.materials.all().size() > 1;
    if (isPerPosition && isAtlas && text.sharedPositions)
        findings.add(
            "obj-shared-vertices"_L1,
            counted(text.sharedPositions, Text::tr("a face shares vertices with one of another material")));
}

void checkTextureRange(ObjText const& text, Findings& findings)
{
    for (auto const& [axis, range] : {std::pair('u', &text.u), std::pair('v', &text.v)}) {
        if (range->outside)
            findings.add("texture-range"_L1,
                         counted(range->outside, Text::tr("%1 lies outside 0 to 1").arg(QLatin1Char(axis))));
    }
}

QString placeOf(MtlLibrary const& library, qint64 line)
{
    return Text::tr("%1, line %2: ").arg(library.name, QString::number(line));
}

void checkImageLine(Check& check, MtlLibrary const& library, ImageLine const& image)
{
    QString const place = placeOf(library, image.line);
    if (!image.image.isFound && !image.options.isEmpty()) {
        check.findings.add("image-options"_L1,
                           place + Text::tr("the options \"%1\" are taken as part of the name of \"%2\"")
                                       .arg(image.options, image.name));
        return;
    }
    checkImage(check.source.path, image.given, image.image, place, check.findings);
}

void checkMaterial(Check& check, MtlLibrary const& library, MtlMaterial const& material)
{
    for (ImageLine const& image : material.images)
        checkImageLine(check, library, image);
    if (material.images.size() > 1)
        check.findings.add(
            "several-images"_L1,
            placeOf(library, material.line) +
                Text::counted(
                    "the material \"%1\" has %n image(s); the last one, \"%2\", becomes its texture", nullptr,
                    material.images.size())
                    .arg(material.name, material.images.back().given));
    if (material.faces == 0)
        check.findings.add("unused-material"_L1,
                           placeOf(library, material.line) +
                               Text::tr("no face has the material \"%1\"").arg(material.name));
}

void checkMissingLibrary(Check& check, MtlLibrary const& library)
{
    QString const place = Text::tr("line %1: ").arg(library.line);
    if (library.isSeveral)
        check.findings.add("missing-library"_L1, place + obj::severalNamesProblem(library),
                           Text::tr("put all materials into one MTL file, and name that one"));
    else
        checkMissing(NamedKind::Library, check.source.path, library.name, place, check.findings);
}

void checkLibrary(Check& check, MtlLibrary const& library)
{
    if (!library.isFound) {
        checkMissingLibrary(check, library);
        return;
    }
    for (MtlMaterial const& material : library.materials)
        checkMaterial(check, library, material);
    if (library.stopsAt > 0)
        check.findings.add("library-cut"_L1, placeOf(library, library.stopsAt) +
                                                 Text::tr("the library is not read from here on"));
}

void checkMaterials(Check& check, obj::Reading const& reading)
{
    for (MtlLibrary const& library : reading.tree.libraries)
        checkLibrary(check, library);
    for (obj::Names::Entry const& material : reading.tree.undefined)
        check.findings.add(
            "undefined-material"_L1,
            Text::counted("%n face(s) (has|have) the material \"%1\", which no library defines", nullptr,
                          material.faces)
                .arg(material.name));
}

} // namespace

void checkObj(Check& check)
{
    Inspection inspection;
    std::optional<obj::Reading> const reading = obj::readFile(check.source.path);
    if (!reading) {
        check.findings.fail(ExitCode::ReadOrWriteFailed, "cannot-open"_L1, Text::tr("cannot be opened"));
        return;
    }
    obj::judge(*reading, inspection);
    if (inspection.code != ExitCode::Ok)
        check.findings.fail(inspection.code, inspection.problemCode, inspection.problem);
    if (reading->text.isUtf16 || reading->text.returns)
        return;
    bool const isRead = inspection.code == ExitCode::Ok;
    checkLines(reading->text, isRead, check.findings);
    checkIgnoredIndices(reading->text, check.findings);
    checkSharedPositions(*reading, check.findings);
    checkTextureRange(reading->text, check.findings);
    checkMaterials(check, *reading);
    if (isRead)
        checkMesh(reading->reader->getMesh(), check.findings);
}

} // namespace tool
