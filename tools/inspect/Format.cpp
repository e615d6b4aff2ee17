#include "Text.h"
#include "convert/Suffixes.h"
#include "inspect/Formats.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

std::optional<RecognisedFile> recognise(Source const& source)
{
    for (Format const& format : formats()) {
        if (QString const how = format.recognise(source); !how.isEmpty())
            return RecognisedFile{source, &format, how};
    }
    for (Format const& format : formats()) {
        if (hasSuffix(format, source.path))
            return RecognisedFile{source, &format, Text::tr("by its suffix only")};
    }
    return {};
}

std::optional<Source> open(QString const& path, Inspection& inspection)
{
    if (QString const reason = whyNotRegular(path); !reason.isEmpty()) {
        inspection.fail(ExitCode::ReadOrWriteFailed, reason,
                        QFileInfo::exists(path) ? "not-a-file"_L1 : "missing"_L1);
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
        return Text::tr("there is no such file");
    if (file.isDir())
        return Text::tr("expected a file, found a folder");
    if (!file.isFile())
        return Text::tr("expected a regular file, found a pipe, socket or device");
    return {};
}

QString whyUnreadable(QString const& path)
{
    QString const reason = whyNotRegular(path);
    QFile file(path);
    if (!reason.isEmpty() || file.open(QIODevice::ReadOnly))
        return reason;
    return Text::tr("cannot be opened: ") + file.errorString();
}

bool hasSuffix(Format const& format, QString const& path)
{
    return hasSuffix(path, format.suffixes);
}

std::optional<RecognisedFile> recogniseFile(QString const& path, Inspection& inspection)
{
    std::optional<Source> const source = open(path, inspection);
    if (!source)
        return {};
    std::optional<RecognisedFile> const file = recognise(*source);
    if (!file) {
        inspection.report.add("bytes"_L1, Text::tr("size in bytes"), source->size);
        inspection.fail(ExitCode::Unsupported,
                        Text::tr("neither the content nor the suffix is that of a format known here"),
                        "unknown-format"_L1);
    }
    return file;
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
