#include "Verb.h"
#include "convert/Conversion.h"

#include <CLI/CLI.hpp>

namespace tool {

namespace {

struct Options
{
    std::string in;
    std::string out;
    bool force = false;
};

ExitCode run(Options const& options, Console& console)
{
    return convert({QString::fromStdString(options.in), QString::fromStdString(options.out), options.force},
                   console);
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("IN", options->in, "File to read: " + suffixesOf(meshSources()).toStdString())->required();
    app.add_option("OUT", options->out, "File to write: " + suffixesOf(meshTargets()).toStdString())
        ->required();
    app.add_flag("--force", options->force, "Replace OUT when it exists");
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const convertVerb = {
    "convert",
    "Writes a mesh as a file of another kind; the suffixes say which.",
    "  surfaceio convert scan.stl scan.xyz\n"
    "  surfaceio convert --force scan.stl scan.array",
    setUp,
};

} // namespace tool
