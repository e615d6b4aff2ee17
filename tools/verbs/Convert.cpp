#include "FileName.h"
#include "Problem.h"
#include "Report.h"
#include "Text.h"
#include "Verb.h"
#include "convert/Batch.h"
#include "convert/Plan.h"
#include "convert/Suffixes.h"
#include "images/ImageLimit.h"
#include "verbs/Choices.h"
#include "verbs/Inputs.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::vector<std::string> files;
    std::optional<std::string> suffix;
    std::string directory;
    int jobs = std::max(1, QThread::idealThreadCount());
    bool dryRun = false;
    bool failFast = false;
    bool json = false;
    bool force = false;
    bool alpha = false;
    bool imported = false;
    std::string texture = "bake";
    std::optional<std::string> material;
    std::optional<std::string> scannerName;
    std::optional<std::string> scannerSerial;
    std::optional<std::string> softwareVersion;
    std::optional<std::string> acquired;
};

std::optional<QString> textOf(std::optional<std::string> const& text)
{
    return text ? std::optional(QString::fromStdString(*text)) : std::nullopt;
}

QDate dateOf(std::string const& text)
{
    return QDate::fromString(QString::fromStdString(text), Qt::ISODate);
}

std::string wrongDate(std::string const& text)
{
    return dateOf(text).isValid() ? "" : Text::utf8("expected yyyy-mm-dd");
}

Changes changesOf(Options const& options)
{
    Changes changes;
    changes.withAlpha = options.alpha;
    if (options.material)
        changes.material =
            *options.material == "metal" ? geometry::Material::metal() : geometry::Material::distractor();
    changes.scannerName = textOf(options.scannerName);
    changes.scannerSerial = textOf(options.scannerSerial);
    changes.softwareVersion = textOf(options.softwareVersion);
    if (options.acquired)
        changes.acquired = dateOf(*options.acquired);
    changes.imported = options.imported;
    return changes;
}

std::vector<Conversion> plan(Options const& options)
{
    Changes const changes = changesOf(options);
    if (!options.suffix)
        return {{QString::fromStdString(options.files.at(0)), QString::fromStdString(options.files.at(1)),
                 options.force, changes, options.texture == "bake"}};
    QStringList suffixes;
    for (MeshSource const& source : meshSources())
        suffixes << split(source.suffixes);
    PlannedTarget const target = {QString::fromStdString(*options.suffix),
                                  QString::fromStdString(options.directory)};
    std::vector<Conversion> conversions;
    for (Input const& input : inputsIn(options.files, suffixes)) {
        QString const out =
            input.problem.isEmpty() ? targetPath({input.path, input.subfolder}, target) : QString();
        conversions.push_back(
            {input.path, out, options.force, changes, options.texture == "bake", input.problem});
    }
    return conversions;
}

// Before anything is read or made.
Problem problemOf(std::vector<Conversion> const& conversions, Options const& options)
{
    QString const directory = QString::fromStdString(options.directory);
    if (QString const problem = whyNoFileName(directory); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, directory + u": "_s + problem};
    if (QFileInfo const file(directory); !directory.isEmpty() && file.exists() && !file.isDir())
        return {ExitCode::ReadOrWriteFailed, directory + Text::tr(": expected a folder, found a file")};
    QStringList const collisions = collisionsOf(conversions);
    return collisions.isEmpty() ? Problem() : Problem{ExitCode::Usage, collisions.join(u"; "_s)};
}

QStringList sentencesOf(BatchResult const& result, Message::Kind kind)
{
    QStringList sentences;
    for (Message const& message : result.messages) {
        if (message.kind == kind)
            sentences << message.sentence;
    }
    return sentences;
}

Value arrayOf(QStringList const& texts)
{
    return Value::array({texts.begin(), texts.end()});
}

void printJson(std::vector<Conversion> const& conversions, std::vector<BatchResult> const& results,
               Console& console)
{
    Report all;
    all.addList("files"_L1);
    for (std::size_t i = 0; i < results.size(); ++i) {
        QStringList const failures = sentencesOf(results[i], Message::Kind::Failure);
        Report& file = all.addItem("files"_L1, conversions[i].in);
        file.add("path"_L1, {}, conversions[i].in);
        file.add("output"_L1, {}, conversions[i].out.isEmpty() ? Value() : Value(conversions[i].out));
        file.add("status"_L1, {}, nameOf(results[i].status));
        file.add("exitCode"_L1, {}, static_cast<int>(results[i].code));
        file.add("problem"_L1, {}, failures.isEmpty() ? Value() : Value(failures.join(u"; "_s)));
        file.add("warnings"_L1, {}, arrayOf(sentencesOf(results[i], Message::Kind::Warning)));
    }
    console.result(all.json("surfaceio.convert/1"_L1));
}

void printPlan(std::vector<Conversion> const& conversions, std::vector<BatchResult> const& results,
               Console& console)
{
    for (std::size_t i = 0; i < results.size(); ++i) {
        if (results[i].status == BatchResult::Status::Planned)
            console.result(printable(u"%1 -> %2"_s.arg(conversions[i].in, conversions[i].out)) + u'\n');
    }
}

qint64 count(std::vector<BatchResult> const& results, BatchResult::Status status)
{
    return std::count_if(results.begin(), results.end(),
                         [status](BatchResult const& result) { return result.status == status; });
}

