#include "Text.h"
#include "Verb.h"
#include "verbs/SubVerbs.h"
#include "volume/VolumeWork.h"

#include <CLI/CLI.hpp>

namespace tool {

namespace {

struct Options
{
    std::string in;
    std::string out;
    std::string mesh;
    bool keepsPoints = false;
    bool json = false;
    bool force = false;
};

using SharedOptions = std::shared_ptr<Options>;

ExitCode from(Options const& options, Console& console)
{
    return volume::from({QString::fromStdString(options.in), QString::fromStdString(options.out),
                         options.keepsPoints, options.force, options.json},
                        console);
}

ExitCode faces(Options const& options, Console& console)
{
    return volume::faces({QString::fromStdString(options.in), QString::fromStdString(options.out),
                          options.force, options.json},
                         console);
}

ExitCode conditions(Options const& options, Console& console)
{
    return volume::conditions(
        {QString::fromStdString(options.in), QString::fromStdString(options.mesh), options.json}, console);
}

void addOutput(CLI::App& verb, SharedOptions const& options)
{
    verb.add_option("-o,--output", options->out, Text::utf8("File to write, .vmesh"))->required();
    verb.add_flag("--force", options->force, Text::utf8("Replace the file when it exists"));
}

void addFrom(SubVerbs& verbs, SharedOptions const& options)
{
    CLI::App& verb = verbs.add(
        "from", Text::utf8("Writes the tetrahedra of a file of a mesher as a volume mesh."),
        [options](Console& console) { return from(*options, console); },
        "  surfaceio vmesh from jaw.msh -o jaw.vmesh\n"
        "  surfaceio vmesh from jaw.vtk -o jaw.vmesh --keep-points");
    verb.add_option("IN", options->in, Text::utf8("Gmsh file (.msh, version 2.2) or VTK file (.vtk), ASCII"))
        ->required();
    addOutput(verb, options);
    verb.add_flag("--keep-points", options->keepsPoints,
                  Text::utf8("Keep points that no tetrahedron has, so that all keep their numbers"));
    verb.add_flag("--json", options->json, Text::utf8("Print JSON, schema surfaceio.vmesh-from/1"));
}

void addFaces(SubVerbs& verbs, SharedOptions const& options)
{
    CLI::App& verb = verbs.add(
        "faces", Text::utf8("Makes the face and bound-face rows of a volume mesh anew."),
        [options](Console& console) { return faces(*options, console); },
        "  surfaceio vmesh faces jaw.vmesh -o mended.vmesh\n"
        "  surfaceio vmesh faces jaw.vmesh -o jaw.vmesh --force");
    verb.add_option("IN", options->in, Text::utf8("A volume mesh"))->required();
    addOutput(verb, options);
    verb.add_flag("--json", options->json, Text::utf8("Print JSON, schema surfaceio.vmesh-faces/1"));
}

void addConditions(SubVerbs& verbs, SharedOptions const& options)
{
    CLI::App& verb = verbs.add(
        "conditions", Text::utf8("Prints boundary conditions: sums, and each point with its value."),
        [options](Console& console) { return conditions(*options, console); },
        "  surfaceio vmesh conditions load.txt\n"
        "  surfaceio vmesh conditions load.txt --mesh jaw.vmesh --json");
    verb.add_option("FILE", options->in, Text::utf8("A boundary-conditions file"))->required();
    verb.add_option("--mesh", options->mesh,
                    Text::utf8("The volume mesh that they are for; shows where the points are"))
        ->type_name("VMESH");
    verb.add_flag("--json", options->json, Text::utf8("Print JSON, schema surfaceio.conditions/1"));
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    SubVerbs verbs(app);
    addFrom(verbs, options);
    addFaces(verbs, options);
    addConditions(verbs, options);
    return verbs.action();
}

} // namespace

Verb const vmeshVerb = {
    "vmesh",
    QT_TRANSLATE_NOOP("Text", "Makes and mends volume meshes and shows boundary conditions; info, check and "
                              "convert take both, too."),
    "  surfaceio vmesh from jaw.msh -o jaw.vmesh\n"
    "  surfaceio vmesh conditions load.txt --mesh jaw.vmesh",
    setUp,
};

} // namespace tool
