#include "Text.h"
#include "convert/Suffixes.h"
#include "inspect/Format.h"
#include "volume/TetrahedralMesh.h"
#include "volume/VolumeFindings.h"
#include "volume/VolumeOutput.h"
#include "volume/VolumeWork.h"

#include <QFile>

#include <new>
#include <span>

using namespace Qt::StringLiterals;

namespace tool::volume {

namespace {

/// What becomes of a file on its way.
struct Import
{
    TetrahedralMesh mesh;
    qint64 tetrahedra = 0;
    qint64 points = 0;
    qint64 removedPoints = 0;
    /// Of the tetrahedra in the order in which the file has their points.
    qint64 inverted = 0;
    VolumeFile written;
};

Problem readText(QString const& path, QByteArray& text)
{
    constexpr qint64 block = qint64(1) << 22;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {ExitCode::ReadOrWriteFailed, file.errorString()};
    for (QByteArray bytes = file.read(block); !bytes.isEmpty(); bytes = file.read(block)) {
        text += bytes;
        if (Problem problem = interruption())
            return problem;
    }
    return file.error() == QFile::NoError ? Problem()
                                          : Problem{ExitCode::ReadOrWriteFailed, file.errorString()};
}

Problem read(QString const& path, TetrahedralMesh& mesh)
{
    MesherFormat const* const format = rowFor(path, mesherFormats());
    if (format == nullptr)
        return {ExitCode::Usage,
                Text::tr("expected one of the suffixes %1").arg(joinedSuffixes(mesherFormats()))};
    if (QString const problem = whyUnreadable(path); !problem.isEmpty())
        return {ExitCode::ReadOrWriteFailed, problem};
    QByteArray text;
    Problem const problem = readText(path, text);
    return problem ? problem : format->read(text, mesh);
}

void prepare(Import& import, FromOptions const& options)
{
    import.points = import.mesh.pointCount();
    import.tetrahedra = import.mesh.tetrahedronCount();
    if (!options.keepsPoints)
        import.removedPoints = removeUnusedPoints(import.mesh);
}

Problem write(OutputFile& output, Import& import)
{
    MTModelVMesh mesh = toVolumeMesh(import.mesh);
    import.mesh.points = {};
    import.mesh.tetrahedra = {};
    import.inverted = findingsOf({mesh, {}}).inverted;
    return writeVolumeFile(output, mesh, import.written);
}

Table leftOutElements(TetrahedralMesh const& mesh)
{
    Table table;
    table.columns = {{"kind"_L1, Text::tr("kind")}, {"count"_L1, Text::tr("count")}};
    for (auto const& [kind, count] : mesh.leftOut)
        table.rows.push_back({Text::tr(kind.toUtf8().constData()), count});
    return table;
}

Report reportOf(Import const& import, FromOptions const& options, qint64 flat)
{
    Report report;
    report.add("path"_L1, {}, options.in);
    report.add("output"_L1, {}, options.out);
    Report& inFile = report.section("inFile"_L1, Text::tr("in the file"));
    inFile.add("tetrahedra"_L1, Text::tr("tetrahedra"), import.tetrahedra);
    inFile.add("curved"_L1, Text::tr("with nodes on edges"), import.mesh.curved);
    inFile.add("inverted"_L1, Text::tr("inverted"), import.inverted);
    inFile.add("points"_L1, Text::tr("points"), import.points);
    Report& leftOut = report.section("leftOut"_L1, Text::tr("left out"));
    leftOut.add("points"_L1, Text::tr("points"), import.removedPoints);
    leftOut.add("elements"_L1, import.mesh.leftOut.empty() ? QString() : Text::tr("elements"),
                leftOutElements(import.mesh));
    Report& written = addCounts(report, "written"_L1, Text::tr("written"), import.written.mesh);
    written.add("flat"_L1, Text::tr("flat tetrahedra"), flat);
    return report;
}

void warn(Import const& import, FromOptions const& options, qint64 flat, Console& console)
{
    auto const say = [&](qint64 count, QString const& sentence) {
        if (count > 0)
            console.warning(sentence.arg(options.in).arg(count).arg(import.tetrahedra));
    };
    say(import.mesh.curved,
        Text::tr("%1: %2 of %3 tetrahedra have nodes on their edges; only their corners were taken"));
    say(import.inverted,
        Text::tr("%1: %2 of %3 tetrahedra have a negative volume in the order of their points; "
                 "the written file keeps no orientation"));
    say(flat,
        Text::tr("%1: %2 of %3 tetrahedra are flat in six decimals; are the coordinates in millimetres?"));
}

ExitCode import(FromOptions const& options, Console& console)
{
    OutputFile output(options.out);
    if (Problem const problem = openVolumeFile(output, options.out, options.mayReplace))
        return reported(problem, options.out, console);
    Import import;
    if (Problem const problem = read(options.in, import.mesh))
        return reported(problem, problem.code == ExitCode::Interrupted ? options.out : options.in, console);
    prepare(import, options);
    if (Problem const problem = write(output, import))
        return reported(problem, options.out, console);
    qint64 const flat = findingsOf(import.written).flat;
    warn(import, options, flat, console);
    Report const report = reportOf(import, options, flat);
    console.result(options.json ? report.json("surfaceio.vmesh-from/1"_L1) : report.text());
    return ExitCode::Ok;
}

} // namespace

ExitCode from(FromOptions const& options, Console& console)
{
    try {
        return import(options, console);
    } catch (std::bad_alloc const&) {
        return reported({ExitCode::ReadOrWriteFailed, Text::tr("there is not enough memory for it")},
                        options.in, console);
    }
}

} // namespace tool::volume
