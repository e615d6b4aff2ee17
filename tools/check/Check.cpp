#include "check/Check.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QLatin1StringView codeOf(ExitCode code)
{
    if (code == ExitCode::Malformed)
        return "malformed"_L1;
    return code == ExitCode::Unsupported ? "unsupported"_L1 : "unreadable"_L1;
}

CheckResult resultOf(Inspection const& inspection)
{
    if (inspection.code == ExitCode::Ok)
        return {};
    return {{{Finding::Severity::Error, codeOf(inspection.code), inspection.problem, {}}}, inspection.code};
}

} // namespace

QLatin1StringView nameOf(Finding::Severity severity)
{
    static constexpr std::array names = {"note"_L1, "warning"_L1, "error"_L1};
    return names[static_cast<std::size_t>(severity)];
}

void Check::note(QLatin1StringView code, QString const& reason, QString const& remedy)
{
    findings.push_back({Finding::Severity::Note, code, reason, remedy});
}

void Check::warning(QLatin1StringView code, QString const& reason, QString const& remedy)
{
    findings.push_back({Finding::Severity::Warning, code, reason, remedy});
}

void Check::error(QLatin1StringView code, QString const& reason, QString const& remedy)
{
    findings.push_back({Finding::Severity::Error, code, reason, remedy});
}

qint64 CheckResult::count(Finding::Severity severity) const
{
    return std::count_if(findings.begin(), findings.end(),
                         [severity](Finding const& finding) { return finding.severity == severity; });
}

CheckResult checkFile(QString const& path, CheckContext& context)
{
    Inspection inspection;
    std::optional<RecognisedFile> const file = recogniseFile(path, inspection);
    if (!file)
        return resultOf(inspection);
    if (file->format->check == nullptr) {
        file->format->inspect(file->source, inspection);
        return resultOf(inspection);
    }
    Check check(file->source, context);
    file->format->check(check);
    CheckResult result = {std::move(check.findings), ExitCode::Ok};
    if (result.count(Finding::Severity::Error) > 0)
        result.code = ExitCode::Malformed;
    return result;
}

} // namespace tool
