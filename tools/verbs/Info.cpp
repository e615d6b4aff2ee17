#include "Text.h"
#include "Verb.h"
#include "images/ImageLimit.h"
#include "inspect/Format.h"

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::vector<std::string> files;
    bool json = false;
};

QLatin1StringView statusOf(ExitCode code)
{
    switch (code) {
    case ExitCode::Ok:
        return "ok"_L1;
    case ExitCode::Malformed:
        return "malformed"_L1;
    case ExitCode::Unsupported:
        return "unsupported"_L1;
    default:
        return "unreadable"_L1;
    }
}

void addVerdict(Inspection& inspection)
{
    Value const problem = inspection.problem.isEmpty() ? Value() : Value(inspection.problem);
    inspection.report.add("status"_L1, {}, statusOf(inspection.code));
    inspection.report.add("problem"_L1, {}, problem);
}

ExitCode info(Options const& options, Console& console)
{
    ExitCode code = ExitCode::Ok;
    Report all;
    for (std::string const& name : options.files) {
        QString const path = QString::fromStdString(name);
        Inspection inspection = inspectFile(path);
        if (inspection.code != ExitCode::Ok)
            console.failure(path + u": "_s + inspection.problem);
        for (QString const& warning : inspection.warnings)
            console.warning(path + u": "_s + warning);
        addVerdict(inspection);
        all.addItem("files"_L1, path) = std::move(inspection.report);
        code = combined(code, inspection.code, options.files.size() == 1);
    }
    console.result(options.json ? all.json("surfaceio.info/1"_L1) : all.text());
    return code;
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("FILE", options->files, Text::utf8("Files to look at"))->required();
    app.add_flag("--json", options->json, Text::utf8("Print JSON, schema surfaceio.info/1"));
    addImageLimitOption(app);
    return [options](Console& console) { return info(*options, console); };
}

} // namespace

Verb const infoVerb = {
    "info",
    QT_TRANSLATE_NOOP("Text",
                      "Shows what a mesh file holds, and what is wrong with one that cannot be read."),
    "  surfaceio info scan.stl\n"
    "  surfaceio info --json lower.stl upper.stl",
    setUp,
};

} // namespace tool
