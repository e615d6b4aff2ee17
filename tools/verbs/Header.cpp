#include "Text.h"
#include "Verb.h"
#include "header/Metadata.h"
#include "inspect/Format.h"
#include "inspect/MetadataRecord.h"
#include "output/OutputFile.h"
#include "verbs/Choices.h"
#include "verbs/SubVerbs.h"

#include <CLI/CLI.hpp>

#include <QFile>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string file;
    bool json = false;
    std::optional<std::string> scannerName;
    std::optional<std::string> scannerSerial;
    std::optional<std::string> imported;
    std::optional<std::string> softwareVersion;
    std::optional<std::string> date;
};

Problem open(QFile& file, QString const& path)
{
    if (QString const problem = whyNotRegular(path); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, problem};
    if (metadataFormatFor(path) == nullptr)
        return {ExitCode::Usage, Text::tr("expected one of the suffixes .stl, .ply")};
    file.setFileName(path);
    if (!file.open(QIODevice::ReadOnly))
        return {ExitCode::ReadOrWriteFailed, Text::tr("cannot be opened: ") + file.errorString()};
    return {};
}

Problem read(QString const& path, Metadata& metadata)
{
    QFile file;
    if (Problem problem = open(file, path))
        return problem;
    return metadataFormatFor(path)->read(file, metadata);
}

Problem replace(QString const& path, Metadata const& metadata)
{
    QFile in;
    if (Problem problem = open(in, path))
        return problem;
    OutputFile output(path);
    if (QString const problem = output.open(true); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, problem};
    QFile out(output.temporaryPath());
    if (!out.open(QIODevice::WriteOnly))
        return {ExitCode::ReadOrWriteFailed, Text::tr("cannot be written: ") + out.errorString()};
    if (Problem problem = metadataFormatFor(path)->write(in, metadata, out))
        return problem;
    qint64 const written = out.pos();
    if (!out.flush())
        return {ExitCode::ReadOrWriteFailed, whyNotWritten(out.fileName())};
    out.close();
    if (QString const problem = output.commit(written); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, problem};
    return {};
}

ExitCode get(Options const& options, Console& console)
{
    QString const path = QString::fromStdString(options.file);
    Metadata metadata;
    if (Problem const problem = read(path, metadata))
        return reported(problem, path, console);
    Report report;
    report.add("path"_L1, {}, path);
    addMetadata(report, metadata);
    if (options.json)
        console.result(report.json("surfaceio.header/1"_L1));
    else
        console.result(metadata ? report.text() : Text::tr("no scan metadata") + u'\n');
    return ExitCode::Ok;
}

QString chosen(std::optional<std::string> const& given, QString const& before)
{
    return given ? QString::fromStdString(*given) : before;
}

MeshHeader changed(MeshHeader const& before, Options const& options)
{
    QDateTime date = before.getAcquisitionDate();
    if (options.date)
        date = QDate::fromString(QString::fromStdString(*options.date), Qt::ISODate).startOfDay(Qt::UTC);
    return {chosen(options.scannerName, before.getScannerName()),
            chosen(options.scannerSerial, before.getScannerSerial()),
            options.imported ? *options.imported == "yes" : before.isImported(),
            chosen(options.softwareVersion, before.getSoftwareVersion()), date};
}

void warnOfChange(QString const& what, QString const& asked, QString const& stored, Console& console)
{
    if (asked != stored)
        console.warning(Text::tr("the %1 \"%2\" is stored as \"%3\"").arg(what, asked, stored));
}

// A record has room for so many letters, and for no spaces.
void warnOfChanges(QString const& path, MeshHeader const& asked, Console& console)
{
    Metadata stored;
    if (read(path, stored) || !stored)
        return;
    warnOfChange(Text::tr("scanner name"), asked.getScannerName(), stored->getScannerName(), console);
    warnOfChange(Text::tr("scanner serial"), asked.getScannerSerial(), stored->getScannerSerial(), console);
    warnOfChange(Text::tr("software version"), asked.getSoftwareVersion(), stored->getSoftwareVersion(),
                 console);
}

ExitCode set(Options const& options, Console& console)
{
    QString const path = QString::fromStdString(options.file);
    Metadata metadata;
    if (Problem const problem = read(path, metadata))
        return reported(problem, path, console);
    MeshHeader const asked = changed(metadata.value_or(MeshHeader()), options);
    ExitCode const code = reported(replace(path, asked), path, console);
    if (code == ExitCode::Ok)
        warnOfChanges(path, asked, console);
    return code;
}

ExitCode clear(Options const& options, Console& console)
{
    QString const path = QString::fromStdString(options.file);
    return reported(replace(path, {}), path, console);
}

std::string wrongDate(std::string const& text)
{
    return QDate::fromString(QString::fromStdString(text), Qt::ISODate).isValid()
               ? ""
               : Text::utf8("expected yyyy-mm-dd");
}

std::string wrongLine(std::string const& text)
{
    return text.find_first_of("\r\n") == std::string::npos ? "" : Text::utf8("expected a single line");
}

void addFields(CLI::App& verb, Options& options)
{
    verb.add_option("--scanner-name", options.scannerName, Text::utf8("Name of the scanner"))
        ->check(wrongLine, "");
    verb.add_option("--scanner-serial", options.scannerSerial, Text::utf8("Its serial number"))
        ->check(wrongLine, "");
    verb.add_option("--imported", options.imported, Text::utf8("yes or no"))->check(oneOf({"yes", "no"}));
    verb.add_option("--software-version", options.softwareVersion,
                    Text::utf8("Version of the program that made the scan"))
        ->check(wrongLine, "");
    verb.add_option("--date", options.date, Text::utf8("Date of acquisition, yyyy-mm-dd"))
        ->check(wrongDate, "");
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    SubVerbs verbs(app);
    CLI::App& getter = verbs.add(
        "get", Text::utf8("Prints the scan metadata of a file."),
        [options](Console& console) { return get(*options, console); },
        "  surfaceio header get scan.stl\n"
        "  surfaceio header get scan.ply --json");
    getter.add_flag("--json", options->json, Text::utf8("Print JSON, schema surfaceio.header/1"));
    CLI::App& setter = verbs.add(
        "set", Text::utf8("Changes what is given and keeps the rest."),
        [options](Console& console) { return set(*options, console); },
        "  surfaceio header set scan.stl --scanner-name TrueScan --date 2024-05-17\n"
        "  surfaceio header set scan.ply --imported yes");
    addFields(setter, *options);
    CLI::App& clearer = verbs.add(
        "clear", Text::utf8("Takes the scan metadata out of a file."),
        [options](Console& console) { return clear(*options, console); },
        "  surfaceio header clear scan.stl\n"
        "  surfaceio header clear --verbose scan.ply");
    for (CLI::App* const verb : {&getter, &setter, &clearer})
        verb->add_option("FILE", options->file, Text::utf8("A binary STL or PLY file"))->required();
    return verbs.action();
}

} // namespace

Verb const headerVerb = {
    "header",
    QT_TRANSLATE_NOOP(
        "Text",
        "Shows and changes the scan metadata in a binary STL or PLY file; the mesh keeps every byte."),
    "  surfaceio header get scan.stl\n"
    "  surfaceio header set scan.stl --scanner-name TrueScan --date 2024-05-17",
    setUp,
};

} // namespace tool
