#include "obj/ObjReading.h"

#include "LibraryLog.h"
#include "Text.h"
#include "inspect/Format.h"

#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

namespace tool::obj {

namespace {

struct Verdict
{
    ExitCode code = ExitCode::Ok;
    QLatin1StringView problemCode;
    QString sentence;
};

Verdict malformed(QLatin1StringView code, QString const& sentence)
{
    return {ExitCode::Malformed, code, sentence};
}

Verdict unsupported(QLatin1StringView code, QString const& sentence)
{
    return {ExitCode::Unsupported, code, sentence};
}

QString atLine(qint64 line)
{
    return Text::tr("line %1: ").arg(line);
}

constexpr char const* suchFaces = QT_TRANSLATE_N_NOOP("Text", " (%n such face(s))");
constexpr char const* suchLines = QT_TRANSLATE_N_NOOP("Text", " (%n such line(s))");
constexpr char const* suchCorners = QT_TRANSLATE_N_NOOP("Text", " (%n such corner(s))");

// "line 3: a face of 4 corners; only triangles are read (17 such faces)"
QString first(Occurrence const& found, QString const& sentence, char const* allOfThem)
{
    QString const more = found.count > 1 ? Text::counted(allOfThem, nullptr, found.count) : QString();
    return atLine(found.firstLine) + sentence + more;
}

Verdict judgeQuads(Reading const& reading)
{
    return unsupported(
        "obj-quads"_L1,
        first(reading.text.quads, Text::tr("a face of 4 corners; only triangles are read"), suchFaces));
}

Verdict judgeTabs(ObjText const& text)
{
    return malformed(
        "obj-inner-tabs"_L1,
        first(text.innerTabs, Text::tr("a tab between numbers, which only spaces separate"), suchLines));
}

Verdict judgeNumbers(Reading const& reading)
{
    if (reading.text.innerTabs)
        return judgeTabs(reading.text);
    return malformed("obj-short-line"_L1,
                     first(reading.text.shortLines,
                           Text::tr("too few numbers: expected 3 behind \"v\" and \"vn\", 2 behind \"vt\""),
                           suchLines));
}

struct List
{
    IndexUse const& use;
    qint64 length;
    QLatin1StringView name;
};

Verdict judgeRanges(ObjText const& text)
{
    std::array const lists = {List{text.positionIndices, text.vertices, "v"_L1},
                              List{text.textureIndices, text.textureCoordinates, "vt"_L1},
                              List{text.normalIndices, text.normals, "vn"_L1}};
    for (List const& list : lists) {
        if (list.use.largest > list.length)
            return malformed("obj-index-outside"_L1,
                             atLine(list.use.lineOfLargest) +
                                 Text::tr("a face asks for \"%1\" number %2, the file has %3")
                                     .arg(list.name)
                                     .arg(list.use.largest)
                                     .arg(list.length));
    }
    return malformed("obj-bad-index"_L1, Text::tr("a face asks for a vertex that is not there"));
}

// The lines that end the reading go first: it never came to the others.
Verdict judgeIndices(Reading const& reading)
{
    ObjText const& text = reading.text;
    if (text.innerTabs)
        return judgeTabs(text);
    if (text.shortFaces)
        return malformed("obj-short-face"_L1,
                         first(text.shortFaces, Text::tr("a face of fewer than 3 corners"), suchFaces));
    if (text.badIndices)
        return malformed("obj-bad-index"_L1,
                         first(text.badIndices,
                               Text::tr("expected an index from 1 on as first number of each corner"),
                               suchCorners));
    if (text.relative)
        return unsupported("obj-relative-indices"_L1,
                           first(text.relative,
                                 Text::tr("a face with relative (negative) indices; these are not read"),
                                 suchFaces));
    return judgeRanges(text);
}

Verdict judgeLibraries(Reading const& reading)
{
    return unsupported("obj-several-libraries"_L1,
                       atLine(reading.tree.lineOfSeveral) +
                           Text::tr("names several material libraries that exist; one is read"));
}

Verdict judgeMapping(Reading const&)
{
    return unsupported("obj-partial-mapping"_L1,
                       Text::tr("some corners of faces have a texture coordinate and others have none"));
}

Verdict judgeAtlas(Reading const&)
{
    return unsupported("obj-atlas"_L1,
                       Text::tr("its textures do not fit into one atlas of at most 8192 x 8192 pixels"));
}

Verdict judgeContent(Reading const&)
{
    return malformed("obj-no-vertices"_L1, Text::tr("expected vertices, found none"));
}

// What makes nonsense of all else that could be said.
Verdict judgeText(ObjText const& text)
{
    if (text.isUtf16)
        return unsupported("obj-utf-16"_L1,
                           Text::tr("is text in UTF-16; only UTF-8, Latin-1 and ASCII are read"));
    if (text.returns)
        return malformed("obj-line-ends"_L1,
                         first(text.returns,
                               Text::tr("a carriage return inside the line; expected line feeds at the ends "
                                        "of lines"),
                               suchLines));
    return {};
}

struct Row
{
    OBJReader::Error error;
    Verdict (*judge)(Reading const& reading);
};

constexpr std::array rows = {
    Row{OBJReader::QuadFacesNotSupported, judgeQuads},
    Row{OBJReader::InvalidVertexId, judgeIndices},
    Row{OBJReader::IncompleteVertexCoordinates, judgeNumbers},
    Row{OBJReader::IncompleteTextureCoordinates, judgeNumbers},
    Row{OBJReader::IncompleteVertexNormalCoordinates, judgeNumbers},
    Row{OBJReader::MultipleMaterialFilesUnsupported, judgeLibraries},
    Row{OBJReader::IncompleteUvMapping, judgeMapping},
    Row{OBJReader::TextureProcessingFailed, judgeAtlas},
    Row{OBJReader::UnableToLoadMeshWithCurrentTextureSupportFlag, judgeContent},
};

} // namespace

std::optional<Reading> readFile(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    Reading reading;
    reading.text = readObjText(file);
    reading.tree = materialTreeOf(path, reading.text);
    reading.reader = std::make_unique<OBJReader>();
    reading.reader->setFileName(path);
    reading.reader->setTextureSupport(SurfaceReader::TextureOptional);
    std::atomic<bool> const cancel = false;
    LogCapture const capture;
    reading.reader->read(cancel);
    reading.log = capture.messages();
    return reading;
}

void judge(Reading const& reading, Inspection& inspection)
{
    Verdict const ofText = judgeText(reading.text);
    if (ofText.code != ExitCode::Ok)
        return inspection.fail(ofText.code, ofText.sentence, ofText.problemCode);
    OBJReader::Error const error = reading.reader->getError();
    if (error == OBJReader::NoError)
        return;
    for (Row const& row : rows) {
        if (row.error != error)
            continue;
        Verdict const verdict = row.judge(reading);
        return inspection.fail(verdict.code, verdict.sentence, verdict.problemCode);
    }
    inspection.fail(ExitCode::ReadOrWriteFailed,
                    Text::tr("could not be read: ") + conversions::toString(error));
}

} // namespace tool::obj
