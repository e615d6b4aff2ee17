#include "obj/ObjReading.h"

#include "LibraryLog.h"
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
    return u"line %1: "_s.arg(line);
}

// "line 3: a face of 4 corners; only triangles are read (17 such faces)"
QString first(Occurrence const& found, QString const& sentence, QString const& things)
{
    QString const more =
        found.count > 1 ? u" (%1 such %2)"_s.arg(QString::number(found.count), things) : QString();
    return atLine(found.firstLine) + sentence + more;
}

Verdict judgeQuads(Reading const& reading)
{
    return unsupported("obj-quads"_L1, first(reading.text.quads,
                                             u"a face of 4 corners; only triangles are read"_s, u"faces"_s));
}

Verdict judgeNumbers(Reading const& reading)
{
    return malformed("obj-short-line"_L1,
                     first(reading.text.shortLines,
                           u"too few numbers: expected 3 behind \"v\" and \"vn\", 2 behind \"vt\""_s,
                           u"lines"_s));
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
                                 u"a face asks for \"%1\" number %2, the file has %3"_s.arg(list.name)
                                     .arg(list.use.largest)
                                     .arg(list.length));
    }
    return malformed("obj-bad-index"_L1, u"a face asks for a vertex that is not there"_s);
}

// The lines that end the reading go first: it never came to the others.
Verdict judgeIndices(Reading const& reading)
{
    ObjText const& text = reading.text;
    if (text.shortFaces)
        return malformed("obj-short-face"_L1,
                         first(text.shortFaces, u"a face of fewer than 3 corners"_s, u"faces"_s));
    if (text.badIndices)
        return malformed("obj-bad-index"_L1,
                         first(text.badIndices,
                               u"expected an index from 1 on as first number of each corner"_s,
                               u"corners"_s));
    if (text.relative)
        return unsupported("obj-relative-indices"_L1,
                           first(text.relative,
                                 u"a face with relative (negative) indices; these are not read"_s,
                                 u"faces"_s));
    return judgeRanges(text);
}

Verdict judgeLibraries(Reading const& reading)
{
    return unsupported("obj-several-libraries"_L1,
                       atLine(reading.tree.lineOfSeveral) +
                           u"names several material libraries that exist; one is read"_s);
}

Verdict judgeMapping(Reading const&)
{
    return unsupported("obj-partial-mapping"_L1,
                       u"some corners of faces have a texture coordinate and others have none"_s);
}

Verdict judgeAtlas(Reading const&)
{
    return unsupported("obj-atlas"_L1,
                       u"its textures do not fit into one atlas of at most 8192 x 8192 pixels"_s);
}

Verdict judgeContent(Reading const&)
{
    return malformed("obj-no-vertices"_L1, u"expected vertices, found none"_s);
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
    OBJReader::Error const error = reading.reader->getError();
    if (error == OBJReader::NoError)
        return;
    for (Row const& row : rows) {
        if (row.error != error)
            continue;
        Verdict const verdict = row.judge(reading);
        return inspection.fail(verdict.code, verdict.sentence, verdict.problemCode);
    }
    inspection.fail(ExitCode::ReadOrWriteFailed, u"could not be read: "_s + conversions::toString(error));
}

} // namespace tool::obj
