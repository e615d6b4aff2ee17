#include "check/Check.h"

#include "Text.h"
#include "Verb.h"
#include "convert/Suffixes.h"
#include "images/ImageLimit.h"
#include "verbs/Inputs.h"

#include <CLI/CLI.hpp>

#include <QDir>
#include <QFileInfo>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::vector<std::string> inputs;
    bool json = false;
};

QString summaryOf(Findings const& findings)
{
    QStringList parts;
    if (qint64 const errors = findings.count(Severity::Error); errors > 0)
        parts << Text::counted("%n error(s)", nullptr, errors);
    if (qint64 const warnings = findings.count(Severity::Warning); warnings > 0)
        parts << Text::counted("%n warning(s)", nullptr, warnings);
    return parts.join(u", "_s);
}

// Failures only for those who want nothing else.
QString textOf(QString const& path, Findings const& findings, bool isQuiet)
{
    QString text;
    for (Finding const& finding : findings.all()) {
        if (isQuiet && finding.kind->severity != Severity::Error)
            continue;
        text += u"%1: %2: %3\n"_s.arg(path, Text::shown(nameOf(finding.kind->severity)), finding.reason);
        if (!finding.remedy.isEmpty())
            text += u"    "_s + finding.remedy + u'\n';
    }
    if (summaryOf(findings).isEmpty() && !isQuiet)
        text += path + Text::tr(": sound") + u'\n';
    return text;
}

void addTo(Report& all, QString const& path, Findings const& findings)
{
    Table table;
    table.columns = {{"severity"_L1, {}}, {"code"_L1, {}}, {"reason"_L1, {}}, {"remedy"_L1, {}}};
    for (Finding const& finding : findings.all())
        table.rows.push_back({nameOf(finding.kind->severity), finding.kind->code, finding.reason,
                              finding.remedy.isEmpty() ? Value() : Value(finding.remedy)});
    Report& file = all.addItem("files"_L1, path);
    file.add("path"_L1, {}, path);
    file.add("errors"_L1, {}, findings.count(Severity::Error));
    file.add("warnings"_L1, {}, findings.count(Severity::Warning));
    file.add("findings"_L1, {}, std::move(table));
}

void summarise(QString const& path, Findings const& findings, Console& console)
{
    if (findings.exitCode() != ExitCode::Ok)
        console.failure(path + u": "_s + summaryOf(findings));
    else if (!summaryOf(findings).isEmpty())
        console.warning(path + u": "_s + summaryOf(findings));
}

// Whoever names a folder says nothing of what belongs together: conditions in it are those of the volume mesh
// beside them that has their name.
CheckContext contextBeside(QString const& path)
{
    QFileInfo const conditions(path);
    QString const mesh = conditions.path() + u'/' + conditions.completeBaseName() + u".vmesh"_s;
    CheckContext context;
    if (!QFileInfo(mesh).isFile())
        return context;
    VolumeFile file = readVolumeFile(mesh);
    if (file.problem.isEmpty()) {
        context.volume = std::move(file);
        context.volumePath = QDir::cleanPath(mesh);
    }
    return context;
}

Findings findingsOf(Input const& input, CheckContext& context)
{
    if (!input.problem.isEmpty()) {
        Findings findings;
        findings.fail(ExitCode::ReadOrWriteFailed, input.problemCode, input.problem);
        return findings;
    }
    if (!input.isOfFolder || !hasSuffix(input.path, "conditions"_L1))
        return checkFile(input.path, context);
    CheckContext beside = contextBeside(input.path);
    return checkFile(input.path, beside);
}

ExitCode run(Options const& options, Console& console)
{
    std::vector<Input> const inputs = inputsIn(options.inputs);
    ExitCode code = ExitCode::Ok;
    CheckContext context;
    Report all;
    all.addList("files"_L1);
    for (Input const& input : inputs) {
        Findings const findings = findingsOf(input, context);
        summarise(input.path, findings, console);
        if (!options.json)
            console.result(printable(textOf(input.path, findings, console.isQuiet())));
        addTo(all, input.path, findings);
        code = combined(code, findings.exitCode(), inputs.size() == 1);
    }
    if (options.json)
        console.result(all.json("surfaceio.check/1"_L1));
    return code;
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("FILE", options->inputs,
                   Text::utf8("Files and folders to check; conditions behind the volume mesh they are for"))
        ->required();
    app.add_flag("--json", options->json, Text::utf8("Print JSON, schema surfaceio.check/1"));
    addImageLimitOption(app);
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const checkVerb = {
    "check",
    QT_TRANSLATE_NOOP("Text", "Finds out what is wrong with a file, and says what to do about it."),
    "  surfaceio check --strict scans/\n"
    "  surfaceio check jaw.vmesh jaw.conditions",
    setUp,
};

} // namespace tool
