#include "texture/Atlas.h"

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
    app.add_option("IN", options->in, "Textured scan to read: .obj, .ply")->required();
    app.add_option("--image", options->image, "Image to write, .png")->required()->type_name("PNG");
    app.add_option("--mesh", options->mesh, "Mesh to write, .ply, whose texture is this image")
        ->type_name("PLY");
    app.add_flag("--force", options->force, "Replace files that exist");
    addImageLimitOption(app);
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const atlasVerb = {
    "atlas",
    "Packs the textures of a scan into one image, and writes a mesh that uses it.",
    "  surfaceio atlas face.obj --image atlas.png --mesh face.ply\n"
    "  surfaceio atlas face.obj --image atlas.png",
    setUp,
};

} // namespace tool
