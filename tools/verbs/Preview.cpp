#include "Problem.h"
#include "Text.h"
#include "Verb.h"
#include "convert/MeshFile.h"
#include "images/ImageLimit.h"
#include "inspect/Format.h"
#include "output/BytesFile.h"
#include "preview/Loader.h"
#include "preview/Sheet.h"
#include "texture/MissingLibraries.h"
#include "texture/Png.h"
#include "verbs/Choices.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string in;
    std::string out;
    int size = 512;
    std::string view = "iso";
    std::string by = "auto";
    std::string format;
    bool sheet = false;
    bool force = false;
};

struct ColouringName
{
    char const* name;
    preview::Colouring colouring;
};
constexpr std::array colourings = {
    ColouringName{"auto", preview::Colouring::Auto},
    ColouringName{"tag", preview::Colouring::Tag},
    ColouringName{"colour", preview::Colouring::Colour},
    ColouringName{"normal", preview::Colouring::Normal},
};

preview::Colouring colouringOf(std::string const& name)
{
    for (ColouringName const& row : colourings) {
        if (row.name == name)
            return row.colouring;
    }
    return preview::Colouring::Auto;
}

std::vector<std::string> colouringNames()
{
    std::vector<std::string> names(colourings.size());
    std::transform(colourings.begin(), colourings.end(), names.begin(),
                   [](auto const& row) { return row.name; });
    return names;
}

std::vector<std::string> viewNames()
{
    std::vector<std::string> names;
    for (preview::View const& view : preview::views())
        names.emplace_back(view.name.data(), static_cast<std::size_t>(view.name.size()));
    return names;
}

ExitCode fail(ExitCode code, QString const& path, QString const& problem, Console& console)
{
    console.failure(path + u": "_s + problem);
    return code;
}

ExitCode load(QString const& path, preview::Model& model, Console& console)
{
    if (QString const problem = whyNotRegular(path); !problem.isEmpty())
        return fail(ExitCode::ReadOrWriteFailed, path, problem, console);
    if (preview::load(path, model)) {
        warnOfMissingLibraries(path, console);
        return ExitCode::Ok;
    }
    if (Interrupt::flag())
        return ExitCode::Interrupted;
    if (Problem const problem = refusalOf(path))
        return reported(problem, path, console);
    return fail(ExitCode::ReadOrWriteFailed, path, Text::tr("could not be read"), console);
}

bool hasTags(preview::Model const& model)
{
    return std::any_of(model.surfaces.begin(), model.surfaces.end(), [](preview::Surface const& surface) {
        return surface.tag != 0 || surface.subTag != 0;
    });
}

QImage draw(preview::Model const& model, Options const& options)
{
    preview::Colouring const colouring = colouringOf(options.by);
    if (options.sheet)
        return renderSheet(model, colouring, options.size);
    return renderView(model, *preview::viewNamed(QLatin1StringView(options.view)), colouring, options.size);
}

// From memory: what writes an image to a file does not look whether its last bytes arrive.
QString write(BytesFile& output, QImage const& image)
{
    QByteArray const bytes = pngOf(image);
    if (bytes.isEmpty())
        return Text::tr("could not be written");
    QString problem = output.write(bytes);
    return problem.isEmpty() ? output.commit() : problem;
}

ExitCode run(Options const& options, Console& console)
{
    QString const in = QString::fromStdString(options.in);
    QString const out = QString::fromStdString(options.out);
    if (options.format.empty() && QFileInfo(out).suffix().compare("png"_L1, Qt::CaseInsensitive) != 0)
        return fail(ExitCode::Usage, out, Text::tr("expected the suffix .png"), console);
    BytesFile output(out);
    if (QString const problem = output.open(options.force); !problem.isEmpty())
        return fail(ExitCode::ReadOrWriteFailed, out, problem, console);
    preview::Model model;
    ExitCode const code = load(in, model, console);
    if (Problem const problem = interruption())
        return reported(problem, out, console);
    if (code != ExitCode::Ok)
        return code;
    if (colouringOf(options.by) == preview::Colouring::Tag && !hasTags(model))
        console.warning(in + u": "_s + Text::tr("has no tags that could colour it"));
    QString const problem = write(output, draw(model, options));
    return problem.isEmpty() ? ExitCode::Ok : fail(ExitCode::ReadOrWriteFailed, out, problem, console);
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("IN", options->in,
                   Text::tr("File to show: %1").arg(suffixesOf(meshSources())).toStdString())
        ->required();
    app.add_option("-o,--output", options->out, Text::utf8("Picture to write, .png"))->required();
    app.add_option("--format", options->format, Text::utf8("png: OUT is such a picture, whatever its suffix"))
        ->check(oneOf({"png"}));
    app.add_option("--size", options->size,
                   Text::utf8("Width and height in pixels; with --sheet, of each view"))
        ->check(CLI::Range(16, 4096))
        ->capture_default_str();
    app.add_option("--view", options->view,
                   Text::utf8("Where to look from: front, occlusal, left, right or iso"))
        ->check(oneOf(viewNames()))
        ->capture_default_str();
    app.add_option("--by", options->by, Text::utf8("What colours it: auto, tag, colour or normal"))
        ->check(oneOf(colouringNames()))
        ->capture_default_str();
    app.add_flag("--sheet", options->sheet, Text::utf8("All views on one picture"));
    app.add_flag("--force", options->force, Text::utf8("Replace the picture when it exists"));
    addImageLimitOption(app);
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const previewVerb = {
    "preview",
    QT_TRANSLATE_NOOP("Text", "Draws a picture of a mesh, without a display or a graphics card."),
    "  surfaceio preview scan.stl -o scan.png\n"
    "  surfaceio preview scan.stl -o sheet.png --sheet --size 384",
    setUp,
};

} // namespace tool
