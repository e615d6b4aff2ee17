#include "texture/Atlas.h"

#include "Text.h"
#include "Verb.h"
#include "images/ImageLimit.h"

#include <CLI/CLI.hpp>

namespace tool {

namespace {

struct Options
{
    std::string in;
    std::string image;
    std::string mesh;
    bool force = false;
};

ExitCode run(Options const& options, Console& console)
{
    return writeAtlas({QString::fromStdString(options.in), QString::fromStdString(options.image),
                       QString::fromStdString(options.mesh), options.force},
                      console);
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("IN", options->in, Text::utf8("Textured scan to read: .obj, .ply"))->required();
    app.add_option("--image", options->image, Text::utf8("Image to write, .png"))
        ->required()
        ->type_name("PNG");
    app.add_option("--mesh", options->mesh, Text::utf8("Mesh to write, .ply, whose texture is this image"))
        ->type_name("PLY");
    app.add_flag("--force", options->force, Text::utf8("Replace files that exist"));
    addImageLimitOption(app);
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const atlasVerb = {
    "atlas",
    QT_TRANSLATE_NOOP("Text", "Packs the textures of a scan into one image, and writes a mesh that uses it."),
    "  surfaceio atlas face.obj --image atlas.png --mesh face.ply\n"
    "  surfaceio atlas face.obj --image atlas.png",
    setUp,
};

} // namespace tool
