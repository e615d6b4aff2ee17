#include "Verb.h"
#include "convert/Conversion.h"
#include "images/ImageLimit.h"

#include <CLI/CLI.hpp>

namespace tool {

namespace {

struct Options
{
    std::string in;
    std::string out;
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
    return dateOf(text).isValid() ? "" : "expected yyyy-mm-dd";
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

ExitCode run(Options const& options, Console& console)
{
    return convert({QString::fromStdString(options.in), QString::fromStdString(options.out), options.force,
                    changesOf(options), options.texture == "bake"},
                   console);
}

void addScanOptions(CLI::App& app, Options& options)
{
    app.add_option("--scanner-name", options.scannerName, "Scan metadata: the scanner's name");
    app.add_option("--scanner-serial", options.scannerSerial, "Scan metadata: its serial number");
    app.add_flag("--imported", options.imported, "Scan metadata: the scan came in from outside");
    app.add_option("--software-version", options.softwareVersion, "Scan metadata: version of its software");
    app.add_option("--acquired", options.acquired, "Scan metadata: date of acquisition, yyyy-mm-dd")
        ->check(wrongDate, "");
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("IN", options->in, "File to read: " + suffixesOf(meshSources()).toStdString())->required();
    app.add_option("OUT", options->out, "File to write: " + suffixesOf(meshTargets()).toStdString())
        ->required();
    app.add_flag("--force", options->force, "Replace OUT when it exists");
    app.add_flag("--alpha", options->alpha, "PLY: write the alpha of colours");
    app.add_option("--material", options->material, "PLY: write a material, metal or distractor")
        ->check(CLI::IsMember(std::vector<std::string>{"metal", "distractor"}).description(""));
    app.add_option("--texture", options->texture,
                   "OBJ, PLY: what becomes of a texture; bake makes it colours, none leaves it out")
        ->check(CLI::IsMember(std::vector<std::string>{"bake", "none"}).description(""))
        ->capture_default_str();
    addScanOptions(app, *options);
    addImageLimitOption(app);
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const convertVerb = {
    "convert",
    "Writes a mesh as a file of another kind; the suffixes say which.",
    "  surfaceio convert scan.stl scan.xyz\n"
    "  surfaceio convert scan.stl scan.ply --material metal --acquired 2024-05-17",
    setUp,
};

} // namespace tool
