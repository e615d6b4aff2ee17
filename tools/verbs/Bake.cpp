#include "Problem.h"
#include "Text.h"
#include "Verb.h"
#include "convert/Conversion.h"
#include "convert/Suffixes.h"
#include "images/ImageLimit.h"
#include "texture/TexturedScan.h"

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

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
    QString const in = QString::fromStdString(options.in);
    QString const out = QString::fromStdString(options.out);
    if (!hasSuffix(out, "ply"_L1))
        return reported({ExitCode::Usage, Text::tr("expected the suffix .ply")}, out, console);
    // Readers do without a texture that is not there. Here it is what the user came for.
    TexturedScan scan;
    if (Problem const problem = readTexturedScan(in, scan))
        return reported(problem, in, console);
    ExitCode const code = convert({in, out, options.force}, console);
    return code == ExitCode::Interrupted ? reported(interruption(), out, console) : code;
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("IN", options->in, Text::utf8("Textured scan to read: .obj, .ply"))->required();
    app.add_option("OUT", options->out, Text::utf8("File to write, .ply"))->required();
    app.add_flag("--force", options->force, Text::utf8("Replace OUT when it exists"));
    addImageLimitOption(app);
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const bakeVerb = {
    "bake",
    QT_TRANSLATE_NOOP("Text", "Turns the texture of a scan into colours of its vertices."),
    "  surfaceio bake face.obj face.ply\n"
    "  surfaceio bake --force --image-limit 512 textured.ply coloured.ply",
    setUp,
};

} // namespace tool
