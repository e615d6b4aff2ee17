#include "Text.h"
#include "check/Check.h"
#include "check/Checkers.h"
#include "volume/VolumeFindings.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

void reportReferences(Check& check, VolumeFindings const& findings)
{
    for (BadReference const& reference : findings.badReferences)
        check.findings.add("bad-reference"_L1,
                           Text::tr("line %1: %2").arg(QString::number(reference.line), reference.sentence));
    qint64 const more = findings.badReferenceCount - qint64(findings.badReferences.size());
    if (more > 0)
        check.findings.add("more-bad-references"_L1,
                           Text::counted("%n more reference(s) of this kind", nullptr, more));
}

void reportTetrahedra(Check& check, VolumeFindings const& findings, qint32 count)
{
    if (findings.incomplete > 0)
        check.findings.add("incomplete-tetrahedra"_L1,
                           Text::tr("%1 of %2 tetrahedra have points that no face row tells")
                               .arg(findings.incomplete)
                               .arg(count));
    if (findings.flat > 0)
        check.findings.add("flat-tetrahedra"_L1,
                           Text::tr("%1 of %2 tetrahedra are flat").arg(findings.flat).arg(count));
    if (findings.inverted > 0)
        check.findings.add(
            "inverted-tetrahedra"_L1,
            Text::tr("%1 of %2 tetrahedra have a negative volume in the order in which the face rows bring "
                     "their points")
                .arg(findings.inverted)
                .arg(count));
}

void reportFaces(Check& check, VolumeFindings const& findings, MTModelVMesh const& mesh)
{
    if (findings.foreignFaces > 0)
        check.findings.add("foreign-faces"_L1,
                           Text::counted("%n face row(s) (has|have) a point that (its|their) tetrahedron "
                                         "does not have, the first in line "
                                         "%1",
                                         nullptr, findings.foreignFaces)
                               .arg(findings.firstForeignLine));
    if (findings.outerFaces != mesh.numBoundFaces)
        check.findings.add(
            "boundary-mismatch"_L1,
            Text::tr("%1 face rows have a tetrahedron on one side only, but there are %2 bound-face rows")
                .arg(findings.outerFaces)
                .arg(mesh.numBoundFaces));
}

void reportBoundary(Check& check, MTModelVMesh const& mesh)
{
    BoundaryFindings const boundary = boundaryFindingsOf(mesh);
    if (boundary.openEdges > 0)
        check.findings.add("open-boundary"_L1,
                           Text::tr("%1 of %2 edges of the boundary do not join exactly two bound faces")
                               .arg(boundary.openEdges)
                               .arg(boundary.edges));
}

void reportMesh(Check& check, VolumeFile const& file)
{
    VolumeFindings const findings = findingsOf(file);
    reportReferences(check, findings);
    if (findings.nonFinitePoints > 0)
        check.findings.add("non-finite-points"_L1, Text::tr("%1 of %2 points have a NaN or an infinity")
                                                       .arg(findings.nonFinitePoints)
                                                       .arg(file.mesh.numPoints));
    reportTetrahedra(check, findings, file.mesh.numTetrahedra);
    reportFaces(check, findings, file.mesh);
    if (findings.badReferenceCount == 0)
        reportBoundary(check, file.mesh);
}

} // namespace

void checkVolume(Check& check)
{
    VolumeFile file = readVolumeFile(check.source.path);
    if (!file.problem.isEmpty()) {
        check.findings.add("malformed"_L1, file.problem);
        return;
    }
    reportMesh(check, file);
    check.context.volume = std::move(file);
    check.context.volumePath = check.source.path;
}

} // namespace tool
