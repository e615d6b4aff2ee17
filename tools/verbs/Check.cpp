#include "check/Check.h"

#include "Verb.h"

#include <CLI/CLI.hpp>

#include <QStringList>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::vector<std::string> files;
    bool json = false;
};

QString counted(qint64 count, QString const& noun)
{
    return u"%1 %2%3"_s.arg(QString::number(count), noun, count == 1 ? QString() : u"s"_s);
}

QString summaryOf(CheckResult const& result)
{
    QStringList parts;
    for (Finding::Severity const severity : {Finding::Severity::Error, Finding::Severity::Warning}) {
        if (qint64 const count = result.count(severity); count > 0)
            parts << counted(count, nameOf(severity));
    }
    return parts.join(u", "_s);
}

QString textOf(QString const& path, CheckResult const& result)
{
    QString text;
    for (Finding const& finding : result.findings) {
        text += u"%1: %2: %3\n"_s.arg(path, nameOf(finding.severity), finding.reason);
        if (!finding.remedy.isEmpty())
            text += u"    "_s + finding.remedy + u'\n';
    }
    if (summaryOf(result).isEmpty())
        text += path + u": sound\n"_s;
    return text;
}

void addTo(Report& all, QString const& path, CheckResult const& result)
{
    Table table;
    table.columns = {{"severity"_L1, {}}, {"code"_L1, {}}, {"reason"_L1, {}}, {"remedy"_L1, {}}};
    for (Finding const& finding : result.findings)
        table.rows.push_back({nameOf(finding.severity), finding.code, finding.reason,
                              finding.remedy.isEmpty() ? Value() : Value(finding.remedy)});
    Report& file = all.addItem("files"_L1, path);
    file.add("path"_L1, {}, path);
    file.add("errors"_L1, {}, result.count(Finding::Severity::Error));
    file.add("warnings"_L1, {}, result.count(Finding::Severity::Warning));
    file.add("findings"_L1, {}, std::move(table));
}

void summarise(QString const& path, CheckResult const& result, Console& console)
{
    if (result.code != ExitCode::Ok)
        console.failure(path + u": "_s + summaryOf(result));
    else if (!summaryOf(result).isEmpty())
        console.warning(path + u": "_s + summaryOf(result));
}

ExitCode run(Options const& options, Console& console)
{
    ExitCode code = ExitCode::Ok;
    CheckContext context;
    Report all;
    for (std::string const& name : options.files) {
        QString const path = QString::fromStdString(name);
        CheckResult const result = checkFile(path, context);
        summarise(path, result, console);
        if (!options.json)
            console.result(printable(textOf(path, result)));
        addTo(all, path, result);
        code = combined(code, result.code, options.files.size() == 1);
    }
    if (options.json)
        console.result(all.json("surfaceio.check/1"_L1));
    return code;
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("FILE", options->files, "Files to check; conditions behind the volume mesh they are for")
        ->required();
    app.add_flag("--json", options->json, "Print JSON, schema surfaceio.check/1");
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const checkVerb = {
    "check",
    "Finds out what is wrong with a file, and says what to do about it.",
    "  surfaceio check scan.stl\n"
    "  surfaceio check jaw.vmesh jaw.conditions",
    setUp,
};

} // namespace tool
