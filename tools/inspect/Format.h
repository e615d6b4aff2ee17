#pragma once

#include "Problem.h"
#include "Report.h"

#include <QByteArrayView>
#include <QStringList>

#include <optional>
#include <span>

namespace tool {

/// A file that is to be looked at: an existing regular file that could be opened.
struct Source
{
    QString path;
    qint64 size = 0;
    /// The first bytes of the file, `headBytes` of them or all that there are.
    QByteArray head;

    static constexpr qint64 headBytes = 65536;
};

/// What was found out about a file.
struct Inspection
{
    /// Filled as far as the file could be understood.
    Report report;
    ExitCode code = ExitCode::Ok;
    /// When `code` is not `Ok`: what was expected, what was found, and where.
    QString problem;
    /// One of the codes of check/Finding.cpp; empty where `code` says it all.
    QLatin1StringView problemCode;
    /// What is as it should not be, though the file can be read.
    QStringList warnings;

    void fail(ExitCode code, QString const& problem, QLatin1StringView problemCode = {});
};

class Check;

/// One file format, as a row of the table in Formats.cpp.
struct Format
{
    /// Its name for programs: lower case, one word.
    QLatin1StringView name;
    /// Its name for people.
    QLatin1StringView title;
    /// Suffixes of its files, separated by spaces.
    QLatin1StringView suffixes;
    /// How the content shows that it is of this format; empty when it does not.
    QString (*recognise)(Source const& source);
    /// Looks into a file that was recognised, or that has one of the suffixes.
    void (*inspect)(Source const& source, Inspection& inspection);
    /// Looks for everything that is wrong with such a file. Null where it is checked as any mesh.
    void (*check)(Check& check) = nullptr;
    /// Whether readers choose it by the suffix; else a file may have any.
    bool needsSuffix = true;
};

/// All formats; a file belongs to the first that recognises it.
std::span<Format const> formats();

bool hasSuffix(Format const& format, QString const& path);

/// Why the path is not that of a regular file, links followed; empty when it is. Opens nothing.
QString whyNotRegular(QString const& path);

/// The same, and why it cannot be opened for reading.
QString whyUnreadable(QString const& path);

/// A file whose format is known.
struct RecognisedFile
{
    Source source;
    Format const* format = nullptr;
    /// How it was recognised.
    QString how;
};

/// Opens and recognises the file at `path`. Nothing, and a failed inspection, when either is impossible.
/// Never waits on a pipe or a device.
std::optional<RecognisedFile> recogniseFile(QString const& path, Inspection& inspection);

/// Whether its content is of a format that another suffix stands for.
bool hasWrongSuffix(RecognisedFile const& file);
/// What is said of a file with such content.
QString wrongSuffixProblem(Format const& format);

/// Why the file at `path`, which a reader has refused, cannot be read; none when nothing is known to be wrong
/// with it.
Problem refusalOf(QString const& path);

/// Opens and recognises the file at `path`, and has it inspected. Never waits on a pipe or a device.
Inspection inspectFile(QString const& path);

} // namespace tool
