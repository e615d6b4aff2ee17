#include "output/OutputFile.h"

#include "FileName.h"
#include "Text.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#endif

using namespace Qt::StringLiterals;

namespace tool {

namespace {

// A full disk or a lost network folder may tell only now.
QString store([[maybe_unused]] QString const& path)
{
#ifdef Q_OS_UNIX
    int const file = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    bool const isStored = file != -1 && fsync(file) == 0;
    QString const reason = isStored ? QString() : qt_error_string(errno);
    if (file != -1)
        ::close(file);
    if (!isStored)
        return Text::tr("the file could not be stored: ") + reason;
#endif
    return {};
}

QString sizeProblem(QString const& path, qint64 expectedBytes)
{
    QFileInfo const file(path);
    qint64 const size = file.isFile() ? file.size() : 0;
    if (expectedBytes < 0 ? size > 0 : size == expectedBytes)
        return {};
    QString const problem =
        expectedBytes < 0 ? Text::tr("nothing was written; is the disk full?")
                          : Text::tr("expected to write %1 bytes, found %2 in the file; is the disk full?")
                                .arg(expectedBytes)
                                .arg(size);
    return size < expectedBytes || size == 0 ? whyNotWritten(path, problem) : problem;
}

QString replace(QString const& from, QString const& to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), error);
    return error ? Text::tr("the file could not be moved into place: ") +
                       QString::fromStdString(error.message())
                 : QString();
}

} // namespace

QString whyNotWritten(QString const& path, QString const& otherwise)
{
    constexpr qint64 block = 1 << 16;
    constexpr qint64 enough = 1 << 20; // what was cut off may have ended within a block of the disk
    QFile file(path);
    bool takesMore = file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    QByteArray const zeros(block, '\0');
    for (qint64 written = 0; takesMore && written < enough; written += block)
        takesMore = file.write(zeros) > 0;
    return takesMore || file.errorString().isEmpty()
               ? otherwise
               : Text::tr("could not be written: ") + file.errorString();
}

QString whyNotWritten(QString const& path)
{
    return whyNotWritten(path, Text::tr("could not be written"));
}

OutputFile::OutputFile(QString const& target_)
    : target(target_)
{
    // A link stays a link: the file that it leads to is replaced.
    QFileInfo const file(target);
    if (file.isSymLink() && file.exists())
        target = file.canonicalFilePath();
}

QString OutputFile::targetProblem(bool mayReplace_) const
{
    if (QString problem = whyNoFileName(target); !problem.isEmpty())
        return problem;
    QFileInfo const file(target);
    if (file.isSymLink() && !file.exists())
        return Text::tr("is a link to a file that does not exist");
    if (file.isDir())
        return Text::tr("is a folder");
    if (file.exists() && !file.isFile())
        return Text::tr("is a pipe, socket or device, and is not replaced");
    if (file.exists() && !mayReplace_)
        return Text::tr("exists already; --force replaces it");
    return {};
}

QString OutputFile::open(bool mayReplace_)
{
    mayReplace = mayReplace_;
    if (QString problem = targetProblem(mayReplace); !problem.isEmpty())
        return problem;
    QFileInfo const file(target);
    QString const parent = file.absolutePath();
    if (!QFileInfo(parent).isDir())
        return Text::tr("the folder \"%1\" does not exist").arg(parent);
    deferral.emplace();
    folder.emplace(parent + "/.surfaceio-XXXXXX"_L1);
    if (!folder->isValid())
        return Text::tr("the folder \"%1\" cannot be written to: %2").arg(parent, folder->errorString());
    return {};
}

QString OutputFile::temporaryPath() const
{
    return folder->filePath(u"written."_s + QFileInfo(target).suffix());
}

QString OutputFile::check(qint64 expectedBytes) const
{
    QString const written = temporaryPath();
    QString problem = sizeProblem(written, expectedBytes);
    if (problem.isEmpty())
        problem = store(written);
    // The target may have changed while the file was written.
    if (problem.isEmpty())
        problem = targetProblem(mayReplace);
    if (problem.isEmpty() && Interrupt::flag())
        problem = Text::tr("interrupted; nothing was written");
    return problem;
}

QString OutputFile::moveIntoPlace()
{
    QString const written = temporaryPath();
    if (QFileInfo::exists(target))
        QFile::setPermissions(written, QFile::permissions(target));
    return replace(written, target);
}

QString OutputFile::commit(qint64 expectedBytes)
{
    QString const problem = check(expectedBytes);
    return problem.isEmpty() ? moveIntoPlace() : problem;
}

} // namespace tool
