#pragma once

#include "inspect/Format.h"
#include "volume/VolumeFile.h"

#include <optional>
#include <vector>

namespace tool {

/// One thing that was found out about a file.
struct Finding
{
    enum class Severity
    {
        /// Worth knowing.
        Note,
        /// The file can be read, but something is not as it should be.
        Warning,
        /// The file cannot be read, or what it says cannot be true.
        Error
    };

    Severity severity = Severity::Error;
    /// For programs: lower case words with dashes between.
    QLatin1StringView code;
    /// What was expected, what was found, and where.
    QString reason;
    /// What to do about it; may be empty.
    QString remedy;
};

/// "note", "warning" or "error".
QLatin1StringView nameOf(Finding::Severity severity);

/// What the files of one command line leave for those behind them.
struct CheckContext
{
    /// The last volume mesh that could be read, and its path.
    std::optional<VolumeFile> volume;
    QString volumePath;
};

/// Gathers what is found out about one file.
class Check
{
public:
    Check(Source const& source_, CheckContext& context_)
        : source(source_)
        , context(context_)
    {}

    void note(QLatin1StringView code, QString const& reason, QString const& remedy = {});
    void warning(QLatin1StringView code, QString const& reason, QString const& remedy = {});
    void error(QLatin1StringView code, QString const& reason, QString const& remedy = {});

    Source const& source;
    CheckContext& context;
    std::vector<Finding> findings;
};

struct CheckResult
{
    std::vector<Finding> findings;
    ExitCode code = ExitCode::Ok;

    qint64 count(Finding::Severity severity) const;
};

/// Checks the file at `path` as its format says; where the format says nothing, the inspector's verdict is
/// the only finding.
CheckResult checkFile(QString const& path, CheckContext& context);

} // namespace tool
