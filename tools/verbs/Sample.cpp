#include "Text.h"
#include "Verb.h"
#include "convert/Conversion.h"
#include "convert/Suffixes.h"
#include "framework/ScanMetadata.h"
#include "output/OutputFile.h"
#include "sample/DentalArch.h"
#include "sample/TaggedStl.h"
#include "texture/SampleObj.h"

#include <CLI/CLI.hpp>

#include <QFile>
#include <QFileInfo>

#include <limits>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

struct Options
{
    std::string out;
    int facets = sample::Options().facets;
    qint64 seed = 1;
    bool force = false;
};

// No date of today: the same command writes the same bytes.
MeshHeader metadata(Options const& options)
{
    return {u"SurfaceIO sample"_s, u"seed-%1"_s.arg(options.seed), false, QStringLiteral(SURFACEIO_VERSION),
            QDate(2024, 1, 1).startOfDay(Qt::UTC)};
}

MeshFile toMeshFile(sample::DentalArch const& arch)
{
    MeshFile file;
    file.mesh.vertices = arch.vertices;
    file.mesh.colors = arch.colors;
    file.mesh.indices.reserve(4 * static_cast<qsizetype>(arch.facets.size()));
    for (sample::DentalArch::Facet const& facet : arch.facets)
        file.mesh.indices << facet.corners[0] << facet.corners[1] << facet.corners[2] << -1;
    return file;
}

QString writeStl(QString const& path, sample::DentalArch const& arch, Options const& options)
{
    OutputFile output(path);
    if (QString problem = output.open(options.force); !problem.isEmpty())
        return problem;
    QFile file(output.temporaryPath());
    if (!file.open(QIODevice::WriteOnly))
        return Text::tr("cannot be written: ") + file.errorString();
    bool const isWritten =
        writeTaggedStl(file, arch, conversions::toByteArray(metadata(options))) && file.flush();
    if (!isWritten)
        return whyNotWritten(output.temporaryPath());
    file.close();
    return output.commit(sample::taggedStlBytes(options.facets));
}

QString sampleSuffixes()
{
    return suffixesOf(meshTargets()) + u", .obj"_s;
}

ExitCode run(Options const& options, Console& console)
{
    QString const path = QString::fromStdString(options.out);
    if (meshTargetFor(path) == nullptr && !hasSuffix(path, "obj"_L1)) {
        console.failure(path + u": "_s + Text::tr("expected one of the suffixes %1").arg(sampleSuffixes()));
        return ExitCode::Usage;
    }
    sample::DentalArch const arch =
        sample::makeDentalArch({options.facets, static_cast<quint64>(options.seed)});
    if (hasSuffix(path, "obj"_L1))
        return writeSampleObj(path, arch, static_cast<quint64>(options.seed), options.force, console);
    if (QFileInfo(path).suffix().compare("stl"_L1, Qt::CaseInsensitive) != 0)
        return writeMeshFile(path, toMeshFile(arch), options.force, console);
    QString const problem = writeStl(path, arch, options);
    if (!problem.isEmpty())
        console.failure(path + u": "_s + problem);
    return problem.isEmpty() ? ExitCode::Ok : ExitCode::ReadOrWriteFailed;
}

// CLI11's own check names the largest double as a bound, in 300 digits, and its conversion takes what is too
// large for the largest seed.
std::string wrongSeed(std::string const& text)
{
    bool isNumber = false;
    qint64 const seed = QByteArray::fromStdString(text).toLongLong(&isNumber, 0);
    if (isNumber && seed >= 0)
        return {};
    return Text::tr("expected a whole number from 0 to %1")
        .arg(std::numeric_limits<qint64>::max())
        .toStdString();
}

Verb::Action setUp(CLI::App& app)
{
    auto const options = std::make_shared<Options>();
    app.add_option("OUT", options->out, Text::tr("File to write: %1").arg(sampleSuffixes()).toStdString())
        ->required();
    app.add_option("--facets", options->facets, Text::utf8("How many facets, exactly"))
        ->check(CLI::Range(sample::Options::fewestFacets, sample::Options::mostFacets))
        ->capture_default_str();
    app.add_option("--seed", options->seed, Text::utf8("Another seed gives another mouth"))
        ->check(wrongSeed, "")
        ->capture_default_str();
    app.add_flag("--force", options->force, Text::utf8("Replace OUT when it exists"));
    return [options](Console& console) { return run(*options, console); };
}

} // namespace

Verb const sampleVerb = {
    "sample",
    QT_TRANSLATE_NOOP(
        "Text",
        "Writes a synthetic scan of a lower dental arch, the same on every run; each tooth has its own facet "
        "tag."),
    "  surfaceio sample scan.stl\n"
    "  surfaceio sample --facets 1000000 --seed 7 textured.obj",
    setUp,
};

} // namespace tool
