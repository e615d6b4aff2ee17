#include "Text.h"
#include "Verb.h"
#include "inspect/StlReport.h"
#include "tags/TagWork.h"
#include "verbs/SubVerbs.h"

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string in;
    std::vector<std::string> inputs;
    std::string out;
    std::vector<std::string> rules;
    std::string pattern = "{name}-{tag}.stl";
    std::string directory = ".";
    bool json = false;
    bool force = false;
};

QStringList toStrings(std::vector<std::string> const& texts)
{
    QStringList strings;
    for (std::string const& text : texts)
        strings << QString::fromStdString(text);
    return strings;
}

ExitCode list(Options const& options, Console& console)
{
    QString const path = QString::fromStdString(options.in);
    tags::TaggedFile file;
    if (Problem const problem = file.open(path))
        return reported(problem, path, console);
    stl::Contents contents;
    Problem const problem = file.forEach(
        [&contents](QByteArrayView record, stl::FacetTag const&) { contents.add(stl::FacetRecord(record)); });
    if (problem)
        return reported(problem, path, console);
    Report report;
    report.add("path"_L1, {}, path);
    report.add("tags"_L1, Text::tr("tags"), stl::tagTable(contents));
    console.result(options.json ? report.json("surfaceio.tags/1"_L1) : report.text());
    return ExitCode::Ok;
}

ExitCode split(Options const& options, Console& console)
{
    return tags::split({QString::fromStdString(options.in), QString::fromStdString(options.pattern),
                        QString::fromStdString(options.directory), options.force, options.json},
                       console);
}

ExitCode merge(Options const& options, Console& console)
{
    return tags::merge({toStrings(options.inputs), QString::fromStdString(options.out), options.force},
                       console);
}

ExitCode relabel(Options const& options, Console& console)
{
    return tags::relabel({QString::fromStdString(options.in), QString::fromStdString(options.out),
                          toStrings(options.rules), options.force},
                         console);
}

void addList(SubVerbs& verbs, std::shared_ptr<Options> const& options)
{
    CLI::App& verb = verbs.add(
        "list", Text::utf8("Prints the tags of a file, their facets and areas."),
        [options](Console& console) { return list(*options, console); },
        "  surfaceio tags list scan.stl\n"
        "  surfaceio tags list scan.stl --json");
    verb.add_option("FILE", options->in, Text::utf8("A binary STL file"))->required();
    verb.add_flag("--json", options->json, Text::utf8("Print JSON, schema surfaceio.tags/1"));
}

void addSplit(SubVerbs& verbs, std::shared_ptr<Options> const& options)
{
    CLI::App& verb = verbs.add(
        "split", Text::utf8("Writes the facets of each tag to a file of its own, and prints the names."),
        [options](Console& console) { return split(*options, console); },
        "  surfaceio tags split scan.stl --pattern '{name}-{tag}.stl'\n"
        "  surfaceio tags split scan.stl -d parts --force");
    verb.add_option("FILE", options->in, Text::utf8("A binary STL file"))->required();
    verb.add_option("--pattern", options->pattern,
                    Text::utf8("Name of each file, from {name}, {tag} and {subTag}"))
        ->capture_default_str();
    verb.add_option("-d,--directory", options->directory, Text::utf8("Where the files go"))
        ->capture_default_str();
    verb.add_flag("--json", options->json, Text::utf8("Print the names as JSON, schema surfaceio.split/1"));
    verb.add_flag("--force", options->force, Text::utf8("Replace files that exist"));
}

void addMerge(SubVerbs& verbs, std::shared_ptr<Options> const& options)
{
    CLI::App& verb = verbs.add(
        "merge", Text::utf8("Puts the facets of several files into one."),
        [options](Console& console) { return merge(*options, console); },
        "  surfaceio tags merge 1=gum.stl 31=tooth.stl -o scan.stl\n"
        "  surfaceio tags merge upper.stl lower.stl -o both.stl");
    verb.add_option("FILE", options->inputs,
                    Text::utf8("Binary STL files; TAG=FILE or TAG/SUBTAG=FILE gives all facets a tag"))
        ->required();
    verb.add_option("-o,--output", options->out, Text::utf8("File to write"))->required();
    verb.add_flag("--force", options->force, Text::utf8("Replace the file when it exists"));
}

void addRelabel(SubVerbs& verbs, std::shared_ptr<Options> const& options)
{
    CLI::App& verb = verbs.add(
        "relabel", Text::utf8("Gives facets other tags."),
        [options](Console& console) { return relabel(*options, console); },
        "  surfaceio tags relabel scan.stl 3=31 '*=1' -o teeth.stl\n"
        "  surfaceio tags relabel scan.stl '*/7=*/0' -o scan.stl --force");
    verb.add_option("FILE", options->in, Text::utf8("A binary STL file"))->required();
    verb.add_option("RULE", options->rules,
                    Text::utf8("OLD=NEW, each TAG, TAG/SUBTAG or *; the first that fits counts"))
        ->required();
    verb.add_option("-o,--output", options->out, Text::utf8("File to write"))->required();
    verb.add_flag("--force", options->force, Text::utf8("Replace the file when it exists"));
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    SubVerbs verbs(app);
    addList(verbs, options);
    addSplit(verbs, options);
    addMerge(verbs, options);
    addRelabel(verbs, options);
    return verbs.action();
}

} // namespace

Verb const tagsVerb = {
    "tags",
    QT_TRANSLATE_NOOP(
        "Text",
        "Shows, splits, merges and changes the facet tags of binary STL files; coordinates keep every bit."),
    "  surfaceio tags split scan.stl --pattern '{name}-{tag}.stl'\n"
    "  surfaceio tags relabel scan.stl 3=31 '*=1' -o teeth.stl",
    setUp,
};

} // namespace tool
