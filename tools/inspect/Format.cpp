#include "FileName.h"
#include "Text.h"
#include "convert/Suffixes.h"
#include "inspect/Formats.h"
#include "volume/TetrahedralMesh.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// With `error` why that is not known.
bool isMissing(QString const& path, std::error_code& error)
{
    return std::filesystem::status(QFileInfo(path).filesystemFilePath(), error).type() ==
           std::filesystem::file_type::not_found;
}

// What the system says, where it is not that the file is missing.
QString whyMissing(QString const& path)
{
    if (QString problem = whyNoFileName(path); !problem.isEmpty())
        return problem;
    std::error_code error;
    return isMissing(path, error) ? Text::tr("there is no such file")
                                  : Text::tr("cannot be opened: ") + QString::fromStdString(error.message());
}

std::optional<RecognisedFile> recogniseContent(Source const& source)
{
    for (Format const& format : formats()) {
        if (QString const how = format.recognise(source); !how.isEmpty())
            return RecognisedFile{source, &format, how};
    }
    return {};
}

// What comes under the suffix of a mesh when a download went wrong, or a suffix was changed.
struct OtherContent
{
    QByteArrayView start;
    QLatin1StringView code;
    char const* sentence;
};
constexpr char const* isWebPage = QT_TRANSLATE_NOOP("Text", "the content is that of a web page");
constexpr char const* isArchive = QT_TRANSLATE_NOOP("Text", "the content is that of an archive, ZIP or gzip");
constexpr std::array otherContents = {
    OtherContent{"<!doctype html", "web-page"_L1, isWebPage},
    OtherContent{"<html", "web-page"_L1, isWebPage},
    OtherContent{"pk\x03\x04", "archive"_L1, isArchive},
    OtherContent{"\x1F\x8B", "archive"_L1, isArchive},
};

OtherContent const* otherContentOf(Source const& source)
{
    constexpr qsizetype enough = 256;
    QByteArray const start = source.head.left(enough).trimmed().toLower();
    for (OtherContent const& content : otherContents) {
        if (start.startsWith(content.start))
            return &content;
    }
    return nullptr;
}

std::optional<RecognisedFile> recogniseSuffix(Source const& source)
{
    for (Format const& format : formats()) {
        if (hasSuffix(format, source.path))
            return RecognisedFile{source, &format, Text::tr("by its suffix only")};
    }
    return {};
}

QLatin1StringView problemCodeOf(QString const& path)
{
    if (QFileInfo::exists(path))
        return "not-a-file"_L1;
    std::error_code ignored;
    return isMissing(path, ignored) ? "missing"_L1 : "cannot-open"_L1;
}

std::optional<Source> open(QString const& path, Inspection& inspection)
{
    if (QString const reason = whyNotRegular(path); !reason.isEmpty()) {
        inspection.fail(ExitCode::ReadOrWriteFailed, reason, problemCodeOf(path));
        return {};
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        inspection.fail(ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened: ") + file.errorString(),
                        "cannot-open"_L1);
        return {};
    }
    return Source{path, file.size(), file.read(Source::headBytes)};
}

} // namespace

void Inspection::fail(ExitCode code_, QString const& problem_, QLatin1StringView problemCode_)
{
    code = code_;
    problem = problem_;
    problemCode = problemCode_;
}

QString whyNotRegular(QString const& path)
{
    QFileInfo const file(path);
    if (file.isSymLink() && !file.exists())
        return Text::tr("expected a file, found a link to \"%1\", which does not exist")
            .arg(file.symLinkTarget());
    if (!file.exists())
        return whyMissing(path);
    if (file.isDir())
        return Text::tr("expected a file, found a folder");
    if (!file.isFile())
        return Text::tr("expected a regular file, found a pipe, socket or device");
    return {};
}

QString whyUnreadable(QString const& path)
{
    QString reason = whyNotRegular(path);
    QFile file(path);
    if (!reason.isEmpty() || file.open(QIODevice::ReadOnly))
        return reason;
    return Text::tr("cannot be opened: ") + file.errorString();
}

bool hasSuffix(Format const& format, QString const& path)
{
    return hasSuffix(path, format.suffixes);
}

bool hasWrongSuffix(RecognisedFile const& file)
{
    return file.format->needsSuffix && !hasSuffix(*file.format, file.source.path);
}

QString wrongSuffixProblem(Format const& format)
{
    return Text::tr("the content is that of %1, the suffix is not").arg(Text::shown(format.title));
}

std::optional<RecognisedFile> recogniseFile(QString const& path, Inspection& inspection)
{
    std::optional<Source> const source = open(path, inspection);
    if (!source)
        return {};
    std::optional<RecognisedFile> file = recogniseContent(*source);
    if (file)
        return file;
    file = recogniseSuffix(*source);
    OtherContent const* const other = otherContentOf(*source);
    if (file && other == nullptr)
        return file;
    inspection.report.add("bytes"_L1, Text::tr("size in bytes"), source->size);
    if (file)
        inspection.fail(ExitCode::Malformed, Text::tr(other->sentence), other->code);
    else if (rowFor(path, volume::mesherFormats()) != nullptr)
        inspection.fail(ExitCode::Unsupported,
                        Text::tr("a file of a mesher; \"surfaceio vmesh from\" makes a volume mesh of it"),
                        "mesher-file"_L1);
    else
        inspection.fail(ExitCode::Unsupported,
                        Text::tr("neither the content nor the suffix is that of a format known here"),
                        "unknown-format"_L1);
    return {};
}

Problem refusalOf(QString const& path)
{
    Inspection inspection;
    std::optional<RecognisedFile> const file = recogniseFile(path, inspection);
    if (file && hasWrongSuffix(*file))
        return {ExitCode::Unsupported, wrongSuffixProblem(*file->format)};
    if (file)
        file->format->inspect(file->source, inspection);
    return {inspection.code, inspection.problem};
}

Inspection inspectFile(QString const& path)
{
    Inspection inspection;
    inspection.report.add("path"_L1, {}, path);
    std::optional<RecognisedFile> const file = recogniseFile(path, inspection);
    if (!file)
        return inspection;
    inspection.report.add("format"_L1, Text::tr("format"), Text::shown(file->format->title));
    inspection.report.add("formatName"_L1, {}, file->format->name);
    inspection.report.add("recognisedBy"_L1, Text::tr("recognised"), file->how);
    inspection.report.add("bytes"_L1, Text::tr("size in bytes"), file->source.size);
    file->format->inspect(file->source, inspection);
    return inspection;
}

} // namespace tool