void summarise(std::vector<BatchResult> const& results, Console& console)
{
    using Status = BatchResult::Status;
    QString const all = QString::number(results.size());
    if (count(results, Status::Interrupted) > 0)
        console.failure(Text::tr("interrupted; %1 of %2 files were converted")
                            .arg(count(results, Status::Converted))
                            .arg(all));
    else if (results.size() > 1 && count(results, Status::Failed) > 0)
        console.failure(Text::tr("%1 of %2 files failed").arg(count(results, Status::Failed)).arg(all));
    if (qint64 const skipped = count(results, Status::Skipped); skipped > 0)
        console.failure(
            Text::tr("%1 of %2 files were not tried, as --fail-fast was given").arg(skipped).arg(all));
}

ExitCode run(Options const& options, Console& console)
{
    std::vector<Conversion> const conversions = plan(options);
    if (Problem const problem = problemOf(conversions, options)) {
        console.failure(problem.sentence);
        return problem.code;
    }
    std::vector<BatchResult> const results = convertAll(
        conversions, {options.jobs, options.failFast, options.dryRun, !options.directory.empty()}, console);
    if (options.json)
        printJson(conversions, results, console);
    else
        printPlan(conversions, results, console);
    summarise(results, console);
    ExitCode code = ExitCode::Ok;
    for (BatchResult const& result : results)
        code = combined(code, result.code, results.size() == 1);
    return code;
}

void checkFiles(Options const& options)
{
    if (options.files.empty())
        throw CLI::RequiredError("IN");
    if (options.suffix)
        return;
    if (options.files.size() == 1)
        throw CLI::RequiredError("OUT");
    if (options.files.size() > 2)
        throw CLI::ValidationError(
            Text::counted("expected IN and OUT, or --to SUFFIX for several files; found %n file(s)", nullptr,
                          qint64(options.files.size()))
                .toStdString());
}

void addBatchOptions(CLI::App& app, Options& options)
{
    std::vector<std::string> suffixes;
    for (MeshTarget const& target : meshTargets()) {
        for (QString const& suffix : split(target.suffixes))
            suffixes.push_back(suffix.toStdString());
    }
    CLI::Option* const to =
        app.add_option("--to", options.suffix,
                       Text::utf8("Convert every FILE to this suffix: ") + CLI::detail::join(suffixes))
            ->type_name("SUFFIX")
            ->check(oneOf(suffixes));
    app.add_option("-d,--directory", options.directory,
                   Text::utf8("With --to: where the files go; beside each when not given"))
        ->type_name("FOLDER")
        ->needs(to);
    app.add_option("-j,--jobs", options.jobs,
                   Text::utf8("Files converted at a time; as many as there are processors"))
        ->type_name("N")
        ->check(CLI::Range(1, 1024).description(""));
    app.add_flag("--dry-run", options.dryRun, Text::utf8("Only print what would be converted to what"));
    app.add_flag("--fail-fast", options.failFast, Text::utf8("Begin no other file after one failed"));
    app.add_flag("--json", options.json,
                 Text::utf8("Print what became of each file as JSON, schema surfaceio.convert/1"));
}

void addScanOptions(CLI::App& app, Options& options)
{
    app.add_option("--scanner-name", options.scannerName, Text::utf8("Scan metadata: the scanner's name"));
    app.add_option("--scanner-serial", options.scannerSerial, Text::utf8("Scan metadata: its serial number"));
    app.add_flag("--imported", options.imported, Text::utf8("Scan metadata: the scan came in from outside"));
    app.add_option("--software-version", options.softwareVersion,
                   Text::utf8("Scan metadata: version of its software"));
    app.add_option("--acquired", options.acquired,
                   Text::utf8("Scan metadata: date of acquisition, yyyy-mm-dd"))
        ->check(wrongDate, "");
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("FILE", options->files,
                   Text::tr("IN and OUT; with --to any number of files, folders and quoted patterns. "
                            "Read are %1, written %2")
                       .arg(suffixesOf(meshSources()), suffixesOf(meshTargets()))
                       .toStdString());
    app.add_flag("--force", options->force, Text::utf8("Replace files that exist"));
    addBatchOptions(app, *options);
    app.add_flag("--alpha", options->alpha, Text::utf8("PLY: write the alpha of colours"));
    app.add_option("--material", options->material, Text::utf8("PLY: write a material, metal or distractor"))
        ->check(oneOf({"metal", "distractor"}));
    app.add_option(
           "--texture", options->texture,
           Text::utf8("OBJ, PLY: what becomes of a texture; bake makes it colours, none leaves it out"))
        ->check(oneOf({"bake", "none"}))
        ->capture_default_str();
    addScanOptions(app, *options);
    addImageLimitOption(app);
    app.final_callback([options] { checkFiles(*options); });
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const convertVerb = {
    "convert",
    QT_TRANSLATE_NOOP("Text", "Writes meshes as files of another kind; the suffixes say which."),
    "  surfaceio convert scan.stl scan.ply --material metal --acquired 2024-05-17\n"
    "  surfaceio convert scans/ 'more/*.stl' --to ply -d converted/",
    setUp,
};

} // namespace tool
