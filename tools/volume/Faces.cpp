#include "Text.h"
#include "volume/VolumeFindings.h"
#include "volume/VolumeOutput.h"
#include "volume/VolumeWork.h"

using namespace Qt::StringLiterals;

namespace tool::volume {

namespace {

// Rows can only be made from tetrahedra that are known.
Problem findProblem(VolumeFile const& file, VolumeFindings const& findings)
{
    if (findings.badReferenceCount > 0) {
        BadReference const& first = findings.badReferences.front();
        return {ExitCode::Malformed,
                Text::tr("line %1: %2").arg(QString::number(first.line), first.sentence)};
    }
    if (findings.incomplete > 0)
        return {ExitCode::Malformed, Text::tr("%1 of %2 tetrahedra have points that no face row tells")
                                         .arg(findings.incomplete)
                                         .arg(file.mesh.numTetrahedra)};
    return {};
}

Problem read(QString const& path, VolumeFile& file, Console& console)
{
    if (Problem problem = readSound(path, file))
        return problem;
    VolumeFindings const findings = findingsOf(file);
    Problem problem = findProblem(file, findings);
    if (!problem && findings.foreignFaces > 0)
        console.warning(Text::tr("%1: %2 face rows with a point that their tetrahedron does not have are "
                                 "lost, the first in line %3")
                            .arg(path)
                            .arg(findings.foreignFaces)
                            .arg(findings.firstForeignLine));
    return problem;
}

} // namespace

ExitCode faces(FacesOptions const& options, Console& console)
{
    OutputFile output(options.out);
    if (Problem const problem = openVolumeFile(output, options.out, options.mayReplace))
        return reported(problem, options.out, console);
    VolumeFile file;
    if (Problem const problem = read(options.in, file, console))
        return reported(problem, options.in, console);
    MTModelVMesh mesh = file.mesh;
    VolumeFile written;
    if (Problem const problem = writeVolumeFile(output, mesh, written))
        return reported(problem, options.out, console);
    Report report;
    report.add("path"_L1, {}, options.in);
    report.add("output"_L1, {}, options.out);
    addCounts(report, "inFile"_L1, Text::tr("in the file"), file.mesh);
    addCounts(report, "written"_L1, Text::tr("written"), written.mesh);
    console.result(options.json ? report.json("surfaceio.vmesh-faces/1"_L1) : report.text());
    return ExitCode::Ok;
}

} // namespace tool::volume
