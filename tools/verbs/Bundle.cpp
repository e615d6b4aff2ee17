#include "Text.h"
#include "Verb.h"
#include "bundle/BundleWork.h"
#include "verbs/Choices.h"
#include "verbs/SubVerbs.h"

#include <CLI/CLI.hpp>

namespace tool {

namespace {

struct Options
{
    std::string document;
    std::vector<std::string> meshes;
    std::string material = "own";
    std::string folder;
    bool json = false;
    bool force = false;
};

QStringList toList(std::vector<std::string> const& texts)
{
    QStringList list;
    for (std::string const& text : texts)
        list << QString::fromStdString(text);
    return list;
}

ExitCode list(Options const& options, Console& console)
{
    return bundle::list({QString::fromStdString(options.document), options.json}, console);
}

ExitCode pack(Options const& options, Console& console)
{
    return bundle::pack({QString::fromStdString(options.document), toList(options.meshes),
                         QString::fromStdString(options.material), options.force},
                        console);
}

ExitCode unpack(Options const& options, Console& console)
{
    return bundle::unpack({QString::fromStdString(options.document), QString::fromStdString(options.folder),
                           options.force, options.json},
                          console);
}

void addMaterialOption(CLI::App& packer, Options& options)
{
    std::vector<std::string> names;
    for (QString const& name : bundle::materialNames())
        names.push_back(name.toStdString());
    packer
        .add_option(
            "--material", options.material,
            Text::utf8("How the meshes look: own (what a PLY file says), default, metal or distractor"))
        ->check(oneOf(names))
        ->capture_default_str();
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    SubVerbs verbs(app);
    CLI::App& lister = verbs.add(
        "list", Text::utf8("Shows which shapes load, which are skipped, and why."),
        [options](Console& console) { return list(*options, console); },
        "  surfaceio bundle list case.xml\n"
        "  surfaceio bundle list case.xml --json");
    lister.add_option("DOCUMENT", options->document, Text::utf8("An associated-shapes document"))->required();
    lister.add_flag("--json", options->json, Text::utf8("Print JSON, schema surfaceio.bundle/1"));

    CLI::App& packer = verbs.add(
        "pack", Text::utf8("Writes the document that lists some meshes."),
        [options](Console& console) { return pack(*options, console); },
        "  surfaceio bundle pack case.xml upper.stl lower.ply\n"
        "  surfaceio bundle pack case.xml device.stl --material metal");
    packer.add_option("DOCUMENT", options->document, Text::utf8("File to write"))->required();
    packer.add_option("MESH", options->meshes, Text::utf8("Files to list: .stl, .ply, .obj"))->required();
    addMaterialOption(packer, *options);

    CLI::App& unpacker = verbs.add(
        "unpack", Text::utf8("Writes each shape as a PLY file that carries its material."),
        [options](Console& console) { return unpack(*options, console); },
        "  surfaceio bundle unpack case.xml shapes\n"
        "  surfaceio bundle unpack case.xml shapes --force --json");
    unpacker.add_option("DOCUMENT", options->document, Text::utf8("An associated-shapes document"))
        ->required();
    unpacker.add_option("FOLDER", options->folder, Text::utf8("Folder to write to; made when it is missing"))
        ->required();
    unpacker.add_flag("--json", options->json,
                      Text::utf8("Print the names as JSON, schema surfaceio.unpack/1"));
    for (CLI::App* const writer : {&packer, &unpacker})
        writer->add_flag("--force", options->force, Text::utf8("Replace files that exist"));
    return verbs.action();
}

} // namespace

Verb const bundleVerb = {
    "bundle",
    QT_TRANSLATE_NOOP("Text",
                      "Lists, writes and takes apart the documents that pair mesh files with materials."),
    "  surfaceio bundle pack case.xml upper.stl lower.ply\n"
    "  surfaceio bundle list case.xml",
    setUp,
};

} // namespace tool
