#include "convert/Conversion.h"

#include "Text.h"
#include "inspect/Format.h"
#include "output/OutputFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

ExitCode fail(ExitCode code, QString const& path, QString const& problem, Console& console)
{
    console.failure(path + u": "_s + problem);
    return code;
}

// The readers say little about why they refuse a file; the inspector knows.
ExitCode failReading(QString const& path, Console& console)
{
    if (Interrupt::flag())
        return ExitCode::Interrupted;
    Inspection const inspection = inspectFile(path);
    if (inspection.code != ExitCode::Ok)
        return fail(inspection.code, path, inspection.problem, console);
    return fail(ExitCode::ReadOrWriteFailed, path, Text::tr("could not be read"), console);
}

ExitCode checkSource(QString const& path, Console& console)
{
    if (meshSourceFor(path) == nullptr)
        return fail(ExitCode::Usage, path,
                    Text::tr("expected one of the suffixes %1").arg(suffixesOf(meshSources())), console);
    if (QString const problem = whyNotRegular(path); !problem.isEmpty())
        return fail(ExitCode::ReadOrWriteFailed, path, problem, console);
    return ExitCode::Ok;
}

ExitCode read(QString const& path, MeshFile& file, Reading const& reading, Console& console)
{
    if (ExitCode const code = checkSource(path, console); code != ExitCode::Ok)
        return code;
    if (!meshSourceFor(path)->read(path, file, reading))
        return failReading(path, console);
    if (reading.cancel) // some readers then tell of a file without facets
        return ExitCode::Interrupted;
    if (file.mesh.isNull())
        return fail(ExitCode::ReadOrWriteFailed, path, Text::tr("holds no facets that could be converted"),
                    console);
    return ExitCode::Ok;
}

ExitCode result(QString const& path, QString const& problem, Console& console)
{
    return problem.isEmpty() ? ExitCode::Ok : fail(ExitCode::ReadOrWriteFailed, path, problem, console);
}

ExitCode checkTarget(QString const& path, Console& console)
{
    if (meshTargetFor(path) != nullptr)
        return ExitCode::Ok;
    return fail(ExitCode::Usage, path,
                Text::tr("expected one of the suffixes %1").arg(suffixesOf(meshTargets())), console);
}

ExitCode open(OutputFile& output, QString const& path, bool mayReplace, Console& console)
{
    ExitCode const code = checkTarget(path, console);
    return code == ExitCode::Ok ? result(path, output.open(mayReplace), console) : code;
}

bool losesAlpha(MeshFile const& file)
{
    constexpr unsigned int opaque = 0xFF000000u;
    return !file.withAlpha && std::any_of(file.mesh.colors.begin(), file.mesh.colors.end(),
                                          [](unsigned int color) { return (color & opaque) != opaque; });
}

void warnOfLosses(MeshTarget const& target, Changes const& changes, MeshFile const& file, Console& console)
{
    QString const title = Text::shown(target.title);
    if (changes.hasMetadata() && !target.holdsMetadata)
        console.warning(Text::tr("a file of the kind \"%1\" holds no scan metadata").arg(title));
    if (changes.hasAppearance() && !target.holdsAppearance)
        console.warning(Text::tr("a file of the kind \"%1\" holds no alpha and no material").arg(title));
    if (target.holdsAppearance && losesAlpha(file))
        console.warning(Text::tr("colours lose their alpha; --alpha writes it"));
}

ExitCode change(Conversion const& conversion, MeshFile& file, Console& console)
{
    MeshTarget const& target = *meshTargetFor(conversion.out);
    conversion.changes.applyTo(file);
    warnOfLosses(target, conversion.changes, file, console);
    QString const obstacle = target.obstacle == nullptr ? QString() : target.obstacle(file);
    return obstacle.isEmpty() ? ExitCode::Ok : fail(ExitCode::Usage, conversion.out, obstacle, console);
}

ExitCode write(OutputFile& output, QString const& path, MeshFile const& file, Console& console)
{
    MeshTarget const* const target = meshTargetFor(path);
    if (!target->write(output.temporaryPath(), file))
        return fail(ExitCode::ReadOrWriteFailed, path, Text::tr("could not be written"), console);
    return result(path, output.commit(target->expectedBytes(output.temporaryPath(), file)), console);
}

} // namespace

ExitCode convert(Conversion const& conversion, Console& console)
{
    OutputFile output(conversion.out);
    ExitCode code = open(output, conversion.out, conversion.mayReplace, console);
    MeshFile file;
    file.bakesTexture = conversion.bakesTexture;
    if (code == ExitCode::Ok)
        code = read(conversion.in, file, {Interrupt::flag(), conversion.bytesRead}, console);
    if (code == ExitCode::Ok)
        code = change(conversion, file, console);
    return code == ExitCode::Ok ? write(output, conversion.out, file, console) : code;
}

ExitCode rehearse(Conversion const& conversion, Console& console)
{
    ExitCode code = checkTarget(conversion.out, console);
    if (code == ExitCode::Ok)
        code =
            result(conversion.out, OutputFile(conversion.out).targetProblem(conversion.mayReplace), console);
    return code == ExitCode::Ok ? checkSource(conversion.in, console) : code;
}

ExitCode writeMeshFile(QString const& path, MeshFile const& file, bool mayReplace, Console& console)
{
    OutputFile output(path);
    ExitCode const code = open(output, path, mayReplace, console);
    return code == ExitCode::Ok ? write(output, path, file, console) : code;
}

} // namespace tool
