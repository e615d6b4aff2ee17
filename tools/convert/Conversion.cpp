#include "convert/Conversion.h"

#include "LibraryLog.h"
#include "Text.h"
#include "inspect/Format.h"
#include "output/OutputFile.h"
#include "texture/MissingLibraries.h"

#include <QDebug>

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
    if (Problem const problem = refusalOf(path))
        return reported(problem, path, console);
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
    if (file.mesh.isNull() || file.mesh.getNumIndices() == 0)
        return fail(ExitCode::ReadOrWriteFailed, path, Text::tr("holds no facets that could be converted"),
                    console);
    if (file.bakesTexture)
        warnOfMissingLibraries(path, console);
    return ExitCode::Ok;
}

ExitCode result(QString const& path, QString const& problem, Console& console)
{
    return problem.isEmpty() ? ExitCode::Ok : fail(ExitCode::ReadOrWriteFailed, path, problem, console);
}

ExitCode checkInput(Conversion const& conversion, Console& console)
{
    return result(conversion.in, conversion.obstacle, console);
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
    if (!target.holdsAppearance && !file.mesh.colors.isEmpty())
        console.warning(
            Text::tr("vertices lose their colours: a file of the kind \"%1\" holds none").arg(title));
    if (file.hasTags)
        console.warning(Text::tr("facets lose their tags"));
}

ExitCode change(Conversion const& conversion, MeshFile& file, Console& console)
{
    MeshTarget const& target = *meshTargetFor(conversion.out);
    conversion.changes.applyTo(file);
    warnOfLosses(target, conversion.changes, file, console);
    QString const obstacle = target.obstacle == nullptr ? QString() : target.obstacle(file);
    return obstacle.isEmpty() ? ExitCode::Ok : fail(ExitCode::Usage, conversion.out, obstacle, console);
}

// What a writer says of a failure names the temporary file, and not the reason.
bool writeQuietly(MeshTarget const& target, QString const& path, MeshFile const& file)
{
    QStringList log;
    bool isWritten = false;
    {
        LogCapture const capture;
        isWritten = target.write(path, file);
        log = capture.messages();
    }
    for (QString const& message : log) {
        if (isWritten)
            qWarning().noquote() << message;
    }
    return isWritten;
}

ExitCode write(OutputFile& output, QString const& path, MeshFile const& file, Console& console)
{
    MeshTarget const* const target = meshTargetFor(path);
    if (!writeQuietly(*target, output.temporaryPath(), file))
        return fail(ExitCode::ReadOrWriteFailed, path, whyNotWritten(output.temporaryPath()), console);
    return result(path, output.commit(target->expectedBytes(output.temporaryPath(), file)), console);
}

} // namespace

ExitCode convert(Conversion const& conversion, Console& console)
{
    OutputFile output(conversion.out);
    ExitCode code = checkInput(conversion, console);
    if (code == ExitCode::Ok)
        code = open(output, conversion.out, conversion.mayReplace, console);
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
    ExitCode code = checkInput(conversion, console);
    if (code == ExitCode::Ok)
        code = checkTarget(conversion.out, console);
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
