#pragma once

#include "Console.h"

#include <QLatin1StringView>
#include <QString>

#include <span>
#include <vector>

namespace tool {

enum class Severity
{
    /// Worth knowing; many sound files have it.
    Note,
    /// The file can be read, but something is not as it should be.
    Warning,
    /// The file cannot be read, or what it says cannot be true.
    Error
};

/// "note", "warning" or "error".
QLatin1StringView nameOf(Severity severity);

/// One kind of finding, as a row of the table in Finding.cpp.
struct Kind
{
    /// For programs: lower case words with dashes between. It never changes its meaning.
    QLatin1StringView code;
    Severity severity;
    /// What to do about it; may be empty.
    char const* remedy;
};

std::span<Kind const> kinds();
/// The row of this code; the one of "unreadable" when there is none.
Kind const& kindOf(QLatin1StringView code);

/// One thing that was found out about a file.
struct Finding
{
    Kind const* kind;
    /// What was expected, what was found, and where.
    QString reason;
    /// What to do about it; may be empty.
    QString remedy;
};

/// What was found out about a file, in the order of finding.
class Findings
{
public:
    /// With the remedy of its kind, unless another is given. An error makes the file malformed.
    void add(QLatin1StringView code, QString const& reason, QString const& remedy = {});
    /// Adds an error that makes the exit code another. The first error decides.
    void fail(ExitCode exitCode, QLatin1StringView code, QString const& reason, QString const& remedy = {});

    std::vector<Finding> const& all() const { return list; }
    qint64 count(Severity severity) const;
    ExitCode exitCode() const { return result; }

private:
    std::vector<Finding> list;
    ExitCode result = ExitCode::Ok;
};

} // namespace tool
